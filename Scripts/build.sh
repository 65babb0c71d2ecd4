#!/usr/bin/env bash
# Installs what is missing, then configures and builds everything into build/ (BUILD_DIR and BUILD_TYPE
# override; BUILD_TYPE=Sanitize builds with AddressSanitizer and UndefinedBehaviorSanitizer; CMAKE_ARGS
# adds options, e.g. -DTAVRINE_BUILD_BENCHMARKS=OFF).
set -euo pipefail
cd "$(dirname "$0")/.."
BUILD_DIR="${BUILD_DIR:-build}"
BUILD_TYPE="${BUILD_TYPE:-Check}"
bash Scripts/install-deps.sh
# shellcheck disable=SC2086
cmake -S . -B "$BUILD_DIR" -DCMAKE_BUILD_TYPE="$BUILD_TYPE" ${CMAKE_ARGS:-} >/dev/null
cmake --build "$BUILD_DIR" -j"$(nproc)"
