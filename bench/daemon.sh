#!/bin/bash
# Start-up time, memory, file serving and status page of the daemon, each beside a reference of the
# same run: the program's own --version, lighttpd with the same file, and a small file. Takes about
# fifteen seconds.
#
#   bench/daemon.sh [PROGRAM]        PROGRAM is build/release/zynvelora without one
#   ROUNDS=9 bench/daemon.sh         more rounds; figures are the best of them
set -euo pipefail

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
readonly program="${1:-$root/build/release/zynvelora}"
readonly rounds="${ROUNDS:-5}"
readonly address=127.0.0.41
readonly megabytes=20

for tool in "$program" curl lighttpd; do
    command -v "$tool" >/dev/null || { echo "daemon.sh needs $tool" >&2; exit 1; }
done
folder="$(mktemp -d "${TMPDIR:-/tmp}/zynvelora_bench_XXXXXX")"
readonly folder
readonly home="$folder/home"
exec {silence}<> <(:)  # nothing ever comes: to wait on without a process
declare -A pids=()  # by name, of what this script has started and not ended yet

# Ends one of ours. What it wraps is killed after three seconds of deafness.
end() {
    local pid="${pids[$1]}" tries
    kill -TERM "$pid" 2>/dev/null || true
    for ((tries = 0; tries < 100; tries++)); do
        kill -0 "$pid" 2>/dev/null || break
        sleep 0.05
    done
    kill -KILL "$pid" 2>/dev/null || true
    wait "$pid" 2>/dev/null || true
    unset "pids[$1]"
}

# shellcheck disable=SC2317  # called by a trap
clean_up() {
    local name
    for name in "${!pids[@]}"; do
        end "$name"
    done
    rm -rf "$folder"
}
trap clean_up EXIT
trap 'exit 130' INT TERM HUP

microseconds() { echo "${EPOCHREALTIME/[.,]/}"; }

# Prints the smallest of the numbers on standard input.
least() { sort -n | head -n 1; }

ratio() { awk -v a="$1" -v b="$2" 'BEGIN { printf "%.2f", a / b }'; }

milliseconds() { awk -v us="$1" 'BEGIN { printf "%.1f ms", us / 1000 }'; }

