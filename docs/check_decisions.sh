#!/usr/bin/env bash
# Every test that decisions.md names exists.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
missing=0
# shellcheck disable=SC2016  # the quotes are those of the document
while IFS=. read -r suite name; do
  git grep -qE "TEST(_F|_P)?\(\s*$suite, $name\)" -- '*_test.cpp' || {
    printf 'docs/decisions.md names a test that is not there: %s.%s\n' "$suite" "$name" >&2
    missing=1
  }
done < <(grep -oE '`[A-Z][A-Za-z0-9]+\.[A-Za-z][A-Za-z0-9]+`' docs/decisions.md | tr -d '`')
# shellcheck disable=SC2016
while IFS=: read -r file title; do
  grep -qF "test(\"${title# }\"" "tests/scripts/$file" || {
    printf 'docs/decisions.md names a test that is not there: %s:%s\n' "$file" "$title" >&2
    missing=1
  }
done < <(grep -oE '`[a-z_]+\.mjs: [^`]+`' docs/decisions.md | tr -d '`')
exit "$missing"
