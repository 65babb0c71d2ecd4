#!/usr/bin/env bash
# Installs, on Debian, whatever the build, the tests and the demo need and the machine lacks. It does
# nothing (and prints nothing) when all is there, so every script can call it before building.
set -euo pipefail
PACKAGES=(
	cmake make g++ pkg-config git openssl ca-certificates python3
	libgtest-dev libgmock-dev libbenchmark-dev
	libcurl4-openssl-dev libssl-dev libcpp-httplib-dev rapidjson-dev
	# The browser test of the chat window.
	chromium chromium-driver python3-selenium fonts-roboto-unhinted fonts-noto-color-emoji
)
# Extra packages a caller asks for, e.g. clang for the fuzz targets.
PACKAGES+=("$@")

MISSING=()
for Package in "${PACKAGES[@]}"; do
	if ! dpkg-query -W -f='${Status}' "$Package" 2>/dev/null | grep -q "ok installed"; then
		MISSING+=("$Package")
	fi
done
if [ "${#MISSING[@]}" -eq 0 ]; then exit 0; fi

if ! command -v apt-get >/dev/null 2>&1; then
	echo "Missing packages: ${MISSING[*]}. Install them with your package manager (this script knows apt-get only)." >&2
	exit 1
fi
SUDO=""
if [ "$(id -u)" -ne 0 ]; then SUDO="sudo"; fi
echo "Installing ${MISSING[*]}..." >&2
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq >/dev/null
$SUDO apt-get install -y -qq --no-install-recommends "${MISSING[@]}" >/dev/null
