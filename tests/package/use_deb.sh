#!/usr/bin/env bash
# use_deb.sh BUILD WORK
# Makes the Debian package of a build, unpacks it and uses what is in it.
set -euo pipefail
# shellcheck source=tests/package/own_folders_only.sh
source "$(dirname "$0")/own_folders_only.sh"
umask 077  # what a careful user takes from all new files; the package is for everybody
build=$1 work=$2
fail() { echo "$1"; exit 1; }
rm -rf "$work/deb"
mkdir -p "$work/deb"
# Names of folders are read in the letters of the locale.
LC_ALL=C.UTF-8 cpack --config "$build/CPackConfig.cmake" -B "$work/deb" >"$work/deb/log" 2>&1 ||
    { cat "$work/deb/log"; exit 1; }
package=$(echo "$work"/deb/*.deb)
[ -f "$package" ] || fail "no package, or several: $package"
[ "$(dpkg-deb -f "$package" Package)" = qxmix ] || fail "wrong name"
[ "$(dpkg-deb -f "$package" Architecture)" = "$(dpkg --print-architecture)" ] || fail "wrong architecture"
dpkg-deb -f "$package" Depends | grep -q 'libc6 (>= ' || fail "does not depend on libc6"

root=$work/deb/root
dpkg-deb -x "$package" "$root"
cd "$root/usr/share/doc/qxmix"
unset QXMIX_LIBRARY
tool=$root/usr/bin/qxmix
"$tool" --version | grep -q '^module V .* (libQXMIX.so)$' || fail "the tool does not find the library"
"$tool" mix examples/euro.json --amount 280 | grep -q '^PAID  280 of 280 EUR' || fail "mix"
{ "$tool" batch <examples/two.ndjson || [ $? -eq 2 ]; } | grep -c '"id":' | grep -qx 2 || fail "batch"
own_folders_only "$tool" "$root"/usr/lib/lib*.so || exit 1
for file in share/man/man1/qxmix.1 share/doc/qxmix/schema/answer.schema.json \
    share/doc/qxmix/docs/qxmix.md \
    include/qxmix/qxmix.h lib/pkgconfig/qxmix.pc lib/libqxmix_platform.so; do
    [ -s "$root/usr/$file" ] || fail "$file is missing"
done
for completion in bash:bash-completion/completions/qxmix zsh:zsh/site-functions/_qxmix \
    fish:fish/vendor_completions.d/qxmix.fish; do
    cmp <("$tool" completions "${completion%%:*}") "$root/usr/share/${completion#*:}"
done
# Only the tool is a program.
rights=$(dpkg-deb -c "$package" | awk '{ print $1, $6 }' | sort -u |
    grep -vE '^(drwxr-xr-x|-rw-r--r--) |^-rwxr-xr-x ./usr/bin/qxmix$' || true)
[ -z "$rights" ] || fail "rights of their own: $rights"
echo "the installed package answers"
