#!/usr/bin/env bash
# Configures and builds everything into build/ (BUILD_DIR and BUILD_TYPE override).
set -euo pipefail
cd "$(dirname "$0")/.."
BUILD_DIR="${BUILD_DIR:-build}"
BUILD_TYPE="${BUILD_TYPE:-Check}"
cmake -S . -B "$BUILD_DIR" -DCMAKE_BUILD_TYPE="$BUILD_TYPE" >/dev/null
cmake --build "$BUILD_DIR" -j"$(nproc)"
