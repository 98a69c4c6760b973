#!/usr/bin/env bash
# Installs what is missing, builds Nadavik, runs a short fuzzing run over the
# notation parser, then every test.
# Screens run on Qt's offscreen platform and sound goes to the silent device,
# so no display or sound card is needed.
set -euo pipefail
cd "$(dirname "$0")"
scripts/install-deps.sh
scripts/build.sh
scripts/fuzz-notation.sh 30
export QT_QPA_PLATFORM=offscreen
ctest --test-dir build/release --output-on-failure -j "$(nproc)"
