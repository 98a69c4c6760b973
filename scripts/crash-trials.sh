#!/usr/bin/env bash
# Crash trials: starts the real program N times (offscreen, on a copy of its
# data folder) with its hidden --repeat-saves option, which makes it save
# one kind of thing over and over, alternating between two known versions
# (src/diagnostic_runs.h), and kills it with kill -9 at a random moment
# among those saves. After each kill the user store must pass SQLite's
# integrity check and hold one whole version, never a mixture of the two.
#   scripts/crash-trials.sh [N]   (default 100; the kinds take turns)
# To add a kind of save: teach the program's --repeat-saves the kind, then
# add it to `kinds` with a stored_<kind> function and its two versions.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/lib/program-data.sh
trials="${1:-100}"
program="$PWD/build/release/nadavik/nadavik"
[ -x "$program" ] || scripts/build.sh

kinds=(settings scales patterns compositions)

# settings: the usage parameters the save alternates, in name order.
stored_settings() {
  sqlite3 -separator ' ' "$1" "SELECT group_concat(\"Parameter Value\", ' ') FROM
    (SELECT \"Parameter Value\" FROM \"User Parameters\" WHERE \"Parameter Name\" IN
     ('DelayC', 'DelayMO', 'DelayPC', 'DelayW', 'KeyboardDisplay', 'SortingMode')
     ORDER BY \"Parameter Name\")"
}
# scales: the scale "Crash Trial", redefined over and over: how many such
# scales and tuning rows there are, its NewSPC and the first and last
# correction of its main and drone rows.
stored_scales() {
  sqlite3 "$1" "SELECT (SELECT count(*) FROM \"Scale Shift Specs\" WHERE NPSetName = 'Crash Trial')
    || ' ' || (SELECT count(*) FROM ONPR WHERE NPSetName = 'Crash Trial')
    || ' ' || (SELECT NewSPC FROM \"Scale Shift Specs\" WHERE NPSetName = 'Crash Trial')
    || ' ' || (SELECT \"00\" || ' ' || \"26\" FROM ONPR WHERE NPSetName = 'Crash Trial' AND InstrumentType = 1)
    || ' ' || (SELECT \"00\" || ' ' || \"26\" FROM ONPR WHERE NPSetName = 'Crash Trial' AND InstrumentType = 2)"
}
# patterns: the last pattern saved, or "mixture" when any row holds parts of
# both versions.
stored_patterns() {
  sqlite3 -separator ' ' "$1" "SELECT CASE WHEN EXISTS (SELECT 1 FROM \"User Patterns\"
    WHERE NOT ((\"PatternMode\" = 1 AND \"PatternPhrase\" = 'BUC1') OR
               (\"PatternMode\" = 2 AND \"PatternPhrase\" = 'BUJ2lDJ1')))
    THEN 'mixture' ELSE (SELECT \"PatternPhrase\" || ' ' || \"PatternMode\"
    FROM \"User Patterns\" ORDER BY rowid DESC LIMIT 1) END"
}
# compositions: the header rows, then each part's notation, durations and
# words, Asthai first.
stored_compositions() {
  sqlite3 -separator ' ' "$1" "SELECT (SELECT count(*) FROM \"Raga - Additional Information\") || ' ' ||
    ifnull((SELECT group_concat(p, ' ') FROM (SELECT Notation || ' ' || NotesDuration || ' ' ||
     CompositionText AS p FROM \"Raga - Composition Notations\" ORDER BY \"Composition Part\")), '')"
}
declare -A first_version=([settings]="100 100 100 100 1 4" [scales]="1 2 100.5 0.5 0.5 0.25 0.25" [patterns]="BUC1 1"
  [compositions]="1 S R 1 1 first words G M 1 1 first words")
declare -A second_version=([settings]="200 200 200 200 2 5" [scales]="1 2 101.5 1.5 1.5 1.25 1.25" [patterns]="BUJ2lDJ1 2"
  [compositions]="1 P D 2 2 second words N S> 2 2 second words")

work="$(mktemp -d /tmp/nadavik-crash.XXXXXX)"
pid=""
trap '[ -n "$pid" ] && kill -9 "$pid" 2>/dev/null; rm -rf "$work"' EXIT
copy_program_data "$program" "$work/data"
store="$work/data/mrB.nvy"

failures=0 saves_total=0 late_kills=0
for trial in $(seq "$trials"); do
  kind="${kinds[$((trial % ${#kinds[@]}))]}"
  rm -f "$work/saves.txt"  # so that the last trial's saves are not taken for this one's
  run_program "$work/data" "$program" --quit-when-shown "--repeat-saves=$kind" \
    >"$work/saves.txt" 2>"$work/program.txt" &
  pid=$!
  # Wait for the first save to return, then kill within the next 0-60 ms.
  for _ in $(seq 600); do
    grep -qs '^saved' "$work/saves.txt" && break
    kill -0 "$pid" 2>/dev/null || break
    sleep 0.05
  done
  if ! grep -qs '^saved' "$work/saves.txt"; then
    status=0
    if kill -0 "$pid" 2>/dev/null; then
      echo "trial $trial: the program is still starting after 30 s; its state and threads:" >&2
      ps -o stat,time,wchan:30 -p "$pid" >&2
      gdb -batch -p "$pid" -ex "thread apply all bt" 2>/dev/null | grep -E '^(#|Thread)' >&2 || true
      kill -9 "$pid"
    fi
    wait "$pid" || status=$?
    echo "trial $trial: the program made no save (exit status $status)" >&2
    cat "$work/program.txt" "$work/data/errtrace.txt" >&2
    cp -a "$work/data" "$PWD/build/crash-trial-$trial"
    echo "its data folder is kept in build/crash-trial-$trial" >&2
    exit 1
  fi
  sleep "$(printf "0.%03d" $((RANDOM % 60)))"
  kill -9 "$pid"
  wait "$pid" 2>/dev/null || true
  pid=""
  saves="$(grep -c '^saved' "$work/saves.txt")"
  saves_total=$((saves_total + saves))

  integrity="$(sqlite3 "$store" 'PRAGMA integrity_check')"
  state="$("stored_$kind" "$store")"
  # The version of the last save that returned, and of the one under way.
  returned="${first_version[$kind]}" under_way="${second_version[$kind]}"
  if [ $((saves % 2)) -eq 0 ]; then returned="${second_version[$kind]}" under_way="${first_version[$kind]}"; fi
  if [ "$integrity" != ok ]; then
    echo "trial $trial ($kind): integrity check: $integrity" >&2
    failures=$((failures + 1))
  elif [ "$state" = "$under_way" ]; then
    late_kills=$((late_kills + 1))  # killed after the commit, before the report
  elif [ "$state" != "$returned" ]; then
    echo "trial $trial ($kind): after $saves saves the store holds '$state'," \
      "neither '$returned' nor '$under_way'" >&2
    failures=$((failures + 1))
  fi
done
echo "crash trials: $trials kills, $saves_total saves returned in all;" \
  "$failures failures (corruption or a mixture); $late_kills kills fell after a commit, before its report"
[ "$failures" -eq 0 ]
