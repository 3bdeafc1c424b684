#!/usr/bin/env bash
# Installs the Debian packages the build, the tests and the player need. Idempotent and quiet:
# packages already present are not touched, and apt runs only when something is missing.
set -euo pipefail

packages=(
  cmake ninja-build g++ pkg-config
  libgtest-dev libgmock-dev libbenchmark-dev libsimdjson-dev
  rapidjson-dev
  libfreetype-dev fonts-noto-cjk fonts-dejavu-core
  libpng-dev libpixman-1-dev
  libavformat-dev libavcodec-dev libswscale-dev libswresample-dev libavutil-dev ffmpeg
  libsdl2-dev xvfb xdotool
  clang-14 libclang-rt-14-dev
)

missing=()
for package in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$package")
  fi
done

if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi

sudo_cmd=()
if [ "$(id -u)" -ne 0 ]; then
  sudo_cmd=(sudo)
fi
echo "Installing: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
"${sudo_cmd[@]}" apt-get update -qq
"${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
