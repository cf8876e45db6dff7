#!/usr/bin/env bash
# Runs clang-tidy over all sources of a configured build folder; remembers what was clean, so that a
# second run looks at changed files alone.
#
#   scripts/lint.sh build/release
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:?usage: scripts/lint.sh BUILD_FOLDER}
clean=$build/lint
mkdir -p "$clean"
printf '== Linting with clang-tidy\n'

# The precompiled headers are the other compiler's; without them each file includes what it uses.
sed -E 's/ -include [^ ]*cmake_pch\.hxx//; s/ -Winvalid-pch//; s/ -fpch-preprocess//' \
    "$build/compile_commands.json" >"$clean/compile_commands.json"

lint_one() {
    local clean=$1 source=$2 key mark
    # A file is as clean as it was while neither it, nor a header, nor the rules have changed.
    key=$( { cat .clang-tidy "$source"; git ls-files -z 'src/*.h' | xargs -0 cat; } | sha256sum | cut -c1-32)
    mark=$clean/${source//\//_}.$key
    [ -e "$mark" ] && return 0
    clang-tidy --quiet -p "$clean" --extra-arg=-isystem"$PWD/scripts/lint-include" \
        --extra-arg=-Wno-unknown-warning-option "$source" 2>/dev/null && touch "$mark"
}
export -f lint_one

git ls-files 'src/*.cpp' |
    xargs -P "$(nproc)" -I{} bash -c 'lint_one "$@"' lint "$clean" {}
