# shellcheck shell=sh
# Shared by the scripts beside it.

# compile ARGUMENT...: cmake --build with these arguments; shows its last line, or all when it fails.
compile() {
    log=$(mktemp)
    cmake --build "$@" >"$log" 2>&1 || { cat "$log"; rm "$log"; exit 1; }
    tail -n 1 "$log"
    rm "$log"
}

# How the Debian packages are looked at. The maintainers have no address.
# shellcheck disable=SC2034
lint="lintian --allow-root --fail-on error,warning
    --suppress-tags bogus-mail-host,bogus-mail-host-in-debian-changelog"
