# The Debian packages of the project, and their installation. To be sourced.
# shellcheck shell=bash

# shellcheck disable=SC2034  # used by the scripts that source this
ZYN_PACKAGES=(
    build-essential cmake ninja-build ccache pkg-config
    libboost1.81-dev libboost-system1.81-dev
    libcurl4-openssl-dev libgumbo-dev
    libespeak-ng-dev libespeak-ng1 espeak-ng-data libgd-dev libgd3
    libpcre2-dev libsqlite3-dev zlib1g-dev libsimpleini-dev libcli11-dev libncurses-dev nlohmann-json3-dev
    libgtest-dev libgmock-dev
)

# What the checks of ./test.sh need beside them.
# shellcheck disable=SC2034
ZYN_CHECK_PACKAGES=(
    git clang-format clang-tidy shellcheck libbenchmark-dev curl lighttpd procps nodejs chromium
)

# A Node.js from elsewhere brings its own.
if ! command -v npm >/dev/null; then
    ZYN_CHECK_PACKAGES+=(npm)
fi

# What ./test.sh --package needs beside ZYN_PACKAGES.
# shellcheck disable=SC2034
ZYN_PACKAGING_PACKAGES=(
    debootstrap dpkg-dev
)

# What ./bench.sh needs beside ZYN_PACKAGES: the library, and the references.
# shellcheck disable=SC2034
ZYN_BENCH_PACKAGES=(
    libbenchmark-dev curl jq lighttpd procps hyperfine lua5.4 imagemagick
)

# What ./fuzz.sh needs beside ZYN_PACKAGES.
# shellcheck disable=SC2034
ZYN_FUZZ_PACKAGES=(
    clang-14 llvm-14 libclang-rt-14-dev
)

# Prints those of the named packages that are not installed, one a line.
missing_packages() {
    local package
    for package in "$@"; do
        if [[ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" != installed ]]; then
            echo "$package"
        fi
    done
}

# Installs those of the named packages that are missing; without a missing one it does nothing and
# needs no rights.
install_packages() {
    local -a missing as_root=()
    mapfile -t missing < <(missing_packages "$@")
    if [[ ${#missing[@]} -eq 0 ]]; then
        return 0
    fi
    if [[ $EUID -ne 0 ]]; then
        if ! command -v sudo >/dev/null; then
            echo "These packages are missing, and only root can install them: ${missing[*]}" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    echo "Installing ${#missing[@]} packages: ${missing[*]}"
    "${as_root[@]}" apt-get update -q
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -q -y --no-install-recommends "${missing[@]}"
}
