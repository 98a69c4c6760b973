#!/usr/bin/env bash
# Configures and builds the release tree (build/release) with every target.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --preset release >/dev/null
cmake --build build/release -j "$(nproc)"
