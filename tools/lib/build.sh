# Shared by the commands that build. Source it from the top folder of the checkout. Needs bash.

if [ -z "${CMAKE_CXX_COMPILER_LAUNCHER:-}" ] && command -v ccache >/dev/null; then
  export CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi

# print_seconds BEGIN: the time since then.
print_seconds() { echo "  $((SECONDS - $1)) s"; }

# build_preset PRESET [TARGET…]: configures and builds; quiet unless it fails.
build_preset() {
  local preset=$1 log begin=$SECONDS
  shift
  log=$(mktemp)
  echo "Building $preset …"
  if ! { cmake --preset "$preset" && cmake --build --preset "$preset" ${1:+--target "$@"}; } >"$log" 2>&1; then
    tail -n 100 "$log" >&2
    rm -f "$log"
    return 1
  fi
  rm -f "$log"
  print_seconds "$begin"
}

tests_passed=0
tests_failed=0

# run_tests PRESET LABEL [CTEST ARGUMENT…]: adds to tests_passed and tests_failed. No test with the label is a failure.
run_tests() {
  local preset=$1 label=$2 log status=0 total failed begin=$SECONDS
  shift 2
  log=$(mktemp)
  echo "Testing $preset: $label …"
  ctest --preset "$preset" -L "^$label\$" --no-tests=error "$@" >"$log" 2>&1 </dev/null || status=$?
  read -r failed total < <(sed -nE 's/^[0-9]+% tests passed, ([0-9]+) tests? failed out of ([0-9]+)$/\1 \2/p' "$log") || true
  if [ "$status" -ne 0 ]; then
    cat "$log"
    [ "${failed:-0}" -gt 0 ] || failed=1 total=1
  else
    grep -E '^[0-9]+% tests passed' "$log"
  fi
  rm -f "$log"
  print_seconds "$begin"
  tests_passed=$((tests_passed + total - failed))
  tests_failed=$((tests_failed + failed))
  [ "$status" -eq 0 ]
}

# check NAME COMMAND…: counts as one test.
check() {
  local name=$1 log begin=$SECONDS
  shift
  log=$(mktemp)
  echo "Checking $name …"
  if "$@" >"$log" 2>&1 </dev/null; then
    tests_passed=$((tests_passed + 1))
    rm -f "$log"
    print_seconds "$begin"
  else
    tail -n 100 "$log"
    rm -f "$log"
    echo "FAILED: $name"
    tests_failed=$((tests_failed + 1))
    return 1
  fi
}

print_tally() { echo "$tests_passed passed, $tests_failed failed"; }
