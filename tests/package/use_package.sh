#!/usr/bin/env bash
# use_package.sh BUILD WORK CONSUMER COMPILER
set -euo pipefail
umask 077  # what a careful user takes from all new files; the package is for everybody
build=$1 work=$2 consumer=$3 compiler=$4
rm -rf "$work/prefix" "$work/with-cmake" "$work/with-pkgconfig"
cmake --install "$build" --prefix "$work/prefix" >/dev/null
private=$(find "$work/prefix" -mindepth 1 \( ! -perm -a=r -o -type d ! -perm -a=x \))
[ -z "$private" ] || { echo "not for everybody: $private"; exit 1; }
headers=$(cd "$work/prefix/include/qxmix" && echo *)
[ "$headers" = "HostControl.h qxmix.h" ] || {
    echo "installed headers: $headers"
    exit 1
}

cmake -S "$consumer" -B "$work/with-cmake" -G Ninja -DCMAKE_CXX_COMPILER="$compiler" \
    -DCMAKE_PREFIX_PATH="$work/prefix" >/dev/null
cmake --build "$work/with-cmake" -- --quiet
"$work/with-cmake/consumer"

# The file finds its tree wherever that was installed.
PKG_CONFIG_PATH=$(dirname "$(find "$work/prefix" -name qxmix.pc)")
export PKG_CONFIG_PATH
# It puts a backslash before a space and before each byte beyond ASCII, and none before a bracket.
LC_ALL=C IFS=' ' read -a flags < <(pkg-config --cflags --libs qxmix)
"$compiler" -std=c++98 "$consumer/consumer.cpp" -o "$work/with-pkgconfig" "${flags[@]}"
"$work/with-pkgconfig"
echo "the installed package serves a host"
