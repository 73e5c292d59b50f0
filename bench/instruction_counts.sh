#!/usr/bin/env bash
# Counts the module's instructions for a small frame of each job and compares them with instruction_counts.txt: a job
# that takes over a tenth more fails. Counts are the same on a busy machine as on a quiet one, which times are not.
# With --accept the counts are written down instead. Usage: instruction_counts.sh FRAME_BENCH [--accept]
set -euo pipefail
bench=$1
figures="$(dirname "${BASH_SOURCE[0]}")/instruction_counts.txt"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT

# count JOB FORMAT: of two frames, with what the module does before and after them.
count() {
  valgrind --tool=callgrind --callgrind-out-file="$work/out" "$bench" --alone --frames 2 --sizes 320x180 --jobs "$1" \
    --formats "$2" >"$work/log" 2>&1 || { cat "$work/log" >&2; exit 1; }
  callgrind_annotate --threshold=100 "$work/out" | tr -d ',' |
    awk '/Quiltor\.so\]/ { sum += $1 } END { if (!sum) exit 1; printf "%.0f\n", sum }' || {
    echo "instruction counts: no instruction of Quiltor.so was counted for $1 $2" >&2
    exit 1
  }
}

jobs=("J1 u8" "J2 u8" "J3 u8" "J4a u8" "J4b u8" "J2 u16" "J2 f32")
if [[ "${2-}" == --accept ]]; then
  for job in "${jobs[@]}"; do
    # shellcheck disable=SC2086  # two words
    now="$(count $job)"
    printf '%s %s\n' "$job" "$now"
  done >"$work/figures"
  mv "$work/figures" "$figures"
  exit 0
fi

failed=0
for job in "${jobs[@]}"; do
  kept="$(sed -nE "s/^$job ([1-9][0-9]*)$/\1/p" "$figures")"
  [[ -n "$kept" ]] || {
    echo "instruction counts: $figures holds no figure of $job; write one with: ./run counts --accept" >&2
    failed=1
    continue
  }
  # shellcheck disable=SC2086  # two words
  now="$(count $job)"
  percent=$(((now - kept) * 100 / kept))
  if ((now * 10 > kept * 11)); then
    echo "instruction counts: $job takes $now instructions, $percent % over the kept $kept; if that is meant," \
      "renew the figures with: ./run counts --accept" >&2
    failed=1
  else
    echo "instruction counts: $job takes $now, $percent % beside the kept figure"
  fi
done
exit "$failed"
