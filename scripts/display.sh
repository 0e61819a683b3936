# shellcheck shell=bash disable=SC2034  # variables are for who sources this
# A virtual X display, for programs with a window. To be sourced after common.sh.

DISPLAY_PID=
DISPLAY_OUTPUT=

# start_display: DISPLAY names a display of its own until the script ends. To be called before Wine is
# started, which looks for its display once.
start_display() {
  local number wait_seconds=20
  exec {DISPLAY_OUTPUT}< <(exec Xvfb -displayfd 1 -screen 0 1600x1000x24 -nolisten tcp 2>/dev/null)
  DISPLAY_PID=$!
  at_exit stop_display
  IFS= read -r -t "$wait_seconds" -u "$DISPLAY_OUTPUT" number ||
    fail "Xvfb has not said within $wait_seconds s which display it serves"
  export DISPLAY=:$number
}

stop_display() {
  if [[ -n $DISPLAY_PID ]]; then kill "$DISPLAY_PID" 2>/dev/null || true; fi
  DISPLAY_PID=
}
