#!/usr/bin/env bash
# Installs the Debian package into a clean root of the same Debian, starts the daemon there as its
# user, asks it, upgrades, removes and purges it. Needs root, and the Debian mirror.
#
#   tests/package/install.sh PACKAGE.deb
set -euo pipefail

package="$(realpath "${1:?usage: tests/package/install.sh PACKAGE.deb}")"
readonly package
root="$(mktemp -d "${TMPDIR:-/tmp}/zynvelora_root_XXXXXX")"
readonly root
chmod 755 "$root"  # the daemon's user lives in it
daemon=''

say() { printf '== %s\n' "$*"; }

fail() {
    printf 'install.sh: %s\n' "$*" >&2
    cat "$root/tmp/daemon.log" >&2 2>/dev/null || true
    exit 1
}

readonly enter=(chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8)
readonly become=(setpriv --reuid=zynvelora --regid=zynvelora --clear-groups)

in_root() { "${enter[@]}" "$@"; }

as_daemon() { in_root "${become[@]}" "$@"; }

# shellcheck disable=SC2317  # called by a trap
clean_up() {
    if [[ -n $daemon ]]; then
        kill "$daemon" 2>/dev/null || true
    fi
    rm -rf --one-file-system "$root"
}
trap clean_up EXIT

start_daemon() {
    : >"$root/tmp/daemon.log"
    "${enter[@]}" "${become[@]}" timeout -k 5 120 zynvelora serve >"$root/tmp/daemon.log" 2>&1 &
    daemon=$!
    for ((tries = 0; tries < 200; tries++)); do
        if grep -q 'zynvelora is up' "$root/tmp/daemon.log"; then
            return
        fi
        sleep 0.1
    done
    fail 'the daemon does not come up'
}

stop_daemon() {
    kill "$daemon"
    wait "$daemon" || true
    daemon=''
}

say 'Making a clean root'
debootstrap --variant=minbase --include=adduser,ca-certificates bookworm "$root" >"$root.log" 2>&1 ||
    { tail -n 5 "$root.log" >&2; fail 'no clean root'; }
rm -f "$root.log"

say 'Installing the package'
cp "$package" "$root/tmp/zynvelora.deb"
in_root apt-get install -q -y --no-install-recommends /tmp/zynvelora.deb >"$root/tmp/apt.log" 2>&1 ||
    { tail -n 20 "$root/tmp/apt.log" >&2; fail 'the package cannot be installed'; }
[[ $(in_root stat -c %U:%a /var/lib/zynvelora) == zynvelora:750 ]] || fail 'the home has other rights'
in_root sh -c 'test -r /usr/share/man/man1/zynvelora.1* && test -r /lib/systemd/system/zynvelora.service' ||
    fail 'man page or service is missing'

say 'Starting the daemon as its user'
start_daemon
as_daemon zynvelora status | grep -q 'role   normal' || fail 'no status'
as_daemon zynvelora setup --set FontColor=red | grep -q saved || fail 'nothing is saved'
in_root zynvelora call VeloraWavTime nothing.wav >/dev/null || fail 'no operation'
as_daemon zynvelora status | grep -q '127.0.0.21' && fail 'a house of strangers has simulated units'
stop_daemon

say 'Upgrading: the settings stay'
in_root dpkg -i /tmp/zynvelora.deb >"$root/tmp/apt.log" 2>&1 || fail 'no upgrade'
start_daemon
as_daemon grep -q 'FontColor="red"' /var/lib/zynvelora/Config/zynVeloraUtilities.ini ||
    fail 'the upgrade has lost a setting'
stop_daemon

say 'Removing and purging'
in_root dpkg -r zynvelora >"$root/tmp/apt.log" 2>&1 || fail 'no removal'
[[ -e $root/var/lib/zynvelora/Config/zynVeloraUtilities.ini ]] || fail 'the removal has lost the home'
in_root dpkg -P zynvelora >"$root/tmp/apt.log" 2>&1 || fail 'no purge'
[[ ! -e $root/var/lib/zynvelora ]] || fail 'the purge has left the home'
say 'The package installs, runs, upgrades and goes'
