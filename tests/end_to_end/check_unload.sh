#!/usr/bin/env bash
# check_unload.sh PROGRAM HOST LIBRARY...: a hundred times over, the libraries are loaded, show the stock card and leave nothing
# behind. In the sanitizer build the leak checker looks as well.
set -euo pipefail
program=$1 host=$2
shift 2
times=100
shown=$("$program" "$times" "$host" "$host" "$@") || { echo "$shown" | tail -20; exit 1; }
cards=$(grep -cF "مقدار باقیمانده: 20" <<<"$shown") || true
[[ $cards == "$times" ]] || { echo "the card was shown $cards times"; exit 1; }
# A symbol that is to be the same in the whole process keeps its library in memory.
for library in "$@"; do
  unique=$(readelf --dyn-syms -W "$library" | awk '$5 == "UNIQUE" && $7 != "UND" {print $8}' | c++filt)
  [[ -z $unique ]] || { printf '%s keeps itself in memory by:\n%s\n' "$library" "$unique"; exit 1; }
done
