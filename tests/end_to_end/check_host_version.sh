#!/usr/bin/env bash
# check_host_version.sh COMPILER SOURCES HOST_LIBRARY MODULE SCRATCH: a host that is compiled after a header of the host
# packages has changed, with libraries from before, is refused with a sentence; with the unchanged headers it attaches.
set -euo pipefail
compiler=$1 sources=$2 host_library=$3 module=$4 scratch=$5
rm -rf "$scratch" && mkdir -p "$scratch"

cat >"$scratch/host.cpp" <<'PROGRAM'
#include <cstdio>

#include "goods_transaction_qrt.h"

int main() {
  char notReached = 0;  // only a pointer that is not null; nothing is called on it
  const auto attached = Goods_AttachHost(GOODS_HOST_VERSION, reinterpret_cast<goods_host*>(&notReached));
  std::printf("%d %s\n", static_cast<int>(attached), Goods_AttachProblem());
}
PROGRAM

answer() {  # of a host compiled with the headers of folder $1
  cmake -DROOT="$1/host" -DOUTPUTS="$1/goods_host_version.h" -P "$sources/cmake/host_version.cmake"
  "$compiler" -std=c++20 -I"$1" -I"$1/include" "$scratch/host.cpp" "$module" "$host_library" \
    -Wl,-rpath,"$(dirname "$module")" -Wl,-rpath,"$(dirname "$host_library")" -o "$1/host_program"
  "$1/host_program"
}

for side in same changed; do
  mkdir -p "$scratch/$side"
  cp -r "$sources/host" "$sources/include" "$scratch/$side/"
done
echo "// One more line." >>"$scratch/changed/host/data/query.h"

[[ $(answer "$scratch/same") == "1 " ]] || { echo "a matching host is refused"; exit 1; }
refusal=$(answer "$scratch/changed")
echo "$refusal"
grep -q '^0 کتابخانه گزارش‌ها و برنامه برای نسخه‌های متفاوتی .* هر دو را از یک نسخه بسازید\.$' <<<"$refusal"
