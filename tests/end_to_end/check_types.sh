#!/usr/bin/env bash
# check_types.sh SOURCES: no two headers define classes of one name. All of them share one namespace and meet in the programs,
# where the linker would take the inline functions of one for those of the other without a word.
set -euo pipefail
cd "$1"
twice=$(grep -rhoE --include='*.h' '^(struct|class) [A-Za-z_0-9]+( final)?( :|:| \{)' host module company desktop include |
  sed -E 's/^(struct|class) ([A-Za-z_0-9]+).*/\2/' | sort | uniq -d)
[[ -z $twice ]] || { echo "defined more than once:"; echo "$twice"; exit 1; }
