#!/usr/bin/env bash
# check_names.sh REPOSITORY: what the documentation says of the project's own files and commands is there, and the
# ratios of the benchmarks follow from the figures beside them.
#   - a path that begins with a folder of the project's root exists, also inside of a block of commands;
#   - a source file's name alone, or behind the last folders of its path, is that of a file;
#   - no page holds the marks of a merge that was left half done;
#   - "./NAME" is a command of the root, bin/NAME and the names of programs are targets, presets are presets.
set -euo pipefail
cd "$1"
bad=0
wrong() { echo "$1: $2"; bad=1; }

mapfile -t pages < <(find . -name '*.md' -not -path './build/*' -not -path './out/*' | sed 's|^\./||' | sort)
files=$(find . -type f -not -path './build/*' -not -path './out/*' -not -path './.git/*' | sed 's|^\./||')
folders=$(find . -mindepth 1 -maxdepth 1 -type d -not -name '.*' -not -name build -not -name out -printf '%f|')
folders=${folders%|}

is_file() { grep -qE "(^|/)${1//./\\.}\$" <<<"$files"; }
is_target() {
  grep -rqE --include=CMakeLists.txt --include='*.cmake' "(^|[^a-zA-Z0-9_-])${1}([^a-zA-Z0-9_-]|\$)" . ||
    { [[ $1 == bench_company_* ]] && is_file "bench/company/${1#bench_company_}_bench.cpp"; }
}

for page in "${pages[@]}"; do
  ! grep -qE '^(<{7}|>{7}) ' "$page" || wrong "$page" "marks of a merge"
  # Words of code: those in backticks, and those of blocks (fenced, or four blanks in).
  words=$( { grep -oP '`\K[^`]+(?=`)' "$page" || true; awk '/^```/ { inside = !inside; next } inside || /^    /' "$page"; } |
    tr ' \t"(),;:' '\n' | sort -u)
  while IFS= read -r word; do
    case $word in
      '' | *['<>*{}$%~|=[\\']* | *://*) continue ;;
    esac
    if [[ $word =~ ^($folders)/ ]]; then
      [[ -e ${word%/} ]] || wrong "$page" "no file or folder $word"
    elif [[ $word =~ ^\./([a-z-]+)$ ]]; then
      [[ -x $word ]] || wrong "$page" "no command $word"
    elif [[ $word =~ ^build/[a-z]+/bin/([a-z_-]+)$ || $word =~ ^bin/([a-z_-]+)$ ]]; then
      is_target "${BASH_REMATCH[1]}" || wrong "$page" "no program $word"
    elif [[ $word =~ ^(bench_[a-z_]+|goods-[a-z]+)$ ]]; then
      is_target "$word" || wrong "$page" "no program $word"
    elif [[ $word =~ ^[A-Za-z_/-]+\.(h|cpp|sql|sh|cmake)$ ]]; then
      is_file "$word" || wrong "$page" "no file $word"
    fi
  done <<<"$words"
  while IFS= read -r preset; do
    grep -q "\"name\": \"$preset\"" CMakePresets.json || wrong "$page" "no preset $preset"
  done < <(grep -oP -- '--preset \K[a-z]+' "$page" | sort -u || true)
done

# | ... | measured | baseline: figure | ratio |, where each cell has one figure
awk -F'|' '
  function abs(x) { return x < 0 ? -x : x }
  NF >= 7 && $4 ~ /^ *[0-9.]+( [A-Za-z\/]+)? *$/ && $5 ~ /: [0-9.]+( [A-Za-z\/]+)? *$/ && $6 ~ /^ *[0-9.]+ *$/ {
    measured = $4 + 0; ratio = $6; gsub(/ /, "", ratio)
    baseline = $5; sub(/.*: /, "", baseline); baseline += 0
    decimals = index(ratio, ".") ? length(ratio) - index(ratio, ".") : 0
    # The figures themselves are rounded, to three digits.
    slack = 0.51 * 10 ^ -decimals + 0.011 * ratio
    if (abs(measured / baseline - ratio) > slack) {
      printf "bench/README.md:%d: %s beside %s is not %s\n", FNR, measured, baseline, ratio; found = 1
    }
  }
  END { exit found }' bench/README.md || bad=1
exit $bad
