#!/usr/bin/env bash
# check_minimal_host.sh PROGRAM SOURCE: the program prints the made-up row as the card shows it, and its source has
# fewer than 100 lines.
set -euo pipefail
shown=$("$1")
for line in "تاریخ: 1402/01/05" "مقدار باقیمانده: 20"; do
  grep -qxF "$line" <<<"$shown" || { printf 'missing: %s\nin:\n%s\n' "$line" "$shown"; exit 1; }
done
lines=$(wc -l <"$2")
[[ $lines -lt 100 ]] || { echo "$2 has $lines lines"; exit 1; }
