#!/usr/bin/env bash
# Installs what is missing, builds Nadavik, runs a short fuzzing run over the
# notation parser, then every test in two groups:
#  1. the fall-back to the silent device, where no sound server can be
#     reached (PULSE_SERVER names a socket that does not exist, so neither
#     the session's server is found nor one started);
#  2. everything else with a private headless sound server whose output is a
#     null sink (scripts/with-audio-server.sh), so that the tests of the real
#     audio device play.
# NADAVIK_TEST_SOUND_OUTPUT tells the audio tests what was arranged, so that
# a test that finds the other kind of machine fails instead of skipping.
# Screens run on Qt's offscreen platform, so no display or sound card is
# needed. The summary of the second group closes the output; a group that
# fails ends the command with its own summary.
set -euo pipefail
cd "$(dirname "$0")"
scripts/install-deps.sh
scripts/build.sh
scripts/fuzz-notation.sh 30
export QT_QPA_PLATFORM=offscreen
ctest_args=(--test-dir build/release --output-on-failure --no-label-summary)
NADAVIK_TEST_SOUND_OUTPUT=absent PULSE_SERVER=unix:/nonexistent/nadavik-no-server \
  ctest "${ctest_args[@]}" -L silent_audio_fallback
NADAVIK_TEST_SOUND_OUTPUT=present scripts/with-audio-server.sh \
  ctest "${ctest_args[@]}" -j "$(nproc)" -LE silent_audio_fallback
