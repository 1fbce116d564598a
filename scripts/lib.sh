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

# The packages that build the library, and those that build and run its tests.
build_packages="g++ cmake ninja-build libcli11-dev libpugixml-dev nlohmann-json3-dev"
test_packages="$build_packages libgtest-dev binutils mobile-broadband-provider-info iso-codes
    ppp gammu wvdial"
# Those that the benchmarks compare with.
bench_packages="libbenchmark-dev libexpat1-dev libnma-dev libsqlite3-dev pkg-config
    mobile-broadband-provider-info iso-codes"
