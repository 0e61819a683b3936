# shellcheck shell=bash
# A session with the simulated ECU on the console: who is there, parameters written and read back,
# live values watched, the whole configuration read and stored. To be sourced after common.sh.

# shellcheck source=scripts/simulator.sh
source scripts/simulator.sh

CLI=()
SETTINGS_FOLDER=

remove_settings() { rm -rf "$SETTINGS_FOLDER"; }

# set_and_check NAME=VALUE...: writes parameters and reads them back in a run of its own.
set_and_check() {
  local names=("${@%%=*}") held
  echo "written:   $*"
  "${CLI[@]}" set "$@" >/dev/null
  held=$("${CLI[@]}" get "${names[@]}")
  echo "read back: ${held//$'\n'/ }"
  [[ $held == "$(printf '%s\n' "$@")" ]] || fail "the ECU holds something else: expected $*"
}

# write_and_restore: other values than the ECU has, and then its own again.
write_and_restore() {
  local names=(TEMP_COLD_ENG NCYLINDERS LAMBDA_OXYGENRANGE LAMBDA_INVERSE) answer own
  answer=$("${CLI[@]}" get "${names[@]}")
  mapfile -t own <<<"$answer"
  ((${#own[@]} == ${#names[@]})) || fail "not all parameters came: $answer"
  echo "at first:  ${own[*]}"
  set_and_check TEMP_COLD_ENG=$((${own[0]#*=} + 5)) NCYLINDERS=$((${own[1]#*=} % 6 + 1)) \
    LAMBDA_OXYGENRANGE=$(((${own[2]#*=} + 1) % 4)) LAMBDA_INVERSE=$((1 - ${own[3]#*=}))
  set_and_check "${own[@]}"
}

# console_session FOLDER: the whole session with the programs in FOLDER.
console_session() {
  local programs=$1

  step "start the simulated ECU"
  start_simulator "$programs/zelorgas-ecusim"
  # The person's own settings keep the port of the car.
  SETTINGS_FOLDER=$(mktemp -d)
  at_exit remove_settings
  export XDG_CONFIG_HOME=$SETTINGS_FOLDER
  CLI=("$programs/zelorgas-cli" --port "$SIMULATOR_PORT")
  echo "It serves $SIMULATOR_PORT at the pace of 19200 baud, in a process of its own."

  step "identify"
  "${CLI[@]}" identify

  step "write parameters and read them back"
  write_and_restore

  step "watch live values for some seconds"
  "${CLI[@]}" live --seconds 5

  step "read the configuration and store it"
  "${CLI[@]}" read build/session.fob --notes "The simulated ECU" --yes
  echo "Its 583 words are in $ROOT/build/session.fob."

  step "end the session"
  stop_simulator
  printf '\nAll of it worked. Next: "%s --help" (port "sim" needs no ECU), or ./test.\n' \
    "$programs/zelorgas-cli"
}