fail() {
    echo "daemon.sh: $1" >&2
    cat "$folder"/*.log >&2 || true
    exit 1
}

# Runs the command until it works; gives up after ten seconds or when the named process has ended.
wait_for() {
    local name="$1" deadline=$((SECONDS + 10))
    shift
    until "$@" >/dev/null 2>&1; do
        if ! kill -0 "${pids[$name]}" 2>/dev/null || ((SECONDS > deadline)); then
            fail "$name does not come up"
        fi
        read -rt 0.001 -u "$silence" || true
    done
}

free_port() {
    local port
    for ((port = 20000 + RANDOM % 10000; ; port++)); do
        if ! (exec 3<>"/dev/tcp/$address/$port") 2>/dev/null; then
            echo "$port"
            return
        fi
    done
}

make_home() {
    mkdir -p "$home/Config" "$home/HTML"
    printf '[Settings]\nsvrport=81\nListenAddress=%s\n' "$address" >"$home/Config/settings.ini"
    printf '%s\n' "[Velora Utilities]" "HomeseerIP=$address" "ServerPort=$1" "TCPServerOption=0" \
        "SleepMonitorInterval=0" "[Velora Names]" \
        "127.0.0.42/127.0.0.42:9=Kitchen,,,,0,0," "127.0.0.43/127.0.0.43:9=Hall,,,,0,0," \
        "127.0.0.44/127.0.0.44:9=Bedroom,,,,0,0," "[STATUS]" "ShowControl=True" "ShowSetup=True" \
        >"$home/Config/zynVeloraUtilities.ini"
    echo "<html></html>" >"$home/HTML/small.html"
    head -c "$((megabytes * 1000000))" /dev/urandom >"$home/HTML/big.wav"
}

start_daemon() {
    timeout -k 3 120 "$program" serve --home "$home" </dev/null >"$folder/daemon.log" 2>&1 &
    pids[daemon]=$!
}

start_lighttpd() {
    printf '%s\n' "server.document-root = \"$home/HTML\"" "server.bind = \"$address\"" \
        "server.port = $1" 'mimetype.assign = (".wav" => "audio/wav")' >"$folder/lighttpd.conf"
    timeout -k 3 120 lighttpd -D -f "$folder/lighttpd.conf" </dev/null >"$folder/lighttpd.log" 2>&1 &
    pids[lighttpd]=$!
    wait_for lighttpd curl -sf -o /dev/null -r 0-0 "http://$address:$1/big.wav"
}

# Kilobytes of one line of a process's status; `timeout` is the parent of what it runs.
memory() {
    local child
    child="$(pgrep -P "${pids[$1]}")"
    awk -v key="$2:" '$1 == key { print $2 }' "/proc/$child/status"
}

measure_start() {
    local round began
    local -a plain=() up=() answered=()
    for ((round = 0; round < rounds; round++)); do
        began="$(microseconds)"
        "$program" --version >/dev/null
        plain+=($(($(microseconds) - began)))
        began="$(microseconds)"
        start_daemon
        wait_for daemon test -S "$home/control.sock"
        up+=($(($(microseconds) - began)))
        wait_for daemon timeout 5 "$program" status --home "$home"
        answered+=($(($(microseconds) - began)))
        end daemon
    done
    local plain_best up_best answered_best
    plain_best="$(printf '%s\n' "${plain[@]}" | least)"
    up_best="$(printf '%s\n' "${up[@]}" | least)"
    answered_best="$(printf '%s\n' "${answered[@]}" | least)"
    echo "start: --version          $(milliseconds "$plain_best")"
    echo "start: control socket     $(milliseconds "$up_best")  ratio $(ratio "$up_best" "$plain_best")"
    echo "start: status answered    $(milliseconds "$answered_best")  ratio $(ratio "$answered_best" "$plain_best")"
}

measure_memory() {
    local name
    for name in lighttpd daemon; do
        echo "memory: $name VmRSS $(memory "$name" VmRSS) kB, of it its own $(memory "$name" RssAnon) kB"
    done
    echo "memory: daemon/lighttpd   ratio $(ratio "$(memory daemon VmRSS)" "$(memory lighttpd VmRSS)")"
}

check_content() {
    curl -sf --max-time 30 -o "$folder/received" "http://$address:$1/big.wav"
    cmp -s "$folder/received" "$home/HTML/big.wav" || fail "port $1 sent another file"
}

# Prints the microseconds of one download: the whole, and without the time to the first byte.
download() {
    curl -sf --max-time 30 -o /dev/null \
        -w '%{time_total} %{time_starttransfer}\n' "http://$address:$1/big.wav" |
        awk '{ printf "%d %d\n", $1 * 1e6, ($1 - $2) * 1e6 }'
}

measure_serving() {
    local round
    check_content "$1"
    check_content "$2"
    for ((round = 0; round < rounds; round++)); do
        download "$1" >>"$folder/daemon.times"
        download "$2" >>"$folder/lighttpd.times"
    done
    local name column
    local -A best=()
    for name in daemon lighttpd; do
        for column in 1 2; do
            best[$name$column]="$(cut -d ' ' -f "$column" "$folder/$name.times" | least)"
        done
        echo "serving: $name $((megabytes * 1000000 / best[${name}1])) MB/s," \
            "without the time to the first byte $((megabytes * 1000000 / best[${name}2])) MB/s"
    done
    echo "serving: daemon/lighttpd  ratio $(ratio "${best[lighttpd1]}" "${best[daemon1]}")," \
        "without the time to the first byte $(ratio "${best[lighttpd2]}" "${best[daemon2]}")"
}

# Prints the microseconds of so many loads of one page of the daemon, one after the other.
loads() {
    local count="$1" url="http://$address:$2/$3" began
    local -a urls=()
    while ((${#urls[@]} < count)); do
        urls+=("$url")
    done
    began="$(microseconds)"
    curl -sf --max-time 60 "${urls[@]}" >"$folder/pages" || fail "no $3"
    echo $(($(microseconds) - began))
}

# The server takes 50 ms for each request by design; a small file shows them.
measure_status_page() {
    local count=40 page small
    page="$(loads "$count" "$1" status)"
    grep -q 'Velora Units Setup' "$folder/pages" || fail "no setup on the status page"
    small="$(loads "$count" "$1" small.html)"
    echo "status: page with setup   $((count * 1000000 / page)) a second," \
        "a small file $((count * 1000000 / small)) a second, ratio $(ratio "$page" "$small")"
}

daemon_port="$(free_port)"
make_home "$daemon_port"
measure_start
start_daemon
wait_for daemon timeout 5 "$program" status --home "$home"
lighttpd_port="$(free_port)"
start_lighttpd "$lighttpd_port"
measure_memory
measure_serving "$daemon_port" "$lighttpd_port"
measure_status_page "$daemon_port"
