#!/usr/bin/env bash
# check_subproject.sh SOURCES SCRATCH C++COMPILER: another project takes the sources as a part of its own, builds a host and
# runs it.
set -euo pipefail
sources=$1 scratch=$2 compiler=$3
# What an earlier run compiled is kept; everything else is configured anew.
rm -f "$scratch/CMakeCache.txt"
cmake -G Ninja -S "$sources/tests/install/subproject" -B "$scratch" -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG=-O0 \
  -DGOODS_UNITY=ON -DCMAKE_CXX_COMPILER="$compiler" -DGOODS_SOURCE="$sources" \
  -DHOST_SOURCE="$sources/examples/minimal_host/main.cpp" >/dev/null
cmake --build "$scratch" --target host_program >"$scratch/build.log" 2>&1 || { tail -30 "$scratch/build.log"; exit 1; }
[[ $("$scratch/host_program") == *"مقدار باقیمانده: 20"* ]] || { echo "the stock card is not shown"; exit 1; }
