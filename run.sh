#!/usr/bin/env bash
# Installs what is missing, builds Nadavik and starts it.
set -euo pipefail
cd "$(dirname "$0")"
scripts/install-deps.sh
scripts/build.sh
exec build/release/nadavik/nadavik "$@"
