#!/usr/bin/env bash
# Builds the tool and starts it on the demo data directory demo/ of this
# checkout (made on first use). The tool takes the current directory as the
# sales program's data directory, so it is started from inside demo/.
set -euo pipefail
cd "$(dirname "$0")"
source tools/deps.sh
ensure_deps

cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build --target kalvo-periph kalvo-vprinter -j 2

mkdir -p demo
if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ] && [ -z "${QT_QPA_PLATFORM:-}" ]; then
    echo "No display found (DISPLAY and WAYLAND_DISPLAY are empty): start ./run.sh from a desktop session." >&2
    exit 1
fi
cd demo
# The demo has a Wine prefix of its own, whose Com 1 is the virtual ticket
# printer: every ticket printed there appears in its window (and as PNGs in
# demo/tickets). It ends with the tool.
export WINEPREFIX="$PWD/.wine"
../build/bin/kalvo-vprinter --port 1 --out tickets &
printer=$!
trap 'kill "$printer" 2>/dev/null; wait "$printer" 2>/dev/null' EXIT
../build/bin/kalvo-periph
