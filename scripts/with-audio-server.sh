#!/usr/bin/env bash
# Runs a command with a private, headless PulseAudio server whose only output
# is a null sink, so that sound tests can play on a machine with no sound
# card (as root too). With --record FILE, what the sink plays is recorded as
# 16-bit mono 44.1 kHz WAV; the length and level are printed at the end, and
# FILE.times says when the recording was stopped (wall clock, seconds), so
# that a sample's time is that less what follows it in the file
# (scripts/measure-playback.py sets marks against it).
#
#   scripts/with-audio-server.sh ctest --test-dir build/release -R QtDevice
#   scripts/with-audio-server.sh --record out.wav build/release/tests/platform/audio_qt_test
#
# The server lives in its own runtime directory and is stopped on exit; the
# command's exit status is returned.
set -euo pipefail

record=""
if [ "${1:-}" = "--record" ]; then
  record="$2"
  shift 2
fi
if [ $# -eq 0 ]; then
  echo "usage: $0 [--record FILE.wav] command [args...]" >&2
  exit 2
fi

# The command and the checks below reach this server through the runtime
# directory, not a server named by the caller's environment.
unset PULSE_SERVER
export XDG_RUNTIME_DIR
XDG_RUNTIME_DIR="$(mktemp -d /tmp/nadavik-pulse.XXXXXX)"
chmod 700 "$XDG_RUNTIME_DIR"
parec_pid=""

cleanup() {
  [ -n "$parec_pid" ] && kill "$parec_pid" 2>/dev/null && wait "$parec_pid" 2>/dev/null || true
  if [ -f "$XDG_RUNTIME_DIR/pulse/pid" ]; then
    local server
    server="$(cat "$XDG_RUNTIME_DIR/pulse/pid")"
    kill "$server" 2>/dev/null || true
    # The server removes its files as it goes: wait for it, so that it does
    # not leave a runtime folder behind after the one below is removed.
    for _ in $(seq 40); do
      kill -0 "$server" 2>/dev/null || break
      sleep 0.05
    done
  fi
  rm -rf "$XDG_RUNTIME_DIR"
}
trap cleanup EXIT

# norewinds and a small record latency make the null sink render smoothly
# instead of in large irregular blocks.
pulseaudio -D -n --exit-idle-time=-1 --disallow-exit \
  --log-target="file:$XDG_RUNTIME_DIR/pulse.log" \
  --load="module-native-protocol-unix" \
  --load="module-null-sink sink_name=ci_sink rate=44100 norewinds=1" 2>/dev/null
for _ in $(seq 50); do
  pactl info >/dev/null 2>&1 && break
  sleep 0.1
done
if ! pactl info >/dev/null 2>&1; then
  echo "$0: the PulseAudio server did not start; see $XDG_RUNTIME_DIR/pulse.log" >&2
  exit 1
fi

if [ -n "$record" ]; then
  parec --latency-msec=20 -d ci_sink.monitor --file-format=wav --rate=44100 \
    --channels=1 --format=s16le "$record" &
  parec_pid=$!
  sleep 1  # a reader attached to an idle sink loses about its first second
fi

status=0
"$@" || status=$?

if [ -n "$record" ]; then
  sleep 0.5
  echo "stopped $(date +%s.%N)" >"$record.times"
  kill "$parec_pid" 2>/dev/null || true
  wait "$parec_pid" 2>/dev/null || true
  parec_pid=""
  sox "$record" -n stat 2>&1 | grep -E 'Length|RMS     amplitude|Maximum amplitude' || true
fi
exit "$status"
