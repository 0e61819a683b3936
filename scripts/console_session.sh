# shellcheck shell=bash
# A session with the simulated ECU on the console: who is there, the whole configuration read, some
# of it written and read back, live values watched. To be sourced after common.sh.

# shellcheck source=scripts/simulator.sh
source scripts/simulator.sh

CLI=()

# ecu_values ARRAY FORM...: the numbers of one exchange, `modbus FORM...`, without showing it.
ecu_values() {
  local -n into=$1
  local answer
  shift
  answer=$("${CLI[@]}" --json modbus "$@") || return
  [[ $answer =~ \"values\":\[([0-9,]*)\] ]] || fail "unexpected answer: $answer"
  # shellcheck disable=SC2034  # a name for the caller's array
  IFS=, read -r -a into <<<"${BASH_REMATCH[1]}"
}

# fixed NUMBER PLACES: 1234 with 2 places is 12.34.
fixed() {
  local power=$((10 ** $2))
  printf '%d.%0*d' $(($1 / power)) "$2" $(($1 % power))
}

signed_byte() { echo $((($1 & 0xFF) - (($1 & 0x80) << 1))); }

# read_block FILE: the 583 words of the configuration, at most 32 a request, one line each.
read_block() {
  local file=$1 first=256 last=838 most=32 register count i requests=0 words
  : >"$file"
  for ((register = first; register <= last; register += most)); do
    count=$((last - register + 1 < most ? last - register + 1 : most))
    ecu_values words holding "$register" "$count"
    ((${#words[@]} == count)) || fail "${#words[@]} words came instead of $count"
    for ((i = 0; i < count; i++)); do echo "$((register + i)): ${words[i]}" >>"$file"; done
    requests=$((requests + 1))
  done
  echo "$(wc -l <"$file") words in $requests requests; they are in $file"
}

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

# watch_live SECONDS: a line a round of polling.
watch_live() {
  local end=$((SECONDS + $1)) pointer=0 rounds=0 fifo=() pressure=() block=()
  local modes=(Normal Economical Turbo) fuels=(petrol gas) newest
  printf '%11s  %9s %9s %8s %8s %6s  %9s %9s %7s  %s\n' \
    engine petrol "gas inj." throttle coolant gas MAP P1 battery mode
  while ((SECONDS < end || rounds < 2)); do
    ecu_values fifo fifo "$pointer"
    ecu_values pressure input 43 1
    ecu_values block input 71 16
    # Four registers a record; the last record is the newest.
    newest=$((${#fifo[@]} / 4 * 4 - 4))
    pointer=$(((pointer + ${#fifo[@]} / 4) % 8))
    if ((newest < 0)); then continue; fi
    printf '%5d 1/min  %6s ms %6s ms %6d %% %6d C %4d C  %5s bar %5s bar %5s V  %s, %s\n' \
      "${fifo[newest + 3]}" "$(fixed "${block[0]}" 3)" "$(fixed "${block[1]}" 3)" \
      "$(signed_byte "${block[2]}")" "$(signed_byte "${fifo[newest + 1]}")" \
      "$(signed_byte "${fifo[newest + 2]}")" "$(fixed $((fifo[newest + 2] >> 8)) 1)" \
      "$(fixed "${pressure[0]}" 2)" "$(fixed $((fifo[newest + 1] >> 8)) 1)" \
      "${modes[block[3]]:-Unknown}" "${fuels[block[4]]:-unknown fuel}"
    rounds=$((rounds + 1))
    sleep 0.3  # for the reader; the line could give ten rounds a second
  done
}

# console_session FOLDER: the whole session with the programs in FOLDER.
console_session() {
  local programs=$1

  step "start the simulated ECU"
  start_simulator "$programs/zelorgas-ecusim"
  CLI=("$programs/zelorgas-cli" --port "$SIMULATOR_PORT")
  echo "It serves $SIMULATOR_PORT at the pace of 19200 baud, in a process of its own."

  step "identify"
  "${CLI[@]}" identify

  step "read the configuration"
  read_block build/ecu-block.txt

  step "write parameters and read them back"
  write_and_restore

  step "watch live values for some seconds"
  watch_live 5

  step "end the session"
  stop_simulator
  printf '\nAll of it worked. Next: "%s --help" (port "sim" needs no ECU), or ./test.\n' \
    "$programs/zelorgas-cli"
}
