#!/usr/bin/env bash
# check_needed.sh LIBRARY: it needs no shared library beyond the host packages and the C++ runtime.
set -euo pipefail
needed=$(readelf -d "$1" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p')
grep -q '^libgoods_host' <<<"$needed" || { echo "the host packages are not among: $needed"; exit 1; }
others=$(grep -vE '^(libgoods_host|libstdc\+\+|libgcc_s|libc|libm|ld-linux)' <<<"$needed" || true)
[[ -z $others ]] || { echo "needs more than it may: $others"; exit 1; }
echo "needs: $needed"
