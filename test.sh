#!/usr/bin/env bash
# Sets a Debian 12 machine up and passes the checks of the project.
#
#   ./test.sh          format of all sources, release build, all tests
#   ./test.sh --all    beside that clang-tidy, and the tests under the address and
#                      undefined-behaviour sanitizers
#   ./test.sh --package    builds the Debian package, and installs and runs it in a clean root,
#                          as root; nothing else
set -euo pipefail
cd "$(dirname "$0")"
# shellcheck source=scripts/packages.sh
source scripts/packages.sh

say() { printf '== %s\n' "$*"; }

check_format() {
    say "Checking the format of all sources"
    git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run -Werror
    git ls-files '*.sh' .ci/run | xargs shellcheck -x
}

build() {
    say "Building the $1 preset"
    cmake --preset "$1" >/dev/null
    cmake --build --preset "$1" --parallel
}

run_tests() {
    say "Running the tests of the $1 preset"
    ctest --preset "$1"
}

test_package() {
    say "Building the Debian package"
    cmake --preset package >/dev/null
    cmake --build --preset package --parallel
    cpack --preset package
    tests/package/install.sh build/package/zynvelora_*.deb
}

say "Installing packages that are missing"
if [ "${1-}" = --package ]; then
    install_packages "${ZYN_PACKAGES[@]}" "${ZYN_PACKAGING_PACKAGES[@]}"
    test_package
    exit
fi
install_packages "${ZYN_PACKAGES[@]}" "${ZYN_CHECK_PACKAGES[@]}"
say "Installing what the tests in a browser need"
npm --prefix tests/browser ci --loglevel=error
check_format
if [ "${1-}" = --all ]; then
    build asan
    run_tests asan
fi
build release
if [ "${1-}" = --all ]; then
    scripts/lint.sh build/release
fi
run_tests release
