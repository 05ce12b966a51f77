#!/usr/bin/env bash
# Installs what is missing to build and test on Debian 12. Quick when nothing is.
set -euo pipefail

packages=(
  g++ cmake ninja-build ccache pkg-config python3
  libwxgtk3.2-dev libcairo2-dev libpango1.0-dev libexpat1-dev libtinyxml-dev libxml2-dev libglib2.0-dev zlib1g-dev
  libavformat-dev libavcodec-dev libavutil-dev libswscale-dev libavfilter-dev
  libcli11-dev libboost-dev libgtest-dev libgmock-dev libbenchmark-dev
  fonts-dejavu-core locales unicode-data ffmpeg libxml2-utils binutils clang-format zip
)

missing=()
for package in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed'; then
    missing+=("$package")
  fi
done
if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi

echo "Installing: ${missing[*]}"
as_root=()
if [ "$(id -u)" -ne 0 ]; then as_root=(sudo); fi
"${as_root[@]}" apt-get update -q
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "${missing[@]}"
