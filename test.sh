#!/usr/bin/env bash
# Installs what is missing, builds Nadavik, runs every libFuzzer target for a
# few seconds on its committed corpus, then every test in two groups, in two
# builds: build/release, and build/asan with AddressSanitizer and
# UndefinedBehaviorSanitizer (a leak, a memory fault or any undefined
# behaviour fails the test; the one suppression, scripts/lsan.supp, is
# fontconfig's leak, which is not ours). The two groups:
#  1. the fall-back to the silent device, where no sound server can be
#     reached (PULSE_SERVER names a socket that does not exist, so neither
#     the session's server is found nor one started);
#  2. everything else with a private headless sound server whose output is a
#     null sink (scripts/with-audio-server.sh), so that the tests of the real
#     audio device play.
# NADAVIK_TEST_SOUND_OUTPUT tells the audio tests what was arranged, so that
# a test that finds the other kind of machine fails instead of skipping.
# Screens run on Qt's offscreen platform, so no display or sound card is
# needed. The summary of the sanitizer build's second group closes the
# output; a group that fails ends the command with its own summary.
set -euo pipefail
cd "$(dirname "$0")"
scripts/install-deps.sh
scripts/build.sh
scripts/fuzz-all.sh 5
export QT_QPA_PLATFORM=offscreen

# Runs the two groups of the tests of the build in folder $1.
run_tests() {
  local ctest_args=(--test-dir "$1" --output-on-failure --no-label-summary)
  NADAVIK_TEST_SOUND_OUTPUT=absent PULSE_SERVER=unix:/nonexistent/nadavik-no-server \
    ctest "${ctest_args[@]}" -L silent_audio_fallback
  NADAVIK_TEST_SOUND_OUTPUT=present scripts/with-audio-server.sh \
    ctest "${ctest_args[@]}" -j "$(nproc)" -LE silent_audio_fallback
}

run_tests build/release

cmake --preset asan >/dev/null
cmake --build build/asan -j "$(nproc)"
export ASAN_OPTIONS=detect_leaks=1
export LSAN_OPTIONS="suppressions=$PWD/scripts/lsan.supp:print_suppressions=0"
export UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1
run_tests build/asan
