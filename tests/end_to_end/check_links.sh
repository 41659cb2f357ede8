#!/usr/bin/env bash
# check_links.sh REPOSITORY: every link in its Markdown files that is no address leads to a file that is there.
set -euo pipefail
cd "$1"
bad=0
while IFS= read -r file; do
  while IFS= read -r target; do
    path=${target%%#*}
    [[ -z $path || $path == *://* ]] && continue
    full=$(dirname "$file")/$path
    [[ -e $full ]] || { echo "$file: nothing at $target"; bad=1; }
  done < <(grep -oP '\]\(\K[^)\s]+(?=\))' "$file" || true)
done < <(find . -name '*.md' -not -path './build/*' -not -path './out/*')
exit $bad
