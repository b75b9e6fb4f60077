#!/usr/bin/env bash
# The Debian package as a till gets it: made by cpack from the build, its
# dependencies only runtime packages, unpacked into a clean folder, and the
# installed program started in an empty data directory under a virtual X
# server: it creates its files, shows its first screen, and its USB
# libraries load by name from its own folder.
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
grep -q '^Exec=kalvo-periph$' "$desktop" && grep -q '^Path=' "$desktop" ||
    { echo "FAIL: desktop entry" >&2; exit 1; }

# The USB stand-ins, by name, from the folder the link resolves to.
"$probe" "$(dirname "$program")"

# A first start in an empty directory, on a virtual display.
data=$work/data
mkdir -p "$data"
cd "$data"
export DISPLAY=:$((90 + RANDOM % 100))
Xvfb "$DISPLAY" -screen 0 1280x1024x24 -nolisten tcp >/dev/null 2>&1 &
pids+=($!)
for _ in $(seq 50); do xwininfo -root >/dev/null 2>&1 && break; sleep 0.1; done
env -u QT_QPA_PLATFORM QT_QPA_PLATFORM=xcb "$root/usr/bin/kalvo-periph" &
tool_pid=$!
pids+=("$tool_pid")
shown=""
for _ in $(seq 100); do
    shown=$(xwininfo -root -tree 2>/dev/null | grep '"kalvo-periph" "kalvo-periph"' | head -n 1 || true)
    [ -n "$shown" ] && break
    kill -0 "$tool_pid" 2>/dev/null || { echo "FAIL: the program ended" >&2; exit 1; }
    sleep 0.1
done
[ -n "$shown" ] || { echo "FAIL: no window shown" >&2; exit 1; }
echo "first screen: $(sed 's/^ *//' <<<"$shown")"
[ "$(stat -c %s WFICH142.WDO)" = 4020 ] || { echo "FAIL: WFICH142.WDO" >&2; exit 1; }
[ "$(stat -c %s switch63.wdo)" = 1024 ] || { echo "FAIL: switch63.wdo" >&2; exit 1; }
[ -e w_cai020.wdo ] || { echo "FAIL: w_cai020.wdo" >&2; exit 1; }
echo "files: $(ls | tr '\n' ' ')"
