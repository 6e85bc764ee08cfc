#!/usr/bin/env bash
# Times whole runs of kalvex-cli sweep and of ngspice on the same five-stage
# network and 2,000-point sweep, side by side (needs hyperfine and ngspice).
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
hyperfine -N --warmup 5 --runs "${1:-50}" \
  "ngspice -b $top/bench/five_stage.cir -o $out/ngspice.log" \
  "$top/build/kalvex-cli sweep $top/examples/five_stage.SSF --start 13M --stop 15.5M --points 2000 -o $out/sweep.DAT" \
  "$top/build/kalvex-cli --help" \
  "$top/build/kalvex-cli impedance $top/examples/five_stage.SSF"
