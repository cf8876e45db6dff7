#!/usr/bin/env bash
# Time from start to end of a process: `zynvelora script` with an empty file, beside Lua with an
# empty file and a program that does nothing at all. All three take turns in the same run.
#
#   bench/script_startup.sh [PROGRAM]      PROGRAM is build/release/zynvelora without one
#   ROUNDS=1000 bench/script_startup.sh    more than 200 rounds
set -euo pipefail
export LC_ALL=C  # EPOCHREALTIME has a point then

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
readonly program="${1:-$root/build/release/zynvelora}"
readonly rounds="${ROUNDS:-200}"
readonly nothing=/bin/true

for tool in "$program" lua5.4 "$nothing"; do
    command -v "$tool" >/dev/null || { echo "script_startup.sh needs $tool" >&2; exit 1; }
done
folder="$(mktemp -d "${TMPDIR:-/tmp}/zynvelora_bench_XXXXXX")"
readonly folder
trap 'rm -rf "$folder"' EXIT
: >"$folder/empty"

# Adds the microseconds that a command takes, one number a line, to a file.
time_to() {
    local file=$1 start end
    shift
    start=${EPOCHREALTIME/./}
    "$@"
    end=${EPOCHREALTIME/./}
    echo $((end - start)) >>"$file"
}

for ((round = 0; round < rounds; ++round)); do
    time_to "$folder/script" "$program" script "$folder/empty"
    time_to "$folder/lua" lua5.4 "$folder/empty"
    time_to "$folder/nothing" "$nothing"
done

# Prints the least, the middle and the mean of a file of numbers.
figures_of() {
    sort -n "$1" | awk '{ value[NR] = $1; sum += $1 }
        END { print value[1] / 1000, value[int((NR + 1) / 2)] / 1000, sum / NR / 1000 }'
}

read -r _ reference _ < <(figures_of "$folder/lua")
printf '%-18s %8s %8s %8s %8s\n' "milliseconds" least median mean "to Lua"
for row in "script:zynvelora script" "lua:lua5.4" "nothing:$nothing"; do
    read -r least median mean < <(figures_of "$folder/${row%%:*}")
    awk -v n="${row#*:}" -v l="$least" -v d="$median" -v m="$mean" -v r="$reference" \
        'BEGIN { printf "%-18s %8.2f %8.2f %8.2f %8.2f\n", n, l, d, m, d / r }'
done
