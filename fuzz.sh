#!/usr/bin/env bash
# Feeds the parsers of the project with made-up input under the address and undefined-behaviour
# sanitizers.
#
#   ./fuzz.sh MINUTES             every target for so long, one after the other
#   ./fuzz.sh MINUTES TARGET...   these targets, such as script_parser
#   ./fuzz.sh 0                   the inputs to start from alone
#
# What a run learns stays in build/fuzz/corpus for the next one; an input that breaks something is
# kept in build/fuzz/found. Prints one line for each target. The exit code is 1 after a find.
set -euo pipefail
cd "$(dirname "$0")"
# shellcheck source=scripts/packages.sh
source scripts/packages.sh

readonly build=build/fuzz
readonly found=$build/found

if ! [[ ${1-} =~ ^[0-9]+$ ]]; then
    sed -n '2,/^set/ { /^set/d; s/^# \?//; p }' "$0" >&2
    exit 2
fi
readonly minutes=$1
shift
targets=("$@")
if [[ $# -eq 0 ]]; then
    mapfile -t targets < <(sed -n 's/^zyn_fuzz(\([a-z_]*\) .*/\1/p' fuzz/CMakeLists.txt)
fi

# Prints the files of the repository that a target starts from, beside its folder in fuzz/corpus.
seeds_of() {
    case $1 in
        # Those without an end take all of their time in every variation.
        script_*) find tests/vbscript -name '*.vbs' -size -8k ! -name 'endless*' ;;
        asp_converter) find data/HTML -name '*.asp' -o -name '*.htm*' ;;
        include_walk) find data/HTML/includes -name '*.asp' ;;
        modem_input) find data/Modem -name '*.txt' ;;
        ini_lines) find data/Config -name '*.ini' ;;
    esac
}

dictionary_of() {
    case $1 in
        script_*) echo fuzz/dictionaries/script.dict ;;
        request_parser) echo fuzz/dictionaries/request.dict ;;
        xap_frames) echo fuzz/dictionaries/xap.dict ;;
        asp_converter | include_walk) echo fuzz/dictionaries/page.dict ;;
    esac
}

# Fills the folder of inputs that a target starts from.
gather_seeds() {
    local target=$1 folder=$2 file
    rm -rf "$folder"
    mkdir -p "$folder"
    while IFS= read -r file; do
        cp "$file" "$folder/${file//\//_}"
    done < <(seeds_of "$target")
    case $target in
        image_info | picture_resizer) "$build/fuzz_draw_pictures" "$folder" ;;
    esac
    if [[ -d fuzz/corpus/$target ]]; then
        cp fuzz/corpus/"$target"/* "$folder"
    fi
}

statistic() {
    sed -n "s/^stat::$2: *//p" "$1"
}

# Runs one target and prints its line.
run_target() {
    local target=$1 log=$build/$1.log result=clean dictionary
    local -a options=(-timeout=30 -rss_limit_mb=4096 -max_len=4096 -print_final_stats=1
        "-artifact_prefix=$found/$target-")
    gather_seeds "$target" "$build/seeds/$target"
    mkdir -p "$build/corpus/$target"
    dictionary=$(dictionary_of "$target")
    if [[ -n $dictionary ]]; then
        options+=("-dict=$dictionary")
    fi
    if [[ $minutes -eq 0 ]]; then
        options+=(-runs=0)
    else
        options+=("-max_total_time=$((minutes * 60))")
    fi
    "$build/fuzz_$target" "${options[@]}" "$build/corpus/$target" "$build/seeds/$target" \
        >"$log" 2>&1 || result="FOUND: see $log and $found"
    printf '%-16s %10s runs %8s a second  %s\n' "$target" \
        "$(statistic "$log" number_of_executed_units)" \
        "$(statistic "$log" average_exec_per_sec)" "$result"
    [[ $result = clean ]]
}

printf '== Installing packages that are missing\n'
install_packages "${ZYN_PACKAGES[@]}" "${ZYN_FUZZ_PACKAGES[@]}"
printf '== Building the fuzz preset\n'
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz --parallel
mkdir -p "$found"

printf '== Running %s targets, %s minutes each\n' "${#targets[@]}" "$minutes"
finds=0
for target in "${targets[@]}"; do
    run_target "$target" || finds=1
done
exit "$finds"
