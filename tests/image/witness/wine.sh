# shellcheck shell=bash
# Runs programs in 32-bit Wine: the system's, or that of a folder with a 32-bit Debian.
#
# QXMIX_WINE_ROOT names such a folder; make-wine-root makes one, and build/wine-root is found by
# itself. Where there is no Wine, the script that reads this ends with 77 and the reason.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
project=$(cd "$here/../../.." && pwd)
root=${QXMIX_WINE_ROOT:-}
if [ -z "$root" ] && [ -d "$project/build/wine-root" ]; then
    root=$project/build/wine-root
fi

skip() {
    echo "SKIPPED: $1"
    exit 77
}

command -v i686-w64-mingw32-g++ >/dev/null || skip "g++-mingw-w64-i686-win32 is not installed"
if [ -n "$root" ]; then
    [ -e "$root/usr/bin/wine" ] || [ -L "$root/usr/bin/wine" ] ||
        skip "there is no Wine in $root (QXMIX_WINE_ROOT)"
    unshare -m true 2>/dev/null || skip "only root can enter $root (QXMIX_WINE_ROOT)"
else
    command -v wine >/dev/null || skip "no 32-bit Wine (wine32:i386, or make-wine-root)"
fi

# What a program sees of this folder starts where the other root does.
work=$(mktemp -d "${root%/}/tmp/qxmix-wine-XXXXXX")
inside=${work#"${root%/}"}

# Runs a command where Wine is; what Wine itself has to say goes to a file.
in_wine() {
    local command=(env -C "$inside" WINEDEBUG=-all WINEARCH=win32 "WINEPREFIX=$inside/prefix"
        "HOME=$inside" "TMPDIR=$inside" WINEDLLOVERRIDES="mscoree,mshtml=" DISPLAY= "$@")
    if [ -n "$root" ]; then
        # Wine looks for its parts through /proc; the mount ends with the program.
        # shellcheck disable=SC2016  # these are the inner shell's arguments
        unshare -m sh -c 'mount -t proc proc "$0/proc" && exec chroot "$0" "$@"' "$root" \
            "${command[@]}" 2>"$work/noise"
    else
        "${command[@]}" 2>"$work/noise"
    fi
}
trap 'in_wine wineserver -k || true; rm -rf "$work"' EXIT

# Runs a program of the folder. Only its own last word "ok" counts: Wine may end with 0 whatever
# happened.
run_program() {
    local status=0
    in_wine wine "$@" >"$work/said" || status=$?
    tr -d '\r' <"$work/said" >"$work/lines"
    [ "$status" -eq 0 ] && grep -qx ok "$work/lines"
}

# The same for a program that has to run.
expect_program() {
    run_program "$@" || {
        echo "$1 in Wine:"
        cat "$work/lines"
        return 1
    }
}

i686-w64-mingw32-g++ -O2 -shared -static -s -o "$work/MSXFS.dll" \
    "$project"/tools/xfsmanager/XfsManager.{cpp,def} -Wl,--enable-stdcall-fixup

# A Wine without its 32-bit part cannot run the simplest program, and ends with 0.
printf '#include <cstdio>\nint main() { std::puts("ok"); }\n' >"$work/probe.cpp"
i686-w64-mingw32-g++ -static -o "$work/probe.exe" "$work/probe.cpp"
run_program probe.exe || skip "this Wine runs no 32-bit programs"
