#!/usr/bin/env bash
# check_stopping.sh GOODS_COMPANY FOLDER: long work that is stopped by Ctrl+C, or whose reader or terminal goes away,
# leaves what was there before or the whole result, nothing half, and ends with the code that the help names.
set -euo pipefail
program=$1
folder=$2
rm -rf "$folder"
mkdir -p "$folder"
cd "$folder"
bad=0
wrong() { echo "$1"; bad=1; }
echo "a long password" >password

"$program" create base.goods --goods 100 --movements 12000 --quiet
"$program" export base.goods --to files --quiet
mkdir more
printf 'date,good,store,movement type,quantity,unit price,document number\n1404/12/29,1,1,purchase,5,1000,900000001\n' >more/movements.csv
before=$(ls -A)

whole() { "$program" check "$1" --quiet >/dev/null || wrong "$2: $1 is not whole"; }

# stop SIGNAL SECONDS RESULT COMMAND...: stops the command after that time. A program that a busy machine has not brought to its work
# by then ends by the signal itself; it gets more time.
stops=0
stop() {
  local signal=$1 seconds=$2 result=$3 code=0
  shift 3
  for seconds in "$seconds" 1 5; do
    code=0
    timeout --foreground --signal="$signal" --preserve-status "$seconds" "$program" "$@" >/dev/null 2>&1 || code=$?
    [[ $code == 129 || $code == 143 ]] || break
  done
  case $code in
    0) ;;
    130) stops=$((stops + 1)) ;;
    *) wrong "$signal after $seconds s of $1: code $code" ;;
  esac
  [[ $code == 0 || $1 == add || ! -e $result ]] || wrong "$signal after $seconds s of $1 left $result"
  case $1 in
    create | import | backup) [[ ! -e $result ]] || whole "$result" "$signal after $seconds s of $1" ;;
    add) whole "$result" "$signal after $seconds s of $1" ;;
  esac
  rm -rf "$result"
  [[ $(ls -A) == "$before" ]] || wrong "$signal after $seconds s of $1 left: $(ls -A | tr '\n' ' ')"
}

for signal in INT TERM HUP; do
  for seconds in 0.15; do
    stop $signal $seconds made.goods create made.goods --goods 100 --movements 12000
    stop $signal $seconds made.goods import made.goods --from files --password-file password
    stop $signal $seconds out export base.goods --to out
    stop $signal $seconds copy.goods backup base.goods copy.goods
    cp base.goods grown.goods
    stop $signal $seconds grown.goods add grown.goods --from more
  done
done
((stops > 0)) || wrong "nothing was stopped"

# Whoever reads the output has gone: the work goes on.
code=0
{ "$program" create made.goods --goods 100 --movements 12000 2>&1 || echo "$?" >code; } | true
[[ ! -e code ]] || wrong "a closed pipe ended create with $(cat code)"
whole made.goods "a closed pipe"
exit $bad
