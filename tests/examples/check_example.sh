#!/usr/bin/env bash
# check_example.sh LANGUAGE SCRATCH: runs an example of examples/desktop_LANGUAGE without a screen, with a user who takes steps,
# and reads what it prints. The environment (CMakeLists.txt) says where everything is.
set -euo pipefail
language=$1 scratch=$2
rm -rf "$scratch" && mkdir -p "$scratch/home"
export HOME=$scratch/home XDG_CONFIG_HOME=$scratch/home QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
export QT_PLUGIN_PATH=$PLUGINS QT_QPA_GENERIC_PLUGINS=goods_driver
company=$scratch/company.goods

# plays STEPS COMMAND...: what the program prints is in $shown.
plays() {
  local steps=$1 code=0
  shift
  shown=$(GOODS_DRIVE=$steps timeout 100 "$@" 2>&1) || code=$?
  [[ $code == 0 ]] || { printf '%s\nends with %s\n' "$shown" "$code"; exit 1; }
}
says() { grep -qF -- "$1" <<<"$shown" || { printf 'missing: %s\nin:\n%s\n' "$1" "$shown"; exit 1; }; }
says_not() { ! grep -qF -- "$1" <<<"$shown" || { printf 'not wanted: %s\nin:\n%s\n' "$1" "$shown"; exit 1; }; }
make_company() { "$COMPANY_TOOL" create --goods 40 --stores 3 --movements 1000 --quiet "$company" >/dev/null; }
# Something was painted: a picture of one colour is small.
painted() { [[ $(stat -c %s "$1") -gt 8000 ]] || { echo "nothing is painted in $1"; exit 1; }; }

case $language in
  c)
    plays "wait Kardex_FRM; picture $scratch/card.png; key F9; wait MessageDialog; trigger Accept; gone MessageDialog; close Kardex_FRM" "$C_PROGRAM"
    says "statement: Exec Kardex_Proc 12"
    says "right: part 509, permission 23"
    says "message: شما مجوز چاپ لیست"
    says "closed"
    painted "$scratch/card.png"
    # Where no window can be, it is told, and the program goes on.
    code=0
    shown=$(env -u QT_QPA_PLATFORM -u DISPLAY -u WAYLAND_DISPLAY "$C_PROGRAM" 2>&1) || code=$?
    [[ $code == 1 ]] || { echo "without a screen it ends with $code"; exit 1; }
    says "create: صفحه نمایشی پیدا نشد."
    ;;
  pascal)
    [[ -n ${FPC:-} ]] || { echo "no Free Pascal compiler"; exit 77; }
    cp "$EXAMPLES/desktop_pascal/stock_card.pas" "$scratch"
    (cd "$scratch" && "$FPC" -vew stock_card.pas >fpc.log) || { cat "$scratch/fpc.log"; exit 1; }
    make_company
    # The right to print is refused and told by the library, and F2 opens the program's own document.
    plays "wait Kardex_FRM; picture $scratch/card.png; key F9; wait MessageDialog; trigger Accept; gone MessageDialog; key F2; close Kardex_FRM" \
      "$scratch/stock_card" "$DESKTOP_LIBRARY" "$REPORT_LIBRARY" "$company" 1
    says "right: user 7, part 509, permission 23"
    grep -qE '^document: kind [0-9]+, number [0-9]+, mode 1$' <<<"$shown" || { printf 'no document in:\n%s\n' "$shown"; exit 1; }
    says "closed"
    painted "$scratch/card.png"
    ;;
  python)
    [[ -n ${PYTHON:-} ]] || { echo "no Python"; exit 77; }
    make_company
    program=("$PYTHON" "$EXAMPLES/desktop_python/reports.py" "$DESKTOP_LIBRARY" "file:$company")
    echo anbar >"$scratch/password"
    plays "wait GoodTransaction_FRM; picture $scratch/list.png; close GoodTransaction_FRM" "${program[@]}" Open_GoodAmountAsset anbar "$scratch/password"
    says "closed"
    painted "$scratch/list.png"
    # A right that is missing is told by the script, and nothing opens.
    echo guest >"$scratch/password"
    plays "" "${program[@]}" Open_GoodAmountAsset guest "$scratch/password"
    says "message: شما مجوز باز کردن گزارش"
    # Without a name the sign-in window is shown; given up, the script is told so.
    code=0
    shown=$(GOODS_DRIVE="wait SignIn_FRM; close SignIn_FRM" timeout 60 "${program[@]}" Open_GoodAmountAsset 2>&1) || code=$?
    [[ $code == 1 ]] || { echo "without a user it ends with $code"; exit 1; }
    says "کاربر وارد نشد."
    ;;
  qt)
    make_company
    echo admin >"$scratch/password"
    # A second report in a second tab; closing the window closes both.
    plays "wait Application; trigger Open_Kardex; wait Kardex_FRM; picture $scratch/card.png; trigger Open_GoodAmountAsset; wait GoodTransaction_FRM; picture $scratch/list.png; close Application; gone Application" \
      "$QT_PROGRAM" "file:$company" admin "$scratch/password" 1
    painted "$scratch/card.png"
    painted "$scratch/list.png"
    plays "wait Application; trigger Open_Kardex; wait Kardex_FRM; close Kardex_FRM; gone Kardex_FRM; trigger Open_Kardex; wait Kardex_FRM; close Application; gone Application" \
      "$QT_PROGRAM" "file:$company" admin "$scratch/password" 1
    says_not "driver:"
    ;;
esac
