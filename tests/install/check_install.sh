#!/usr/bin/env bash
# check_install.sh SOURCES BUILD COMPANY DESKTOP SCRATCH C++COMPILER: the build is installed, the installed tree is moved, and programs
# outside the tree are built with it, by the CMake package and by pkg-config, and run. COMPANY and DESKTOP are 1 when those
# libraries were built.
set -euo pipefail
sources=$1 build=$2 company=$3 desktop=$4 scratch=$5 compiler=$6
here=$sources/tests/install
fail() { echo "$1"; exit 1; }
rm -rf "$scratch" && mkdir -p "$scratch"

cmake --install "$build" --prefix "$scratch/first" >/dev/null
mv "$scratch/first" "$scratch/moved"
tree=$scratch/moved

# Nothing of the machine that it was built on stays in what is installed as text.
absolute=$(grep -rlF -e "$build" -e "$sources" -e "$scratch" "$tree" --include='*.cmake' --include='*.pc' --include='*.h' || true)
[[ -z $absolute ]] || fail "absolute paths in $absolute"

shows_the_card() { [[ $("$1") == *"مقدار باقیمانده: 20"* ]] || fail "$1 does not show the stock card"; }

cmake -S "$here/package" -B "$scratch/package" -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_PREFIX_PATH="$tree" -DWITH_COMPANY="$company" \
  -DWITH_DESKTOP="$desktop" -DDESKTOP_SOURCE="$sources/examples/desktop_c/main.c" \
  -DHOST_SOURCE="$sources/examples/minimal_host/main.cpp" >/dev/null
cmake --build "$scratch/package" >/dev/null
shows_the_card "$scratch/package/host_program"
if [[ $company == 1 ]]; then
  "$scratch/package/company_program" "$here/check_install.sh" | grep -qP '\p{Arabic}' || fail "a script is taken for a company"
fi

PKG_CONFIG_PATH=$(dirname "$(find "$tree" -name goods-host.pc)")
export PKG_CONFIG_PATH
read -ra flags < <(pkg-config --cflags --libs goods-host goods-module)
library_folder=$(pkg-config --variable=libdir goods-host)
"$compiler" -std=c++20 "$sources/examples/minimal_host/main.cpp" "${flags[@]}" -Wl,-rpath,"$library_folder" -o "$scratch/by_pkg_config"
shows_the_card "$scratch/by_pkg_config"

# The desktop's library is found, starts, and finds the reports beside itself: what it says of a company that is not there
# comes after that.
if [[ $desktop == 1 ]]; then
  says_no_screen() {
    local said
    ! said=$(env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM "$1" 2>&1) || fail "$1 finds a screen"
    [[ $said == *"create: صفحه نمایشی پیدا نشد."* ]] || fail "$1 says $said"
  }
  says_no_screen "$scratch/package/desktop_program"
  read -ra flags < <(pkg-config --cflags --libs goods-desktop)
  "${CC:-cc}" "$sources/examples/desktop_c/main.c" "${flags[@]}" -Wl,-rpath,"$library_folder" -o "$scratch/desktop_by_pkg_config"
  says_no_screen "$scratch/desktop_by_pkg_config"
  said=$(HOME=$scratch XDG_CONFIG_HOME=$scratch QT_QPA_PLATFORM=offscreen python3 "$sources/examples/desktop_python/reports.py" \
    "$library_folder/libgoods_desktop.so" file:/nowhere Open_GoodKardex 2>&1) && fail "a company that is not there is opened"
  [[ $said == *"/nowhere"* ]] || fail "the installed desktop says $said"
fi

# The programs find the libraries beside themselves, wherever the tree has been put.
for program in "$tree"/bin/*; do
  [[ -e $program ]] || continue
  QT_QPA_PLATFORM=offscreen "$program" --help >/dev/null || fail "$program does not start"
done
[[ -z $(ldd "$tree"/bin/* 2>/dev/null | grep 'not found') ]] || fail "a library is not found"
