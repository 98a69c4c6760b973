#!/usr/bin/env bash
# Starts the program that the README's run command starts, by the path on
# the exec line of run.sh, offscreen and unattended (--quit-when-shown), and
# expects it to show its main window and exit 0 within a time limit. A
# run.sh that starts anything but the program the build makes fails here.
#
#   run_command_test.sh SOURCE_DIR BUILT_PROGRAM [SECONDS]
#
# The start-up writes the trace file and the user's store and the stop
# saves the usage parameters, so the program runs on a copy of its data
# folder (NADAVIK_DATA_FOLDER) and keeps its temporary and per-user files in
# a temporary folder: the build's own stores stay as they are.
set -euo pipefail

source_dir="$1"
built="$2"
limit="${3:-60}"

fail() {
  echo "FAIL: $*" >&2
  exit 1
}

mapfile -t exec_lines < <(grep -E '^[[:space:]]*exec[[:space:]]' "$source_dir/run.sh" || true)
[ "${#exec_lines[@]}" -eq 1 ] ||
  fail "run.sh should start the program with one exec line; it has ${#exec_lines[@]}"
read -r _ program _ <<<"${exec_lines[0]}"
program="${program//\"/}"
# run.sh changes to its own folder first, so a relative path starts there.
[[ "$program" = /* ]] || program="$source_dir/$program"
echo "run.sh starts $program"
[ -x "$program" ] || fail "run.sh starts $program, which the build does not make"
[ "$program" -ef "$built" ] ||
  fail "run.sh starts $program, but the build makes the program as $built"

work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
mkdir "$work/data" "$work/home"
for entry in "$(dirname "$program")"/*; do
  [ "$entry" -ef "$program" ] || cp -a "$entry" "$work/data/"
done

status=0
env -u DISPLAY -u WAYLAND_DISPLAY QT_QPA_PLATFORM=offscreen \
  NADAVIK_DATA_FOLDER="$work/data" TMPDIR="$work" \
  XDG_DATA_HOME="$work/home" XDG_CONFIG_HOME="$work/home" XDG_STATE_HOME="$work/home" \
  timeout -k 5 "$limit" "$program" --quit-when-shown || status=$?

if [ "$status" -ne 0 ]; then
  [ -s "$work/data/errtrace.txt" ] && { echo "--- errtrace.txt"; cat "$work/data/errtrace.txt"; }
  [ "$status" -eq 124 ] && fail "the program did not exit within $limit s"
  fail "the program exited with status $status (0 means its main window was shown)"
fi
echo "the main window was shown and the program exited 0"
