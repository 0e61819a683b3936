# shellcheck shell=bash
# Named comparisons that are counted. To be sourced after common.sh.

passed=0
failed=0

# check NAME EXPECTED ACTUAL
check() {
  if [[ $2 == "$3" ]]; then
    passed=$((passed + 1))
    printf 'ok      %s\n' "$1"
  else
    failed=$((failed + 1))
    printf 'FAILED  %s\n  expected: %s\n  came:     %s\n' "$1" "$2" "$3"
  fi
}

# with_status COMMAND...: output and exit status in one text, so that one comparison covers both.
with_status() {
  local output status=0
  output=$("$@") || status=$?
  printf '%s\n[status %d]\n' "$output" "$status"
}

# sum_up: prints "N passed, M failed"; false when M is not 0.
sum_up() {
  printf '%d passed, %d failed\n' "$passed" "$failed"
  ((failed == 0))
}
