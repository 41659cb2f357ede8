#!/usr/bin/env bash
# check_exports.sh LIBRARY LIST: the library's defined dynamic symbols are those of the list.
set -euo pipefail
diff -u <(sort "$2") <(nm -D --defined-only "$1" | awk '{print $3}' | sort) && echo "exports as listed"
