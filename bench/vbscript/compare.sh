#!/usr/bin/env bash
# Runs each program of this folder as VBScript and as Lua, alternately, and prints the best time of
# each in milliseconds with their ratio, and the geometric mean of all ratios.
# Usage: bench/vbscript/compare.sh [ZYNVELORA] [ROUNDS]
set -euo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
program=${1:-$here/../../build/release/zynvelora}
rounds=${2:-5}
output=$(mktemp -d)
trap 'rm -rf "$output"' EXIT

# Milliseconds that a command takes; its output goes to a file.
time_of() {
    local file=$1 start end
    shift
    start=$(date +%s%N)
    "$@" >"$file"
    end=$(date +%s%N)
    echo $(((end - start) / 1000))
}

best_of() {
    [[ $1 -lt $2 ]] && echo "$1" || echo "$2"
}

printf '%-12s %10s %10s %7s\n' program VBScript Lua ratio
ratios=()
for source in "$here"/*.lua; do
    name=$(basename "$source" .lua)
    script=999999999
    lua=999999999
    for ((round = 0; round < rounds; ++round)); do
        script=$(best_of "$script" "$(time_of "$output/script" "$program" script "${source%.lua}.vbs")")
        lua=$(best_of "$lua" "$(time_of "$output/lua" lua5.4 "$source")")
    done
    if ! diff -q <(tr -d '\r' <"$output/script") "$output/lua" >/dev/null; then
        echo "$name: the two programs print different results" >&2
        exit 1
    fi
    ratio=$(awk -v a="$script" -v b="$lua" 'BEGIN { print a / b }')
    ratios+=("$ratio")
    awk -v n="$name" -v a="$script" -v b="$lua" -v r="$ratio" \
        'BEGIN { printf "%-12s %10.1f %10.1f %7.2f\n", n, a / 1000, b / 1000, r }'
done
printf '%s\n' "${ratios[@]}" |
    awk '{ s += log($1) } END { printf "%-12s %10s %10s %7.2f\n", "mean", "", "", exp(s / NR) }'
