# shellcheck shell=bash
# clang in the place of Microsoft's compilers for x86, of any version of theirs.
#
# It lays out objects and calls slots as they do. All that it would give a header beyond them is taken
# away: its macros, attributes, builtins and system headers. What it has to be told to let pass is the
# form in which those compilers write the offset of a field.

microsoft_versions="1200 1202 1300 1310 1400 1500 1600 1700 1800 1900 1916 1929 1944"
project=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)

# microsoft VERSION [argument ...]: compiles; VERSION is a value of _MSC_VER.
microsoft() {
    local version=$1 taken_away=('-D__attribute__(words)=no_attributes' -D__builtin_offsetof=no_builtins)
    shift
    [ "$version" -ge 1400 ] || taken_away+=(-D__thiscall=no_such_word_yet)
    clang --target=i686-pc-windows-msvc -fms-compatibility \
        "-fms-compatibility-version=${version%??}.${version#??}" -undef -nostdinc \
        -D_WIN32=1 -D_M_IX86=600 "-D_MSC_VER=$version" "${taken_away[@]}" \
        -pedantic-errors -Wall -Wextra -Werror -Wno-vla-extension -Wno-gnu-folding-constant \
        -fno-exceptions -fno-rtti -I"$project/include" "$@"
}

# link_as_microsoft OUTPUT [argument ...]: links objects to the module's import library and to the
# system's C library, whose import library MinGW has.
link_as_microsoft() {
    local output=$1
    shift
    lld-link /nologo /safeseh:no /nodefaultlib "/out:$output" "$@" \
        "$(i686-w64-mingw32-g++ -print-file-name=libmsvcrt.a)"
}
