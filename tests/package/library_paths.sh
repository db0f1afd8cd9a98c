#!/usr/bin/env bash
# library_paths.sh WORK COMPILER TOOL LIBRARY...
# What a build makes takes no library from the current folder; and the check of that sees whatever
# would.
set -euo pipefail
# shellcheck source=tests/package/own_folders_only.sh
source "$(dirname "$0")/own_folders_only.sh"
work=$1 compiler=$2 tool=$3
shift 2
fail() { echo "$1"; exit 1; }
rm -rf "$work"
mkdir -p "$work"

echo 'int main(void) { return 0; }' >"$work/program.c"
expect() {
    local verdict=$1 path=$2 found=accepted
    "$compiler" "$work/program.c" -o "$work/program" "-Wl,-rpath,$path"
    own_folders_only "$work/program" >/dev/null || found=refused
    [ "$found" = "$verdict" ] || fail "'$path' is $found"
}
# shellcheck disable=SC2016  # the loader's own word
{
    expect accepted '$ORIGIN'
    expect accepted '$ORIGIN/../lib:$ORIGIN'
    expect refused '$ORIGIN/../lib:'
    expect refused '$ORIGIN/../lib:::::'
    expect refused ':$ORIGIN/../lib'
    expect refused '$ORIGIN::$ORIGIN/../lib'
    expect refused '$ORIGIN/../lib:/usr/local/lib'
    expect refused '$ORIGIN/../lib:lib'
    expect refused '$ORIGINAL/lib'
}

own_folders_only "$@" || exit 1
# What lies in the current folder is no library at all: who took it would not start.
libraries=$(for file in "$@"; do readelf -d -W "$file"; done | sed -n 's/.*(NEEDED).*\[\(.*\)\]$/\1/p' | sort -u)
[ -n "$libraries" ] || fail "needs no library"
for library in $libraries; do
    echo "not a library" >"$work/$library"
done
cd "$work"
unset LD_LIBRARY_PATH
"$tool" --version >version || fail "the tool takes libraries from the current folder"
echo "nothing is taken from the current folder"
