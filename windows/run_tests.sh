#!/usr/bin/env bash
# Runs the Windows build's test programs under Wine in a fresh prefix, and compares their tests with the native build's:
# every test runs on both, or windows/one_system_tests.txt says why not.
# usage: windows/run_tests.sh [FILTER], a pattern of tests as --gtest_filter takes it
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

readonly out="$PWD/build/windows-test"
readonly filter="${1:-*}"
readonly wine=/usr/lib/wine/wine64 server=/usr/lib/wine/wineserver64
export out wine WINEPREFIX="$out/prefix" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml,winedbg.exe=" DISPLAY=

# The programs that take long start first, and their tests run in so many parts.
readonly long_programs=(tests_render_test:4 tests_refusals_test:4 library_test:3 tests_validate_test:2)

say() { printf '== windows-test: %s\n' "$*"; }
die() {
  say "$*" >&2
  exit 1
}

# The lists below have a line for each part, of words.
[[ "$filter" != *[[:space:]]* ]] || die "the pattern \"$filter\" has blanks, which no test's name has"

# run_part NAME PROGRAM PART PARTS FILTER: leaves what the program said in NAME.log, or in NAME.failed.
run_part() {
  # Paths that begin with a slash are on the drive of the current folder.
  cd "$out"
  GTEST_SHARD_INDEX="$3" GTEST_TOTAL_SHARDS="$4" timeout 1800 "$wine" "$2" --gtest_brief=1 --gtest_filter="$5" \
    --gtest_color=no <<<"" >"$1.log" 2>&1 || mv "$1.log" "$1.failed"
}
export -f run_part

# run_parts AT_ONCE: runs the parts that the standard input tells, a line each.
run_parts() { xargs -r -L 1 -P "$1" bash -c 'run_part "$@"' run_part; }

# The parts of the programs, those first whose programs have most. Each line of test_programs.txt is: program, and a
# pattern of the tests that run when no other does.
readonly programs="$PWD/build/windows/test_programs.txt"
list_parts() {
  local program alone name long count part others
  while read -r program alone; do
    name="$(basename "$program" .exe)"
    count=1
    for long in "${long_programs[@]}"; do [[ "$name" != "${long%:*}" ]] || count="${long#*:}"; done
    others="$filter"
    [[ -z "$alone" || "$filter" != "*" ]] || others="-$alone"
    for ((part = 0; part < count; ++part)); do echo "$name.$part $program $part $count $others"; done
  done <"$programs" | sort -s -k 4,4nr
}
list_alone() {
  local program alone
  while read -r program alone; do
    [[ -z "$alone" || "$filter" != "*" ]] || echo "$(basename "$program" .exe).alone $program 0 1 $alone"
  done <"$programs"
}

# What --gtest_list_tests prints, as a name to a line.
test_names() { tr -d '\r' | awk '/^[^ ].*\.( |$)/ { suite = $1; next } /^  / { print suite $1 }' | sort; }

# sum PATTERN FILE...: of the numbers that the parentheses find in the files' lines. A program that failed left no file.
sum() { { cat "${@:2}" 2>/dev/null || true; } | tr -d '\r' | sed -nE "s/$1/\1/p" | awk '{ sum += $1 } END { print sum + 0 }'; }
readonly passed='^\[  PASSED  \] ([0-9]+) tests?\.$'

rm -rf "$out"
mkdir -p "$WINEPREFIX"
say "making a prefix"
# One server for all programs, until the end.
"$server" -p
trap '"$server" -k 2>/dev/null || true' EXIT
"$wine" wineboot --init >"$out/prefix.boot" 2>&1 || { tail -n 20 "$out/prefix.boot" >&2; die "Wine does not start"; }

list_parts | run_parts "$(nproc 2>/dev/null || echo 2)"
list_alone | run_parts 1

# --- what ran ---

failed=()
while read -r program _; do
  name="$(basename "$program" .exe)"
  for log in "$out/$name".*.failed; do
    [[ -e "$log" ]] || continue
    tr -d '\r' <"$log" | tail -n 60
    failed+=("$(basename "$log" .failed)")
  done
  printf '%-40s %5d passed\n' "$name" "$(sum "$passed" "$out/$name".*.log)"
done <"$programs"

while read -r program _; do
  (cd "$out" && "$wine" "$program" --gtest_list_tests <<<"") 2>/dev/null | test_names ||
    die "$program does not list its tests"
done <"$programs" | sort >"$out/windows.tests"
# The dialogs are not built for Windows: their programs count as a whole.
while read -r program _; do
  grep -q "/$(basename "$program")\.exe" "$programs" || {
    grep -q "^program $(basename "$program") " windows/one_system_tests.txt ||
      die "$(basename "$program") is not built for Windows, and windows/one_system_tests.txt does not say why"
    continue
  }
  "$program" --gtest_list_tests | test_names || die "$program does not list its tests"
done <build/native/test_programs.txt | sort >"$out/native.tests"
comm -23 "$out/native.tests" "$out/windows.tests" >"$out/native.alone"
comm -13 "$out/native.tests" "$out/windows.tests" >"$out/windows.alone"
count() { wc -l <"$out/$1"; }
say "$(count native.tests) tests natively, $(count windows.tests) on Windows:" \
  "$(comm -12 "$out/native.tests" "$out/windows.tests" | wc -l) on both," \
  "$(count native.alone) on Linux alone, $(count windows.alone) on Windows alone"

# Every test of one system has a line, and every line such a test.
unequal=0
for system in native windows; do
  sed -nE "s/^$system +([^ ]+) .*/\1/p" windows/one_system_tests.txt >"$out/$system.excused"
  : >"$out/$system.covered"
  while read -r pattern; do
    regex="^$(sed 's/[.]/\\./g; s/[*]/.*/g' <<<"$pattern")\$"
    grep -E "$regex" "$out/$system.alone" >>"$out/$system.covered" || {
      say "windows/one_system_tests.txt names $pattern, which is no test of this system alone" >&2
      unequal=1
    }
    ! grep -qE "$regex" <(comm -12 "$out/native.tests" "$out/windows.tests") || {
      say "windows/one_system_tests.txt names $pattern, and such a test runs on both" >&2
      unequal=1
    }
  done <"$out/$system.excused"
  sort -u "$out/$system.covered" | comm -23 "$out/$system.alone" - >"$out/$system.missing"
  [[ ! -s "$out/$system.missing" ]] || {
    cat "$out/$system.missing" >&2
    say "the tests above are on one system alone ($system), and windows/one_system_tests.txt does not say why" >&2
    unequal=1
  }
done
grep -v '^#' windows/one_system_tests.txt

all="$(sum "$passed" "$out"/*.log)"
[[ "$filter" != "*" ]] || ((all == $(count windows.tests))) || {
  say "$all tests passed of $(count windows.tests)" >&2
  unequal=1
}
refusals='^([0-9]+) refusals$'
build/native/tests/refusals/tests_refusals_test --gtest_brief=1 --gtest_filter="$filter" >"$out/native-refusals" ||
  die "the refusals failed natively"
natively="$(sum "$refusals" "$out/native-refusals")"
under_wine="$(sum "$refusals" "$out"/tests_refusals_test.*.log)"
say "the host refused $natively times natively, $under_wine times under Wine"
((natively == under_wine)) || unequal=1
((natively > 0)) || [[ "$filter" != "*" ]] || { say "no refusal was counted" >&2; unequal=1; }
((${#failed[@]} == 0)) || die "failed: ${failed[*]}"
((all > 0)) || die "no test matches $filter"
((unequal == 0)) || die "the two systems are not equal, as said above"
say "everything passed: $all tests"
