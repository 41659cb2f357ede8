#!/usr/bin/env bash
# check_desktop_exports.sh LIBRARY HEADER: the library exports the functions that its header declares, and nothing else.
set -euo pipefail
# What the standard library's headers define, and libraries that this one is linked with have too, stays visible: its type
# information, and without optimizations its constants.
exported=$(nm -D --defined-only "$1" | awk '{print $3}' | grep -vE '^_Z(T[IS]|ZN)?St' | sort)
declared=$(grep -oP '^GOODS_DESKTOP_EXPORT [^(]*\bGoodsDesktop_\w+(?=\()' "$2" | grep -oP 'GoodsDesktop_\w+$' | sort)
[[ -n $declared ]] || { echo "no function in $2"; exit 1; }
diff <(echo "$declared") <(echo "$exported") || { echo "(< declared, > exported)"; exit 1; }
# No program that it is linked into may be looked up for C++ names, and it is found by its version.
readelf -dW "$1" | grep -qE 'SONAME.*libgoods_desktop\.so\.[0-9]+\]' || { echo "no version in its name"; exit 1; }
