#!/usr/bin/env bash
# check_hardening.sh CONFIG FILE...: each program and library has read-only relocations bound at its start, no stack that runs,
# no absolute path to look for libraries in; a program is loaded at any address. In a release build its code also checks its
# stack frames, its buffers and its containers.
set -euo pipefail
config=$1
shift
all=
for file in "$@"; do
  lack() { echo "$file: $1"; exit 1; }
  header=$(readelf -hW "$file")
  segments=$(readelf -lW "$file")
  dynamic=$(readelf -dW "$file")
  grep -q 'Type:.*DYN' <<<"$header" || lack "is loaded at a fixed address"
  if grep -q INTERP <<<"$segments"; then grep -q 'FLAGS_1.*PIE' <<<"$dynamic" || lack "is no position-independent program"; fi
  grep -q GNU_RELRO <<<"$segments" || lack "has relocations that stay writable"
  grep -qE 'BIND_NOW|FLAGS_1.*NOW' <<<"$dynamic" || lack "binds its functions late"
  grep -q 'GNU_STACK.* RW ' <<<"$segments" || lack "has a stack that runs"
  paths=$(sed -n 's/.*(\(RUNPATH\|RPATH\)).*\[\(.*\)\]/\2/p' <<<"$dynamic" | tr ':' '\n')
  while read -r path; do
    [[ -z $path || $path == '$ORIGIN'* ]] || lack "looks for libraries in $path"
  done <<<"$paths"
  [[ $config == Release ]] || continue
  symbols=$(readelf --dyn-syms -W "$file")
  all+=$symbols
  grep -q '__stack_chk_fail' <<<"$symbols" || lack "does not guard its stack frames"
  # A small program may use no container that can be checked.
  [[ $(basename "$file") != lib* ]] || grep -q '__glibcxx_assert_fail' <<<"$symbols" || lack "does not check its containers"
done
# Not every file has a call that can be checked; among all of them there are many.
[[ $config != Release ]] || grep -qE '__(memcpy|memmove|memset|s?n?printf|vsnprintf|read|strncpy|strcpy)_chk' <<<"$all" ||
  { echo "no buffer is checked"; exit 1; }
