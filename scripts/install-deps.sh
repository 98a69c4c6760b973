#!/usr/bin/env bash
# Installs the Debian 12 packages Nadavik needs to build, run and test,
# skipping the download when everything is already there.
set -euo pipefail

packages=(
  cmake ninja-build g++ pkg-config dpkg-dev
  qt6-base-dev qt6-multimedia-dev libqt6multimedia6 qt6-qpa-plugins
  libsqlite3-dev sqlite3 libsndfile1-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  clang libclang-rt-14-dev
  fonts-noto-core fonts-lohit-deva
  xvfb xauth pulseaudio pulseaudio-utils sox
)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done

if [ ${#missing[@]} -gt 0 ]; then
  sudo_cmd=""
  [ "$(id -u)" -ne 0 ] && sudo_cmd="sudo"
  echo "Installing: ${missing[*]}"
  $sudo_cmd apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo_cmd apt-get install -y -qq "${missing[@]}"
fi
