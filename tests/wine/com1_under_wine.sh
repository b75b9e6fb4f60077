#!/usr/bin/env bash
# A Windows program prints a ticket on COM1 under Wine while kalvo-vprinter
# serves Com 1 of the same fresh prefix, Wine being started after the printer:
# the printer must draw that ticket, and put the prefix back as it was when it
# ends. The machine's own serial ports are hidden behind /dev/null in a mount
# namespace of the test's own, so that a port mapped wrong prints nowhere real.
# Usage: com1_under_wine.sh KALVO_VPRINTER COM1_TICKET_EXE
set -euo pipefail
vprinter=$1
program=${2:-}
wine=$(command -v wine || command -v wine64 || true)
if [ -z "$wine" ] || [ -z "$program" ] || ! command -v wineserver >/dev/null; then
    echo "SKIP: Wine or x86_64-w64-mingw32-gcc is missing (tools/deps.sh installs them)"
    exit 77
fi

if [ "${KALVO_PORTS_HIDDEN:-}" != 1 ]; then
    # A user other than root gets a namespace of his own where he may mount.
    own=()
    [ "$(id -u)" = 0 ] || own=(--map-root-user)
    exec unshare "${own[@]}" --mount --propagation private \
        env KALVO_PORTS_HIDDEN=1 "$0" "$@"
fi
fail() { echo "FAIL: $*" >&2; exit 1; }
set -E
trap 'echo "FAIL: line $LINENO: $BASH_COMMAND" >&2' ERR
shopt -s nullglob
for device in /dev/ttyS* /dev/ttyUSB* /dev/ttyACM*; do
    mount --bind /dev/null "$device"
    [ "$(stat -c %t:%T "$device")" = "$(stat -c %t:%T /dev/null)" ] ||
        fail "$device is still a serial port"
done

work=$(mktemp -d)
printer=
cleanup() {
    [ -n "$printer" ] && kill "$printer" 2>/dev/null && wait "$printer" 2>/dev/null
    wineserver -k 2>/dev/null || true
    rm -rf "$work"
}
trap cleanup EXIT
export WINEPREFIX=$work/prefix WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
unset DISPLAY WAYLAND_DISPLAY
reg=$WINEPREFIX/system.reg
com1=$WINEPREFIX/dosdevices/com1
ports_value() { sed -n '/^\[Software\\\\Wine\\\\Ports\]/,/^\[/p' "$reg" | grep -i '^"COM1"=' || true; }

# One ticket printed while the printer serves Com 1, Wine started after it;
# then the link, and the registry once Wine has ended, as they were.
print_one_ticket() {
    local round=$1 link_before value_before device
    link_before=$(readlink "$com1" || true)
    value_before=$(ports_value 2>/dev/null || true)
    QT_QPA_PLATFORM=offscreen "$vprinter" --port 1 --out "$work/tickets-$round" \
        >"$work/printer.out" 2>"$work/printer.err" &
    printer=$!
    for _ in $(seq 300); do
        grep -q "prêt" "$work/printer.out" && break
        kill -0 "$printer" 2>/dev/null || fail "the printer ended: $(cat "$work/printer.err")"
        sleep 0.1
    done
    grep -q "prêt" "$work/printer.out" || fail "the printer is not ready"
    device=$(readlink "$com1") || fail "no com1 link while the printer runs"
    [ "$(ports_value)" = "\"COM1\"=\"$device\"" ] || fail "COM1 of the registry: $(ports_value)"

    SECONDS=0
    # Wine's server inherits the program's error output, and may say much there.
    "$wine" "$program" COM1 2>"$work/program.err" ||
        fail "the Windows program could not print on COM1: $(cat "$work/program.err")"
    echo "$round: the Windows program printed in ${SECONDS} s"
    [ "$(readlink "$com1")" = "$device" ] || fail "Wine took com1 to $(readlink "$com1")"
    kill -TERM "$printer" 2>/dev/null ||
        fail "the printer ended before it was asked to: $(cat "$work/printer.err")"
    wait "$printer" || fail "the printer ended with an error: $(cat "$work/printer.err")"
    printer=

    local tickets=("$work/tickets-$round"/ticket-*.txt)
    [ ${#tickets[@]} = 1 ] || fail "${#tickets[@]} tickets drawn"
    for line in '[PC850] "Café crème brûlée"' '"Wine COM1"' 'coupe partielle (1D 56 42 00)'; do
        grep -qF "$line" "${tickets[0]}" || fail "the ticket lacks $line: $(cat "${tickets[0]}")"
    done
    [ "$(readlink "$com1" || true)" = "$link_before" ] || fail "com1 not put back"
    wineserver -w || true  # its status says nothing of the registry, read next
    [ "$(ports_value)" = "$value_before" ] || fail "COM1 of the registry not put back: $(ports_value)"
}

# A prefix that does not exist yet: the printer makes it, Wine's first start
# sets it up (and is still running when the printer ends).
print_one_ticket new-prefix
# The prefix that Wine has made, no Wine running when the printer starts.
print_one_ticket wine-prefix
echo "PASS"
