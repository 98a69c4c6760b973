#!/usr/bin/env bash
# Builds the release tree and makes the Debian package from it:
# build/release/nadavik_<version>_<arch>.deb (CPack; the library packages it
# depends on are found by dpkg-shlibdeps, the font package by the build).
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/build.sh
cd build/release
cpack -G DEB
