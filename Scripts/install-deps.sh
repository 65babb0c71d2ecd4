#!/usr/bin/env bash
# Installs what the build, the tests and the demo need on a fresh Debian machine.
set -euo pipefail
SUDO=""
if [ "$(id -u)" -ne 0 ]; then SUDO="sudo"; fi
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends \
	cmake make g++ pkg-config git openssl ca-certificates python3 \
	libgtest-dev libgmock-dev libbenchmark-dev \
	libcurl4-openssl-dev libssl-dev libcpp-httplib-dev rapidjson-dev \
	chromium chromium-driver python3-selenium fonts-roboto-unhinted fonts-noto-color-emoji >/dev/null
