#!/usr/bin/env bash
# Runs the Windows build's test programs under Wine in a fresh prefix, and compares their tests with the native build's:
# every test runs on both, or windows/native_only_tests.txt says why not.
# usage: windows/run_tests.sh [FILTER]
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

readonly out="$PWD/build/windows-test"
readonly filter="${1-*}"
readonly wine=/usr/lib/wine/wine64
export WINEPREFIX="$out/prefix" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" DISPLAY=

say() { printf '== %s\n' "$*"; }

# Which tests ran natively or under Wine, from the lists that --gtest_list_tests prints.
list_tests() {
  tr -d '\r' | awk '/^[^ ].*\.( |$)/ { suite = $1; next } /^  / { print suite $1 }' | sort
}

rm -rf "$out"
mkdir -p "$out"
say "windows-test: making a prefix"
"$wine" wineboot --init >"$out/prefix.log" 2>&1 || { tail -n 20 "$out/prefix.log" >&2; exit 1; }

failed=0
while read -r program; do
  name="$(basename "$program" .exe)"
  # Paths that begin with a slash are on the drive of the current folder.
  (cd "$out" && timeout 600 "$wine" "$program" --gtest_brief=1 --gtest_filter="$filter" --gtest_color=no) >"$out/$name.log" 2>&1 </dev/null || {
    failed=$((failed + 1))
    tr -d '\r' <"$out/$name.log" | tail -n 60
    say "windows-test: $name failed"
  }
  (cd "$out" && "$wine" "$program" --gtest_list_tests) 2>/dev/null </dev/null | list_tests >"$out/$name.tests"
  "$(find build/native -name "$name" -type f -perm -u+x | head -n 1)" --gtest_list_tests | list_tests >"$out/$name.native"
  awk -v program="$name" '/^\[  PASSED  \]/ { passed = $4 } /^\[ RUN|^\[==========\] [0-9]+ test.* ran/ { ran = $2 }
    END { printf "%-40s %5d ran, %5d passed\n", program, ran, passed }' <(tr -d '\r' <"$out/$name.log")
done <build/windows/test_programs.txt

sort "$out"/*.tests >"$out/all.tests"
sort "$out"/*.native >"$out/all.native"
sed -n 's/^\([^ #]*\) .*/\1/p' windows/native_only_tests.txt | sort >"$out/excused"
comm -23 "$out/all.native" "$out/all.tests" >"$out/native-only"
comm -13 "$out/all.native" "$out/all.tests" >"$out/windows-only"
say "windows-test: $(wc -l <"$out/all.native") tests natively, $(wc -l <"$out/all.tests") on Windows:" \
  "$(comm -12 "$out/all.native" "$out/all.tests" | wc -l) on both, $(wc -l <"$out/windows-only") on Windows alone"
grep -v '^#' windows/native_only_tests.txt
diff "$out/excused" "$out/native-only" >"$out/difference" || {
  cat "$out/difference" >&2
  say "windows-test: these tests do not run on Windows (>), or do though windows/native_only_tests.txt has them (<)" >&2
  exit 1
}
((failed == 0)) || { say "windows-test: $failed programs failed" >&2; exit 1; }
say "windows-test: everything passed"
