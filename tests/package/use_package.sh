#!/usr/bin/env bash
# use_package.sh BUILD WORK CONSUMER COMPILER
set -euo pipefail
build=$1 work=$2 consumer=$3 compiler=$4
rm -rf "$work/prefix" "$work/with-cmake" "$work/with-pkgconfig"
cmake --install "$build" --prefix "$work/prefix" >/dev/null

cmake -S "$consumer" -B "$work/with-cmake" -G Ninja -DCMAKE_CXX_COMPILER="$compiler" \
    -DCMAKE_PREFIX_PATH="$work/prefix" >/dev/null
cmake --build "$work/with-cmake" -- --quiet
"$work/with-cmake/consumer"

# The file finds its tree wherever that was installed.
PKG_CONFIG_PATH=$(dirname "$(find "$work/prefix" -name qxmix.pc)")
export PKG_CONFIG_PATH
# shellcheck disable=SC2046
"$compiler" -std=c++17 "$consumer/consumer.cpp" -o "$work/with-pkgconfig" \
    $(pkg-config --cflags --libs qxmix)
"$work/with-pkgconfig"
echo "the installed package serves a host"
