# shellcheck shell=bash
# What every script starts with: where the project is, and how missing Debian packages get installed.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
jobs=$(nproc)

# By purpose; a script names the groups that it needs.
packages_build="g++ cmake ninja-build pkg-config libcli11-dev nlohmann-json3-dev"
packages_test="$packages_build g++-i686-linux-gnu libgtest-dev libgmock-dev googletest binutils \
  python3 python3-jsonschema parallel rsync scdoc dpkg-dev file"
packages_checks="clang clang-format clang-tidy libclang-rt-14-dev cppcheck valgrind zsh fish"

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

# Configures and builds one preset; further arguments go to the configuration.
build_preset() {
    local preset=$1
    shift
    cmake --preset "$preset" "$@" >"/tmp/qxmix-configure-$preset.$$" 2>&1 || {
        cat "/tmp/qxmix-configure-$preset.$$" >&2
        return 1
    }
    rm -f "/tmp/qxmix-configure-$preset.$$"
    cmake --build --preset "$preset" -j "$jobs" -- --quiet
}
