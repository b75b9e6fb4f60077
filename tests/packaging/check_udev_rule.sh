#!/usr/bin/env bash
# The package's udev rule, run by udev's own rule engine (udevadm test) on
# USB devices faked by umockdev: a printer (interface 07/01) gets the lp
# group, mode 0660 and the uaccess tag; a keyboard keeps what it had.
# udevadm test reads its rules from fixed folders and writes its database
# under /run/udev, so it runs in a private mount namespace with a /run of its
# own: root only; skipped (77) elsewhere.
set -euo pipefail
rule=$1
here=$(cd "$(dirname "$0")" && pwd)
if [ "$(id -u)" != 0 ] || ! command -v udevadm >/dev/null || ! unshare -m true 2>/dev/null; then
    echo "skipped: needs root, udevadm and a mount namespace"
    exit 77
fi

verdict() {
    unshare -m bash -c '
        mount -t tmpfs none /run
        mkdir -p /run/udev/rules.d
        [ -z "$2" ] || cp "$2" /run/udev/rules.d/
        umockdev-run -d "$1" -- udevadm test --action=add \
            /sys/devices/pci0000:00/0000:00:14.0/usb1/1-1 2>&1' _ "$1" "$2" |
        grep -E '^TAGS=|^ID_USB_INTERFACES=|rules:[0-9]+ (GROUP|MODE)' |
        sed -E 's/^.*rules:[0-9]+ //; s/^TAGS=(.*)/uaccess:\1/; s/^uaccess:.*:uaccess:.*/uaccess: yes/; s/^uaccess::.*/uaccess: no/' |
        sort | tr '\n' ' '
}

check() {
    local got
    got=$(verdict "$here/udev/$1.umockdev" "$2")
    echo "$1 $3: $got"
    [ "$got" = "$4" ] || { echo "FAIL: expected $4" >&2; exit 1; }
}
check usb-printer "" "without the rule" "ID_USB_INTERFACES=:070102: uaccess: no "
check usb-printer "$rule" "with the rule" "GROUP 7 ID_USB_INTERFACES=:070102: MODE 0660 uaccess: yes "
check usb-keyboard "$rule" "with the rule" "ID_USB_INTERFACES=:030101: uaccess: no "
