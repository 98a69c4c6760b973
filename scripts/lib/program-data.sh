# Sourced by the scripts that run the real program on a temporary copy of
# its data folder (soak.sh, crash-trials.sh), so that the build's own stores
# stay as they are.
#   copy_program_data PROGRAM DIR   copies every data file beside PROGRAM
#                                    into DIR (made if missing)
#   run_program DIR PROGRAM ARGS...  runs PROGRAM offscreen on the data in
#                                    DIR, with its temporary and per-user
#                                    files under DIR too; it replaces the
#                                    shell, so call it as `run_program ... &`
#                                    and $! is the program's own process

copy_program_data() {
  local program="$1" dir="$2" entry
  mkdir -p "$dir"
  for entry in "$(dirname "$program")"/*; do
    [ "$entry" -ef "$program" ] || cp -a "$entry" "$dir/"
  done
}

run_program() {
  local dir="$1"
  shift
  mkdir -p "$dir/tmp" "$dir/home"
  exec env -u DISPLAY -u WAYLAND_DISPLAY QT_QPA_PLATFORM=offscreen \
    NADAVIK_DATA_FOLDER="$dir" TMPDIR="$dir/tmp" \
    XDG_DATA_HOME="$dir/home" XDG_CONFIG_HOME="$dir/home" XDG_STATE_HOME="$dir/home" \
    "$@"
}
