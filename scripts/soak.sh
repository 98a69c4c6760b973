#!/usr/bin/env bash
# Soak: plays the longest alap of the library over and over in the real
# program for HOURS hours (offscreen, under a private headless sound server,
# on a copy of the data folder), samples the program's resident memory and
# open descriptors every SAMPLE seconds, and prints their growth since the
# first sample after a warm-up. Goal: under 5 MB of growth and none in
# descriptors; the exit status is 1 when the program dies, stops playing
# (no alap started for STALL seconds, 600 by default: its threads are shown)
# or misses the goal.
#   scripts/soak.sh HOURS [SAMPLE-SECONDS]   (HOURS may be a fraction)
# The program is driven by its hidden --loop-alap option
# (src/diagnostic_runs.h).
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/lib/program-data.sh
hours="${1:?usage: $0 HOURS [SAMPLE-SECONDS]}"
sample="${2:-10}"
warmup="${SOAK_WARMUP:-60}"
stall="${STALL:-600}"
program="$PWD/build/release/nadavik/nadavik"
[ -x "$program" ] || scripts/build.sh

work="$(mktemp -d /tmp/nadavik-soak.XXXXXX)"
program_pid=""
trap 'kill "$pid" $program_pid 2>/dev/null || true; rm -rf "$work"' EXIT
copy_program_data "$program" "$work/data"

# The alap (phrase type 1) whose durations add up to the most.
read -r raga alap_ms < <(sqlite3 -separator ' ' "$work/data/mrA.nvy" \
  "SELECT RagaIndex, DurationPhrase FROM \"Raga - ALT Phrases\" WHERE PhraseType = 1" |
  awk '{ ms = 0; for (i = 2; i <= NF; i++) if ($i ~ /^[0-9.]+$/) ms += $i
         if (ms > best) { best = ms; id = $1 } } END { print id, best }')
echo "soak: raga $raga (its alap's durations add up to $alap_ms), $hours h, a sample every $sample s"

run_program "$work/data" scripts/with-audio-server.sh \
  "$program" --quit-when-shown "--loop-alap=$raga" 2>"$work/program.txt" &
pid=$!
# The program is a child of the sound-server script.
for _ in $(seq 100); do
  program_pid="$(pgrep -P "$pid" -x nadavik || true)"
  [ -n "$program_pid" ] && break
  sleep 0.2
done
[ -n "$program_pid" ] || { echo "soak: the program did not start" >&2; exit 1; }

rss_kb() { awk '/^VmRSS:/ { print $2 }' "/proc/$program_pid/status"; }
fds() { ls "/proc/$program_pid/fd" | wc -l; }

start=$SECONDS
end=$((start + $(awk -v h="$hours" 'BEGIN { printf "%d", h * 3600 }')))
sleep "$warmup"
first_rss="$(rss_kb)" first_fds="$(fds)" max_rss="$first_rss"
alaps=0 last_start=$SECONDS
echo "time_s rss_kb fds alaps"
while [ $SECONDS -lt $end ]; do
  kill -0 "$program_pid" 2>/dev/null || { echo "soak: the program died" >&2; cat "$work/program.txt" >&2; exit 1; }
  rss="$(rss_kb)" open="$(fds)"
  [ "$rss" -gt "$max_rss" ] && max_rss="$rss"
  now_alaps="$(grep -c 'alap of' "$work/program.txt" || true)"
  [ "$now_alaps" != "$alaps" ] && alaps="$now_alaps" last_start=$SECONDS
  echo "$((SECONDS - start)) $rss $open $alaps"
  if [ $((SECONDS - last_start)) -gt "$stall" ]; then
    echo "soak: no alap started for $stall s; the program's threads:" >&2
    gdb -batch "/proc/$program_pid/exe" "$program_pid" -ex "thread apply all bt 30" 2>/dev/null |
      grep -E '^(#|Thread)' >&2 || true
    grep -v 'alap of' "$work/program.txt" | sort | uniq -c | sort -rn | head -5 >&2
    exit 1
  fi
  sleep "$sample"
done
rss="$(rss_kb)" open="$(fds)"
grep 'message\|no alap' "$work/program.txt" || true
echo "soak: rss ${first_rss} -> ${rss} kB (growth $((rss - first_rss)) kB, peak ${max_rss} kB);" \
  "descriptors ${first_fds} -> ${open}; $(grep -c 'alap of' "$work/program.txt") alaps started"
[ $((rss - first_rss)) -lt 5120 ] && [ "$open" -le "$first_fds" ]
