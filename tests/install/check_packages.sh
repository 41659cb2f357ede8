#!/usr/bin/env bash
# check_packages.sh SOURCES BUILD SCRATCH: packages are made of what the build has made, installed in an empty root, tried and
# removed. Skipped, with a sentence, where Debian's tools for packages are not.
set -euo pipefail
sources=$1 build=$2 scratch=$3
for tool in dpkg dpkg-deb dpkg-shlibdeps cpack; do
  command -v $tool >/dev/null || { echo "There is no $tool: no packages are made."; exit 77; }
done
rm -rf "$scratch" && mkdir -p "$scratch"
cpack --config "$build/CPackConfig.cmake" -B "$scratch" -D 'CPACK_GOODS_COMPRESSION=-Zgzip;-z1' >"$scratch/log" 2>&1 ||
  { tail -30 "$scratch/log"; exit 1; }
"$sources/scripts/check-packages" "$scratch"
