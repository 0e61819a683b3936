# shellcheck shell=bash disable=SC2034  # variables are for who sources this
# The simulated ECU as a second process. To be sourced after common.sh.

SIMULATOR_PID=
SIMULATOR_PORT=
SIMULATOR_OUTPUT=

# start_simulator PROGRAM [OPTION...]: starts it and waits until it serves; SIMULATOR_PORT is then
# its serial port. It ends when the script does, on every way out.
start_simulator() {
  local wait_seconds=10
  exec {SIMULATOR_OUTPUT}< <(exec "$@")
  SIMULATOR_PID=$!
  at_exit stop_simulator
  IFS= read -r -t "$wait_seconds" -u "$SIMULATOR_OUTPUT" SIMULATOR_PORT ||
    fail "$1 has not said within $wait_seconds s which port it serves"
}

# stop_simulator: ends the simulated ECU and prints the summary that it leaves.
stop_simulator() {
  if [[ -z $SIMULATOR_PID ]]; then return; fi
  kill -TERM "$SIMULATOR_PID" 2>/dev/null || true
  # Its output ends when it does; one that hangs is not waited for.
  timeout 5 cat <&"$SIMULATOR_OUTPUT" || kill -KILL "$SIMULATOR_PID" 2>/dev/null || true
  exec {SIMULATOR_OUTPUT}<&-
  SIMULATOR_PID=
}
