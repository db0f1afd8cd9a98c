#!/usr/bin/env bash
# arguments.sh SOURCE WORK
# What people type tells how it is used, and refuses what it does not know before it installs or
# builds anything. Run in a copy, with commands that only tell that they were called.
set -euo pipefail
source=$1 work=$2
failed=0
fail() {
    echo "$1"
    failed=1
}

rm -rf "$work"
copy="$work/pä th (1)"
mkdir -p "$copy/tests/image/witness" "$copy/tests/proofs" "$copy/tests/fuzz/corpus/any_request" \
    "$copy/tools" "$copy/src/mix" "$work/stubs"
cp -R "$source/scripts" "$copy/"
cp -R "$source/tools/mutate" "$copy/tools/"
cp "$source/tests/image/witness/make-wine-root" "$copy/tests/image/witness/"
touch "$copy/tests/proofs/residues.py"
git -C "$copy" init -q
cat >"$work/stubs/stub" <<END
#!/bin/sh
echo "\${0##*/} \$*" >>"$work/called"
exit 1
END
chmod +x "$work/stubs/stub"
for command in apt-get cmake cpack ctest dpkg-query g++ gcc mmdebstrap ninja sudo valgrind; do
    ln -s stub "$work/stubs/$command"
done
export PATH="$work/stubs:$PATH"
cd "$copy"

# What must not have happened by now.
expect_untouched() {
    [ ! -e "$work/called" ] || fail "$1: calls $(head -n 1 "$work/called")"
    rm -f "$work/called"
    [ ! -e build ] || fail "$1: writes to build"
}

# Asks a script for its help, which shows how it is called.
expect_help() {
    "$1" --help >"$work/out" 2>"$work/err" || fail "$1 --help: fails"
    [ ! -s "$work/err" ] || fail "$1 --help: $(cat "$work/err")"
    grep -q "^ *\(usage: \)\?\([a-z/]*/\)\?${1##*/}\( \|$\)" "$work/out" ||
        fail "$1 --help: does not show how it is called"
    ! grep -q '^#' "$work/out" || fail "$1 --help: shows comment signs"
    expect_untouched "$1 --help"
}

# Gives a script something unknown: it says so in one line and ends.
expect_refusal() {
    ! "$@" >"$work/out" 2>"$work/err" || fail "$*: is accepted"
    [ ! -s "$work/out" ] || fail "$*: prints $(head -n 1 "$work/out")"
    [ "$(wc -l <"$work/err")" -eq 1 ] || fail "$*: does not refuse in one line: $(cat "$work/err")"
    grep -q "^${1##*/}: .*unknown-word" "$work/err" || fail "$*: $(cat "$work/err")"
    expect_untouched "$*"
}

for script in scripts/* scripts/lib/*; do
    [ ! -f "$script" ] || [ ! -x "$script" ] || {
        expect_help "$script"
        expect_refusal "$script" --unknown-word
        expect_refusal "$script" unknown-word
    }
done
for script in tools/mutate/mutate tests/image/witness/make-wine-root; do
    expect_help "$script"
    expect_refusal "$script" --unknown-word
done
expect_refusal tools/mutate/mutate src/mix/unknown-word.cpp
expect_refusal tests/image/witness/make-wine-root folder unknown-word
# Behind words that are known.
expect_refusal scripts/checks format unknown-word
expect_refusal scripts/campaign proofs unknown-word
expect_refusal scripts/lib/digests host unknown-word
expect_refusal scripts/lib/prove residues unknown-word
expect_refusal scripts/lib/fuzz 20 unknown-word
expect_refusal scripts/lib/fuzz --merge any_request unknown-word
expect_refusal scripts/lib/fuzz --record unknown-word
expect_refusal scripts/lib/compare 10 unknown-word
expect_refusal scripts/lib/coverage --without-tool unknown-word
expect_refusal scripts/lib/count-instructions --store unknown-word
expect_refusal scripts/bench --benchmark_filter=x unknown-word
expect_refusal scripts/lib/build-dlls --output folder unknown-word
expect_refusal scripts/lib/build-windows-tool --output folder unknown-word
expect_refusal scripts/lib/build-page --output folder unknown-word
expect_refusal scripts/lib/test-page unknown-word
expect_refusal scripts/lib/make-dist --output folder unknown-word

# In the temporary folder others may have put a link of a name that can be guessed.
cd "$source"
! grep -rnE '(/tmp|TMPDIR)\b' scripts .ci tests/*/*.sh tests/image/witness tools/mutate |
    grep -vE 'mktemp|"TMPDIR=\$inside"|^tests/scripts/arguments.sh' ||
    fail "guessable names in the temporary folder, see above"
exit "$failed"
