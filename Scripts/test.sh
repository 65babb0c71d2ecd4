#!/usr/bin/env bash
# Builds everything (installing what is missing first) and runs every test suite. BUILD_TYPE=Sanitize
# runs them under AddressSanitizer and UndefinedBehaviorSanitizer; any report fails its test.
set -euo pipefail
cd "$(dirname "$0")/.."
BUILD_DIR="${BUILD_DIR:-build}"
export BUILD_DIR
"$(dirname "$0")/build.sh"
# Read only by a sanitized build; the tests' child processes (host, backend) inherit them.
export ASAN_OPTIONS="${ASAN_OPTIONS:-detect_leaks=0:abort_on_error=1}"
export UBSAN_OPTIONS="${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1:suppressions=$PWD/Tools/Sanitize/ubsan.supp}"
ctest --test-dir "$BUILD_DIR" --output-on-failure -j"$(nproc)" --timeout "${TEST_TIMEOUT:-300}"
