# shellcheck shell=bash
# What every script starts with: its help, where the project is, and how missing Debian packages get
# installed.

set -euo pipefail

# The comment at the top of a script is its help.
for word in "$@"; do
    case $word in
        -h | --help)
            sed -n '2,/^[^#]/ { /^# shellcheck/d; s/^# \{0,1\}//p }' "$0"
            exit
            ;;
    esac
done

# Ends with one line that says what is wrong.
fail() {
    echo "${0##*/}: $1" >&2
    exit 1
}

# expect_known KIND "NAME ..." [WORD ...]: ends unless each word is one of the names.
expect_known() {
    local kind=$1 names=$2 word
    shift 2
    for word in "$@"; do
        [[ $word != *' '* && " $names " == *" $word "* ]] ||
            fail "$word: unknown $kind; expected one of: ${names// /, }"
    done
}

# Ends unless a script that takes no argument was given none.
expect_nothing() {
    [ $# -eq 0 ] || fail "$1: unknown argument; expected none"
}

cd "$(dirname "${BASH_SOURCE[0]}")/../.."
jobs=$(nproc)

# By purpose; a script names the groups that it needs.
packages_build="g++ cmake ninja-build pkg-config libcli11-dev nlohmann-json3-dev"
packages_test="$packages_build g++-i686-linux-gnu libgtest-dev libgmock-dev googletest binutils \
  python3 python3-jsonschema python3-distributed parallel rsync scdoc zsh fish dpkg-dev file"
packages_checks="clang clang-format clang-tidy libclang-rt-14-dev cppcheck valgrind"

# Installs what is missing of the packages given, or says in one line how to.
need_packages() {
    local package missing=()
    for package in "$@"; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' ||
            missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    local install="apt-get install -y --no-install-recommends ${missing[*]}"
    echo "installing: ${missing[*]}"
    if [ "$(id -u)" -eq 0 ]; then
        apt-get update -q >/dev/null && DEBIAN_FRONTEND=noninteractive $install >/dev/null
    elif command -v sudo >/dev/null; then
        sudo apt-get update -q >/dev/null && sudo DEBIAN_FRONTEND=noninteractive $install >/dev/null
    else
        echo "please run as root: apt-get update && $install" >&2
        exit 1
    fi
}

# copy_project FOLDER: what is under version control, and what is new, into a folder made anew.
copy_project() {
    rm -rf "$1"
    mkdir -p "$1"
    git ls-files -zco --exclude-standard | xargs -0 cp --parents -t "$1"
}

# All files with vectors.
list_vectors() {
    find tests/vectors -name '*.txt' ! -name CMakeLists.txt ! -name digest.txt | LC_ALL=C sort
}

# Configures and builds one preset; further arguments go to the configuration.
build_preset() {
    local preset=$1
    shift
    # Not in the temporary folder, where others could have put a link of that name.
    mkdir -p build
    cmake --preset "$preset" "$@" >"build/configure-$preset.log" 2>&1 || {
        cat "build/configure-$preset.log" >&2
        return 1
    }
    cmake --build --preset "$preset" -j "$jobs" -- --quiet
}
