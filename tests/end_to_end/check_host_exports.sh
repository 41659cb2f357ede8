#!/usr/bin/env bash
# check_host_exports.sh LIBRARY: what it exports is of the namespace goods.
set -euo pipefail
symbols=$(nm -DC --defined-only "$1")
[[ $(grep -c ' goods::' <<<"$symbols") -gt 100 ]] || { echo "the host packages are not exported"; exit 1; }
own='^(typeinfo name for |typeinfo for |vtable for |VTT for |construction vtable for |guard variable for |(non-)?virtual thunk to )?goods::'
others=$(sed -E 's/^[0-9a-f]* [A-Za-z] //' <<<"$symbols" | grep -vE "$own" || true)
[[ -z $others ]] || { printf 'exports besides:\n%s\n' "$others" | head -20; exit 1; }
