# Sourced by the commands: installs Debian packages and builds. Prints on standard error only, and only when there is
# something to do or something has failed.

unset CDPATH # with it, cd prints
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build_packages=(g++ cmake ninja-build pkg-config libglib2.0-dev libsystemd-dev)
check_packages=(libgtest-dev libgmock-dev libbenchmark-dev dbus-daemon systemd python3-cram parallel openssh-client
    mandoc)
# The tests start their own SSH server. Where systemd runs, installing the package would start another one.
[ -d /run/systemd/system ] || check_packages+=(openssh-server)
clang_packages=()
# Style check and fuzz targets need clang 14. (With clang 19 the targets build, but libsystemd 257 leaks 64 bytes when a
# connection ends with an error, and the leak cannot be suppressed by the name of its function.)
if grep -qs '^VERSION_ID="12"' /etc/os-release; then
    clang_packages=(clang libclang-rt-14-dev clang-format-14 clang-tidy-14)
fi

fail() {
    echo "${0##*/}: $*" >&2
    exit 1
}

# help_requested ARGUMENT...: whether the only argument is --help.
help_requested() {
    [ "${1-}" = --help ] || return
    [ $# -eq 1 ] || unknown_argument "$2"
}

# unknown_argument ARGUMENT: prints an error about this argument and exits.
unknown_argument() {
    echo "${0##*/}: unknown argument '$1'; try $0 --help" >&2
    exit 2
}

# Prints those of the packages that are not installed.
missing_packages() {
    local package
    for package in "$@"; do
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || echo "$package"
    done
}

# quietly STEP COMMAND...: the output is shown only if the command fails.
quietly() {
    local what=$1 log
    shift
    log=$(mktemp) || fail "cannot create a temporary file"
    if ! "$@" >"$log" 2>&1 </dev/null; then
        cat "$log" >&2
        rm -f "$log"
        fail "$what failed; the reason is above"
    fi
    rm -f "$log"
}

install_packages() {
    local missing as_root=()
    mapfile -t missing < <(missing_packages "$@")
    [ ${#missing[@]} -gt 0 ] || return 0
    echo "${0##*/}: installing ${missing[*]}" >&2
    if [ "$(id -u)" -ne 0 ]; then
        sudo -n true 2>/dev/null || fail "not root: have root run 'apt-get install ${missing[*]}', then try again"
        as_root=(sudo -n)
    fi
    quietly "'apt-get update' (is there a network?)" "${as_root[@]}" apt-get update
    quietly "'apt-get install ${missing[*]}' (is there a network?)" "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y --no-install-recommends "${missing[@]}"
}

# build PRESET FOLDER [CMake options] -- TARGET...: builds the targets, with ninja_options.
ninja_options=()
build() {
    local preset=$1 name=$2 folder=$root/$2 options=() lock
    shift 2
    while [ "$1" != -- ]; do
        options+=("$1")
        shift
    done
    shift
    mkdir -p "$folder" || fail "cannot write $folder"
    exec {lock}>"$folder/.lock" || fail "cannot write $folder/.lock"
    flock "$lock" # one build of a folder at a time
    if [ ${#options[@]} -gt 0 ] || [ ! -e "$folder/build.ninja" ]; then
        [ -e "$folder/build.ninja" ] || echo "${0##*/}: configuring $name" >&2
        quietly "configuring the build" cmake -S "$root" -B "$folder" --preset "$preset" "${options[@]}"
    fi
    if [ "$(ninja -C "$folder" -n "$@" 2>/dev/null | tail -n 1)" != "ninja: no work to do." ]; then
        echo "${0##*/}: building in $name" >&2
    fi
    quietly "the build" ninja -C "$folder" "${ninja_options[@]}" "$@"
    exec {lock}>&-
}
