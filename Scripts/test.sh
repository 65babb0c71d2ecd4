#!/usr/bin/env bash
# Builds everything and runs every test suite.
set -euo pipefail
cd "$(dirname "$0")/.."
BUILD_DIR="${BUILD_DIR:-build}"
"$(dirname "$0")/build.sh"
ctest --test-dir "$BUILD_DIR" --output-on-failure -j"$(nproc)" --timeout 300
