#!/usr/bin/env bash
# check_install.sh SOURCES BUILD COMPANY SCRATCH C++COMPILER: the build is installed, the installed tree is moved, and programs
# outside the tree are built with it, by the CMake package and by pkg-config, and run. COMPANY is 1 when the company
# library was built.
set -euo pipefail
sources=$1 build=$2 company=$3 scratch=$4 compiler=$5
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

# The programs find the libraries beside themselves, wherever the tree has been put.
for program in "$tree"/bin/*; do
  [[ -e $program ]] || continue
  QT_QPA_PLATFORM=offscreen "$program" --help >/dev/null || fail "$program does not start"
done
[[ -z $(ldd "$tree"/bin/* 2>/dev/null | grep 'not found') ]] || fail "a library is not found"
