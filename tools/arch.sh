# Sourced by ./check: runs the tests on another CPU. Its libraries are unpacked in the build folder and not installed, so
# that dpkg needs no further architecture and their versions may differ from the installed ones.

# fetch_root ARCH FOLDER: unpacks the libraries of this Debian release for that CPU.
fetch_root() {
    local arch=$1 folder=$2 release source packages=(libstdc++6 libglib2.0-dev libsystemd-dev libgtest-dev libgmock-dev)
    [ ! -e "$folder" ] || return 0
    echo "${0##*/}: fetching the libraries for $arch" >&2
    [ "$arch" != i386 ] || packages+=(libasan8 libubsan1)
    release=$(. /etc/os-release && echo "${VERSION_CODENAME-}")
    source=$(apt-get indextargets --format 'deb $(REPO_URI) $(RELEASE) $(COMPONENT)' 'Created-By: Packages' |
        grep " $release main\$" | head -1)
    [ -n "$source" ] || fail "apt has no source for $release main"
    rm -rf "$folder.part"
    mkdir -p "$folder.part" || fail "cannot write $folder.part"
    quietly "fetching the libraries for $arch (is there a network?)" unpack_root "$arch" "$folder.part" "$release" \
        "$source" "$(IFS=,; echo "${packages[*]}")"
    mv "$folder.part" "$folder"
}

unpack_root() {
    mmdebstrap --variant=extract --format=tar --architectures="$1" --include="$5" "$3" "$2.tar" "$4" &&
        tar -x -f "$2.tar" -C "$2" --exclude=./dev --no-same-owner && rm "$2.tar"
}

# check_arch ARCH: runs the tests of the default build on that CPU.
check_arch() {
    local arch=$1 preset status=0 packages presets=("$1")
    case $arch in
    armhf) packages=(g++-arm-linux-gnueabihf qemu-user) ;;
    s390x) packages=(g++-s390x-linux-gnu qemu-user) ;;
    i386) packages=(g++-i686-linux-gnu) presets+=(i386-asan) ;;
    *) unknown_argument "--arch $arch" ;;
    esac
    install_packages "${build_packages[@]}" "${check_packages[@]}" mmdebstrap "${packages[@]}"
    fetch_root "$arch" "$root/build-$arch/root"
    cd "$root" || fail "cannot enter $root"
    for preset in "${presets[@]}"; do
        build "$preset" "build-$preset" -DDEBUGUTIL_WERROR=ON -DDEBUGUTIL_TESTS=ON -- all
        echo "== $preset"
        ctest --preset "$preset" --parallel "$(nproc)" </dev/null || status=1
    done
    return $status
}
