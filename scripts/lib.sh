# Shared by the scripts beside it: where the project is, and what it needs from Debian.
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root" || exit 1

fail() {
    printf '%s: %s\n' "$(basename "$0")" "$*" >&2
    exit 1
}

step() { printf '\n== %s\n' "$*"; }

packages_build="g++ cmake ninja-build zlib1g-dev libcli11-dev nlohmann-json3-dev libpugixml-dev qt6-base-dev"
packages_test="$packages_build libgtest-dev libbenchmark-dev qt6-positioning-dev libsqlite3-dev locales"
packages_fuzz="g++ cmake ninja-build zlib1g-dev libpugixml-dev clang libclang-rt-14-dev"
packages_lint="clang-format clang-tidy"
packages_mingw="cmake ninja-build g++-mingw-w64-x86-64-posix mingw-w64-x86-64-dev libz-mingw-w64-dev"
packages_windows="$packages_mingw dpkg-dev googletest libcli11-dev nlohmann-json3-dev wine wine64 python3"
packages_installer="cmake binutils-mingw-w64-x86-64 nsis"

# have PACKAGE...: whether all of them are installed.
have() {
    local package
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || return
    done
}

# need PACKAGE...: installs what is missing, as root or through sudo.
need() {
    local package missing=() as_root=()
    command -v dpkg-query >/dev/null ||
        fail "this is not a Debian system; install the counterparts of: $*"
    for package in "$@"; do
        have "$package" || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null ||
            fail "not root and no sudo; as root run: apt-get install ${missing[*]}"
        as_root=(sudo)
    fi
    step "Installing ${missing[*]}"
    "${as_root[@]}" apt-get update || fail "apt-get update failed"
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y --no-install-recommends "${missing[@]}" ||
        fail "apt-get could not install: ${missing[*]}"
}

# build PRESET [cmake option...]: configures and builds one preset.
build() {
    local preset=$1
    shift
    step "Building preset $preset"
    cmake --preset "$preset" "$@" || fail "cmake could not configure the preset $preset"
    cmake --build --preset "$preset" || fail "the preset $preset did not build"
}
