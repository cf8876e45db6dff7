#!/usr/bin/env bash
# Sets a Debian 12 machine up and passes every check of the project: format, lint, tests under the
# address and undefined-behaviour sanitizers, tests of the release build.
#
#   ./test.sh              everything
#   ./test.sh --fast       the release build and its tests alone
set -euo pipefail
cd "$(dirname "$0")"
# shellcheck source=scripts/packages.sh
source scripts/packages.sh

say() { printf '== %s\n' "$*"; }

check_format() {
    say "Checking the format of all sources"
    git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run -Werror
    git ls-files '*.sh' .ci/run | xargs shellcheck
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

install_packages "${ZYN_PACKAGES[@]}" "${ZYN_CHECK_PACKAGES[@]}"
if [ "${1-}" != --fast ]; then
    check_format
    build asan
    run_tests asan
fi
build release
if [ "${1-}" != --fast ]; then
    scripts/lint.sh build/release
fi
run_tests release
