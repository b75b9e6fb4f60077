#!/usr/bin/env bash
# The Debian package as a till gets it: made by cpack from the build, with
# nothing for lintian to say, its dependencies only runtime packages,
# unpacked into a clean folder. Under a virtual X server the menu entry's
# launcher first asks for the data directory, then, once it is set, becomes
# the program in the sales program's folder under a Wine prefix: it creates
# its files there and shows its first screen; a launch word left in the
# mailbox is consumed through it as when the program is started directly.
# The USB libraries load by name from the program's own folder.
set -euo pipefail
build=$1
probe=$2
work=$(mktemp -d)
pids=()
cleanup() {
    [ "${#pids[@]}" -gt 0 ] && kill "${pids[@]}" 2>/dev/null
    rm -rf "$work"
}
trap cleanup EXIT

cd "$build"
cpack -G DEB >"$work/cpack.log" 2>&1 || { cat "$work/cpack.log"; exit 1; }
deb=$(ls -t "$build"/kalvo-periph_*.deb | head -n 1)
echo "package: $(basename "$deb") ($(stat -c %s "$deb") bytes)"

# Debian's own profile, as a till's administrator would run it. Any error
# or warning fails; there are no overrides.
lint=0
lintian --fail-on error,warning "$deb" >"$work/lintian.log" 2>&1 || lint=$?
grep -v 'running with root privileges' "$work/lintian.log" || true
[ "$lint" = 0 ] || { echo "FAIL: lintian" >&2; exit 1; }
echo "lintian: no error, no warning"

depends=$(dpkg-deb -f "$deb" Depends)
echo "depends: $depends"
if grep -qE -- '-dev\b|(^|[ ,])(cmake|ninja-build|g\+\+|gcc|clang|build-essential)\b' <<<"$depends"; then
    echo "FAIL: the package depends on build packages" >&2
    exit 1
fi
for wanted in libqt6widgets6 libqt6serialport6 libqt6printsupport6 libusb-1.0-0 fonts-liberation; do
    grep -q "$wanted" <<<"$depends" || { echo "FAIL: $wanted missing from Depends" >&2; exit 1; }
done

root=$work/root
dpkg -x "$deb" "$root"
program=$(readlink -f "$root/usr/bin/kalvo-periph")
[ "$program" = "$root/usr/lib/kalvo-periph/kalvo-periph" ] ||
    { echo "FAIL: /usr/bin/kalvo-periph leads to $program" >&2; exit 1; }
desktop=$root/usr/share/applications/kalvo-periph.desktop
launcher=/usr/lib/kalvo-periph/kalvo-periph-launcher
grep -qx "Exec=$launcher" "$desktop" && ! grep -q '^Path=' "$desktop" && [ -x "$root$launcher" ] ||
    { echo "FAIL: desktop entry" >&2; exit 1; }
rule=$root/usr/lib/udev/rules.d/60-kalvo-periph-usb-printers.rules
grep -q 'ENV{ID_USB_INTERFACES}=="\*:0701\*".*GROUP="lp".*TAG+="uaccess"' "$rule" ||
    { echo "FAIL: udev rule" >&2; exit 1; }

# The USB stand-ins, by name, from the folder the link resolves to.
"$probe" "$(dirname "$program")"

# A till user whose sales program keeps its data under a Wine prefix.
export HOME=$work/home XDG_CONFIG_HOME=$work/home/.config
unset WINEPREFIX
data=$HOME/.wine/drive_c/Caisse/Data
mkdir -p "$data"
: >"$data/w_cai020.wdo"
export DISPLAY=:$((90 + RANDOM % 100))
Xvfb "$DISPLAY" -screen 0 1280x1024x24 -nolisten tcp >/dev/null 2>&1 &
pids+=($!)
for _ in $(seq 50); do xwininfo -root >/dev/null 2>&1 && break; sleep 0.1; done
export -n QT_QPA_PLATFORM
export QT_QPA_PLATFORM=xcb

# Waits for a window of the class given; fails when the process ends first.
window_of() {
    local class=$1 pid=$2 shown=""
    for _ in $(seq 100); do
        shown=$(xwininfo -root -tree 2>/dev/null | grep "\"$class\" \"$class\"" | head -n 1 || true)
        [ -n "$shown" ] && { sed 's/^ *//' <<<"$shown"; return 0; }
        kill -0 "$pid" 2>/dev/null || { echo "FAIL: $class ended" >&2; return 1; }
        sleep 0.1
    done
    echo "FAIL: no window of $class" >&2
    return 1
}

# Nothing set yet: the launcher asks, and starts nothing meanwhile.
"$root$launcher" &
asking=$!
pids+=("$asking")
echo "question: $(window_of kalvo-periph-launcher "$asking")"
[ ! -e "$data/WFICH142.WDO" ] || { echo "FAIL: started before the answer" >&2; exit 1; }
kill "$asking"

# The answer as the launcher keeps it: it becomes the program in that folder.
mkdir -p "$XDG_CONFIG_HOME/kalvo-periph"
echo "$data" >"$XDG_CONFIG_HOME/kalvo-periph/data-dir"
cd "$work"
"$root$launcher" &
tool_pid=$!
pids+=("$tool_pid")
echo "first screen: $(window_of kalvo-periph "$tool_pid")"
[ "$(readlink -f /proc/$tool_pid/exe)" = "$program" ] &&
    [ "$(readlink -f /proc/$tool_pid/cwd)" = "$(readlink -f "$data")" ] ||
    { echo "FAIL: the launcher did not become the program in $data" >&2; exit 1; }
cd "$data"
[ "$(stat -c %s WFICH142.WDO)" = 4020 ] || { echo "FAIL: WFICH142.WDO" >&2; exit 1; }
[ "$(stat -c %s switch63.wdo)" = 1024 ] || { echo "FAIL: switch63.wdo" >&2; exit 1; }
[ -s w_cai020.wdo ] || { echo "FAIL: w_cai020.wdo" >&2; exit 1; }
echo "files in $data: $(ls | tr '\n' ' ')"

# A launch word left by the sales program works the same through the
# launcher: "#BALANCE#" only consumes itself, and the program ends.
kill "$tool_pid"
wait "$tool_pid" 2>/dev/null || true
printf '%-20s' '#BALANCE#' | dd of=WFICH142.WDO bs=20 seek=194 conv=notrunc status=none
cd "$work"
timeout 30 "$root$launcher" || { echo "FAIL: the launch word did not end the program" >&2; exit 1; }
[ "$(dd if="$data/WFICH142.WDO" bs=20 skip=194 count=1 status=none)" = "$(printf '%20s' '')" ] ||
    { echo "FAIL: record 195 not cleared" >&2; exit 1; }
echo "launch word #BALANCE# through the launcher: consumed, program ended"
