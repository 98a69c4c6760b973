#!/usr/bin/env bash
# Installs what is missing, builds Nadavik and runs every test, then a short
# fuzzing run over the notation parser.
# Screens run on Qt's offscreen platform and sound goes to the silent device,
# so no display or sound card is needed.
set -euo pipefail
cd "$(dirname "$0")"
scripts/install-deps.sh
scripts/build.sh
export QT_QPA_PLATFORM=offscreen
ctest --test-dir build/release --output-on-failure -j "$(nproc)"
scripts/fuzz-notation.sh 30
