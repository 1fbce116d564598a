# Shared by the scripts beside it: installing what is missing, and building.

# install PACKAGE...: installs the Debian packages that are missing, if any.
install() {
    missing=
    for package in "$@"; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q '^install ok installed$' ||
            missing="$missing $package"
    done
    [ -n "$missing" ] || return 0
    echo "== Installing:$missing"
    sudo=
    [ "$(id -u)" = 0 ] || sudo=sudo
    $sudo env DEBIAN_FRONTEND=noninteractive apt-get update -qq
    # shellcheck disable=SC2086
    $sudo env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing >/dev/null
}

# compile ARGUMENT...: cmake --build with these arguments; shows its last line, or all when it fails.
compile() {
    log=$(mktemp)
    cmake --build "$@" >"$log" 2>&1 || { cat "$log"; rm "$log"; exit 1; }
    tail -n 1 "$log"
    rm "$log"
}

# unpack ARCHITECTURE PACKAGE...: unpacks Debian packages of another architecture in
# build/packages/ARCHITECTURE, so that the machine's own stay as they are.
unpack() {
    into=$PWD/build/packages/$1
    [ "$(cat "$into/packages" 2>/dev/null)" != "$*" ] || return 0
    echo "== Unpacking for $*"
    work=$into.work
    rm -rf "$into" "$into.work"
    mkdir -p "$work/lists/partial" "$work/cache/archives/partial" "$work/root"
    cat >"$work/apt.conf" <<END
APT::Architecture "$1";
APT::Architectures { "$1"; };
APT::Sandbox::User "root";
Dir::State::Lists "$work/lists";
Dir::Cache "$work/cache";
END
    echo "$*" >"$work/root/packages"
    shift
    (
        cd "$work"
        export APT_CONFIG="$work/apt.conf"
        # A source may lack the architecture; what matters is whether the packages come.
        apt-get update -qq || true
        apt-get download -qq "$@"
        for package in *.deb; do
            dpkg-deb -x "$package" root
        done
    )
    : >"$work/root/etc/ld.so.cache"  # or an emulated program looks in the machine's own
    mv "$work/root" "$into"
    rm -rf "$into.work"
}

# The packages that build the library, and those that build and run its tests.
libraries="libcli11-dev libpugixml-dev nlohmann-json3-dev"
build_packages="g++ cmake ninja-build $libraries"
test_packages="$build_packages libgtest-dev binutils mobile-broadband-provider-info iso-codes
    ppp gammu wvdial socat udev python3"
# Those that make the Debian packages and try them.
packaging_packages="debhelper lintian pkg-config mobile-broadband-provider-info iso-codes"
# What looks at them. The maintainers have no address.
lint="lintian --allow-root --fail-on error,warning
    --suppress-tags bogus-mail-host,bogus-mail-host-in-debian-changelog"
# Those that the benchmarks compare with.
bench_packages="libbenchmark-dev libexpat1-dev libnma-dev libsqlite3-dev pkg-config
    mobile-broadband-provider-info iso-codes"

# install_cross PRESET: installs what building for another machine takes.
install_cross() {
    case $1 in
        i686) architecture=i386 compiler=g++-i686-linux-gnu ;;
        armhf) architecture=armhf compiler=g++-arm-linux-gnueabihf ;;
        arm64) architecture=arm64 compiler=g++-aarch64-linux-gnu ;;
        s390x) architecture=s390x compiler=g++-s390x-linux-gnu ;;
        *) echo "no preset for another machine: $1"; exit 1 ;;
    esac
    install $build_packages $compiler
    # The C library beside the cross compiler for i386 hangs in a forked child.
    unpack $architecture libc6 libc-bin libgcc-s1 libstdc++6 libpugixml1v5 libgtest-dev $libraries
}

# install_for PRESET: installs what its tests take, where they are for another machine too.
install_for() {
    install $test_packages
    case $1 in
        i686 | armhf | arm64 | s390x) install_cross "$1"; install qemu-user ;;
    esac
}
