#!/usr/bin/env bash
# Time from start to end of a process: `zynvelora script` with an empty file, beside Lua with an
# empty file and a program that does nothing at all. hyperfine starts each without a shell, whose
# own fork would be a quarter of the time.
#
#   bench/script_startup.sh [PROGRAM]      PROGRAM is build/release/zynvelora without one
#   ROUNDS=1000 bench/script_startup.sh    more than 300 rounds
set -euo pipefail

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
readonly program="${1:-$root/build/release/zynvelora}"
readonly rounds="${ROUNDS:-300}"

for tool in "$program" lua5.4 hyperfine; do
    command -v "$tool" >/dev/null || { echo "script_startup.sh needs $tool" >&2; exit 1; }
done
folder="$(mktemp -d "${TMPDIR:-/tmp}/zynvelora_bench_XXXXXX")"
readonly folder
trap 'rm -rf "$folder"' EXIT
: >"$folder/empty"

hyperfine -N --style none --warmup 10 --runs "$rounds" --export-csv "$folder/figures.csv" \
    -n "zynvelora script" "$program script $folder/empty" \
    -n lua5.4 "lua5.4 $folder/empty" \
    -n /bin/true /bin/true >/dev/null

# command,mean,stddev,median,user,system,min,max in seconds
awk -F, '
    NR == 1 { printf "%-18s %8s %8s %8s %8s\n", "milliseconds", "least", "median", "mean", "to Lua" }
    NR > 1 { name[NR] = $1; mean[NR] = $2; median[NR] = $4; least[NR] = $7 }
    END {
        for (row = 2; row <= NR; ++row) {
            printf "%-18s %8.2f %8.2f %8.2f %8.2f\n", name[row], 1000 * least[row],
                1000 * median[row], 1000 * mean[row], median[row] / median[3]
        }
    }' "$folder/figures.csv"
