#!/bin/bash
# Sets this machine up, builds, and runs the daemon with three units until Ctrl-C.
set -euo pipefail

root="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
# shellcheck source=scripts/packages.sh
source "$root/scripts/packages.sh"

readonly program="$root/build/release/zynvelora"
readonly home="$root/.house/home"
readonly units="$root/.house/units"
readonly port=8080
readonly jukebox=8024  # PhJukeCommandPort of the fresh home
readonly daemon_link=127.0.0.1:4550  # LocalPort, where it listens for client programs
readonly -A addresses=([kitchen]=127.0.0.21 [hall]=127.0.0.22 [bedroom]=127.0.0.23)
readonly names=(kitchen hall bedroom)

pids=()

is_running() {
    kill -0 "$1" 2>/dev/null
}

# Ends what this script has started, the daemon first, and waits for it.
# shellcheck disable=SC2317  # called by a trap
stop_all() {
    trap '' INT TERM HUP
    local -a reversed=()
    local pid tries
    for pid in "${pids[@]}"; do
        reversed=("$pid" "${reversed[@]}")
    done
    for pid in "${reversed[@]}"; do
        kill -TERM "$pid" 2>/dev/null || true
        for ((tries = 0; tries < 100; tries++)); do
            is_running "$pid" || break
            sleep 0.05
        done
        kill -KILL "$pid" 2>/dev/null || true
        wait "$pid" 2>/dev/null || true
    done
    pids=()
}

# Waits until the command works, or the process that it asks has ended. Says what it waits for.
wait_for() {
    local what="$1" pid="$2" tries
    shift 2
    for ((tries = 0; tries < 200; tries++)); do
        if "$@" >/dev/null 2>&1; then
            return 0
        fi
        if ! is_running "$pid"; then
            break
        fi
        sleep 0.05
    done
    echo "$what does not come up" >&2
    return 1
}

# Ctrl-C reaches this script alone: the others get their end from stop_all, in order.
start() {
    setsid "$program" "$@" </dev/null &
    pids+=($!)
}

echo "1. Packages: $(missing_packages "${ZYN_PACKAGES[@]}" | wc -l) of ${#ZYN_PACKAGES[@]} are missing."
install_packages "${ZYN_PACKAGES[@]}"

echo "2. Build: $program"
(
    cd "$root"
    cmake --preset release >/dev/null
    cmake --build --preset release --target zynvelora
)

if "$program" status --home "$home" >/dev/null 2>&1; then
    echo "A daemon runs in $home already; end that one first." >&2
    exit 1
fi
for name in "${names[@]}"; do
    if "$program" tell-unit "$units/$name" state >/dev/null 2>&1; then
        echo "A unit runs in $units/$name already; end that one first." >&2
        exit 1
    fi
done

trap stop_all EXIT
trap 'exit 0' INT TERM HUP

echo "3. Units: ${names[*]}"
for name in "${names[@]}"; do
    start unit --name "$name" --listen "${addresses[$name]}:$port" --jukebox "$jukebox" \
        --client-of "$daemon_link" --state-dir "$units/$name"
    wait_for "Unit $name" "${pids[-1]}" "$program" tell-unit "$units/$name" state
done

echo "4. Daemon: $home"
start serve --home "$home"
daemon="${pids[-1]}"
wait_for "The daemon" "$daemon" "$program" status --home "$home"

cat <<TEXT

The house is up. In another terminal, try:

    build/release/zynvelora call VeloraSpeak Kitchen "Hello, kitchen"
    build/release/zynvelora status
    build/release/zynvelora log -f

Each unit shows what it does in .house/units/NAME. Ctrl-C ends everything.
TEXT

# A unit may be killed to see what the house makes of it; without the daemon there is no house.
while true; do
    ended=""
    wait -n -p ended "${pids[@]}" || true
    if [[ "$ended" == "$daemon" ]]; then
        echo "The daemon has ended by itself." >&2
        exit 1
    fi
    for i in "${!names[@]}"; do
        if [[ "${pids[i]-}" == "$ended" ]]; then
            echo "Unit ${names[i]} has ended; the others go on."
            unset "pids[i]"
        fi
    done
done
