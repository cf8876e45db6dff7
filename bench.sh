#!/usr/bin/env bash
# Runs all benchmarks with their references and writes the figures to docs/benchmarks.md, with the
# machine and how to repeat them. Takes about five minutes; leave the machine alone meanwhile.
#
#   ./bench.sh             all, into docs/benchmarks.md
#   ./bench.sh NAME...     these alone, such as xap_house or daemon.sh, to the terminal
set -euo pipefail
cd "$(dirname "$0")"
# shellcheck source=scripts/packages.sh
source scripts/packages.sh

readonly programs=(callers command_latency command_rate device_blocks home_bench picture_resize
    slideshow status_page xap_frames xap_house)
readonly scripts=(daemon.sh script_startup.sh vbscript/compare.sh)

say() { printf '== %s\n' "$*" >&2; }

program_of() {
    local name
    for name in "build/release/bench/bench_$1" "build/release/bench/$1"; do
        if [[ -x $name ]]; then
            echo "$name"
            return
        fi
    done
    echo "bench.sh: there is no benchmark $1" >&2
    return 1
}

# One row for each counter of a program's cases: case, counter, figure.
rows_of_program() {
    "$(program_of "$1")" --benchmark_format=json 2>/dev/null | jq -r '
        ["name", "family_index", "per_family_instance_index", "run_name", "run_type", "repetitions",
         "repetition_index", "threads", "iterations", "real_time", "cpu_time", "time_unit"] as $usual
        | .benchmarks[] | .name as $case | to_entries[]
        | select(.key as $key | $usual | index($key) | not)
        | [($case | gsub("/(iterations:[0-9]+|manual_time|real_time)"; "")), .key, .value] | @tsv' |
        awk -F '\t' '{ printf "| `%s` | `%s` | %.4g |\n", $1, $2, $3 }'
}

# What a script prints, as it stands.
text_of_script() {
    printf '```\n'
    "bench/$1"
    printf '```\n'
}

machine() {
    local model
    model="$(sed -n 's/^model name[^:]*: //p' /proc/cpuinfo | head -n 1)"
    printf '%s, %s cores, %s, Linux %s, g++ %s, release build, commit %s\n' "${model:-unknown processor}" \
        "$(nproc)" "$(awk '/^MemTotal/ { printf "%.1f GB", $2 / 1e6 }' /proc/meminfo)" \
        "$(uname -r)" "$(g++ -dumpfullversion)" "$(git rev-parse --short HEAD)"
}

write_page() {
    local name
    cat <<'HEAD'
# Benchmarks

Written by `./bench.sh`; run it again to repeat all of it. Each figure stands beside a reference of the same
run, and the ratio is what counts: see [bench/README.md](../bench/README.md) for what each one means.

HEAD
    printf '%s\n\n' "$(machine)"
    printf '| benchmark | counter | figure |\n|---|---|---|\n'
    for name in "${programs[@]}"; do
        say "$name"
        rows_of_program "$name"
    done
    for name in "${scripts[@]}"; do
        say "$name"
        printf '\n## %s\n\n' "$name"
        text_of_script "$name"
    done
}

say "Installing packages that are missing"
install_packages "${ZYN_PACKAGES[@]}" "${ZYN_BENCH_PACKAGES[@]}"
say "Building"
cmake --preset release >/dev/null
cmake --build --preset release --parallel >/dev/null
if [[ $# -gt 0 ]]; then
    for name in "$@"; do
        if [[ $name == *.sh ]]; then text_of_script "$name"; else rows_of_program "$name"; fi
    done
    exit
fi
page="$(mktemp)"
trap 'rm -f "$page"' EXIT
write_page >"$page"
cp "$page" docs/benchmarks.md
say "Written: docs/benchmarks.md"
