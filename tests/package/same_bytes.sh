#!/usr/bin/env bash
# same_bytes.sh SOURCE BUILD WORK LIBRARY... -- OPTION...
# Builds the libraries once more, in another folder, with the options given: they have the same bytes.
set -euo pipefail
source=$1 build=$2 work=$3
shift 3
libraries=()
while [ "$1" != -- ]; do
    libraries+=("$1")
    shift
done
shift
other="$work/pä th (1)"
rm -rf "$work"
mkdir -p "$other"
for part in CMakeLists.txt cmake include src; do
    [ ! -e "$source/$part" ] || cp -R "$source/$part" "$other/"
done
{
    cmake -S "$other" -B "$other/build" -G Ninja -DBUILD_TESTING=OFF -DQXMIX_TOOLS=OFF "$@" &&
        cmake --build "$other/build" -- --quiet
} >"$work/log" 2>&1 || { cat "$work/log"; exit 1; }
for library in "${libraries[@]}"; do
    cmp "$library" "$other/build/${library#"$build/"}"
done
echo "the same bytes in another folder"
