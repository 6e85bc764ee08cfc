#!/usr/bin/env bash
# Builds the whole test suite with AddressSanitizer and UndefinedBehaviorSanitizer
# in build-sanitize/ and runs it; any finding fails the run.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake -S . -B build-sanitize -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DKALVEX_SANITIZE=ON >/dev/null
cmake --build build-sanitize
cd build-sanitize
# Qt's fonts and platform plugins keep caches alive to the end of the process:
# those are not the program's leaks, and they would drown its own.
export LSAN_OPTIONS="suppressions=$PWD/../scripts/lsan.supp:print_suppressions=0"
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j "$(nproc)"
