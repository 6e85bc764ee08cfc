#!/usr/bin/env bash
# Builds the readers' and the argument lists' libFuzzer targets with clang, AddressSanitizer and
# UndefinedBehaviorSanitizer in build-fuzz/, and runs each for SECONDS (60 by
# default) from the seed corpus in fuzz/corpus/. Exits 1 on any finding; its
# reproducer is in build-fuzz/findings/.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}
cmake -S . -B build-fuzz -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DKALVEX_FUZZ=ON \
      -DCMAKE_CXX_COMPILER=clang++ >/dev/null
cmake --build build-fuzz
mkdir -p build-fuzz/findings
status=0
for target in network_file defaults_file load_data_file parse_value touchstone two_port sweep_outputs \
              deck_name arguments analyser_answers; do
  # libFuzzer adds what it finds to its first corpus folder: a copy, not the seeds.
  # Full paths: a target may work in a folder of its own (the argument lists do).
  work=$PWD/build-fuzz/corpus/$target
  mkdir -p "$work"
  cp -n fuzz/corpus/$target/* "$work"/ 2>/dev/null || true
  echo "fuzzing $target for ${seconds}s"
  if ! build-fuzz/fuzz/${target}_fuzz "$work" -max_total_time="$seconds" -timeout=10 \
         -rss_limit_mb=2048 -max_len=65536 -artifact_prefix=$PWD/build-fuzz/findings/$target- \
         -print_final_stats=1 2>build-fuzz/$target.log; then
    echo "finding in $target: see build-fuzz/$target.log and build-fuzz/findings/" >&2
    tail -n 30 build-fuzz/$target.log >&2
    status=1
  fi
  grep -E 'stat::number_of_executed_units|stat::new_units_added' build-fuzz/$target.log || true
done
exit $status
