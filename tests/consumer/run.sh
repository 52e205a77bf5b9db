#!/bin/sh
# Installs the build into a scratch folder, moves it, and builds hosts on it, one of them twice:
#   run.sh CMAKE BUILD PROJECT COMPILER [TOOLCHAIN]
set -eu
cmake=$1 build=$2 project=$3 compiler=$4 toolchain=${5:-}

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
"$cmake" --install "$build" --prefix "$scratch/first" >/dev/null
mv "$scratch/first" "$scratch/tree"    # nothing in it may remember where it was built

emulate=
if [ -n "$toolchain" ]; then
    emulate=$(dirname "$project")/../wine/run.sh
    export ZEK_WINE_BIN="$scratch/tree/bin"
fi
ZEK_HOME="$scratch/home"
export ZEK_HOME
mkdir "$ZEK_HOME"

# check PROGRAM ITS-MAKER WANTED
check() {
    got=$($emulate "$1")
    if [ "$got" != "$3" ]; then
        echo "The host built through $2 printed '$got' instead of '$3'." >&2
        exit 1
    fi
}
built() {
    ls "$scratch/build/$1" "$scratch/build/$1.exe" 2>/dev/null
}
wanted="1to9by2 15 17to20"

package=$(dirname "$(find "$scratch/tree" -name ZEK_libConfig.cmake)")
"$cmake" -S "$project" -B "$scratch/build" -G Ninja -DCMAKE_CXX_COMPILER="$compiler" \
    ${toolchain:+-DCMAKE_TOOLCHAIN_FILE="$toolchain"} -DZEK_lib_DIR="$package" >"$scratch/log" 2>&1 &&
    "$cmake" --build "$scratch/build" >>"$scratch/log" 2>&1 || { cat "$scratch/log" >&2; exit 1; }
check "$(built host)" CMake "$wanted"
check "$(built windowed)" CMake Understood

PKG_CONFIG_PATH=$(dirname "$(find "$scratch/tree" -name zek_lib.pc)")
export PKG_CONFIG_PATH
libdir=$(pkg-config --variable=libdir zek_lib)
# shellcheck disable=SC2046
"$compiler" $(pkg-config --cflags zek_lib) "$project/host.cpp" -o "$scratch/host.exe" \
    $(pkg-config --libs zek_lib) -Wl,-rpath,"$libdir"
check "$scratch/host.exe" pkg-config "$wanted"
echo "All hosts ran on the installed tree."
