#!/usr/bin/env bash
# Builds the normal build (build/) and the address+undefined sanitizer build
# (build-asan/) and runs every test of both with ctest.
set -euo pipefail
cd "$(dirname "$0")"
source tools/deps.sh
ensure_deps
source tools/cups.sh
ensure_pdf_printer

jobs=2
status=0
for variant in build build-asan; do
    options=(-DCMAKE_BUILD_TYPE=RelWithDebInfo)
    [ "$variant" = build-asan ] && options=(-DCMAKE_BUILD_TYPE=Debug -DKALVO_SANITIZE=ON)
    echo "=== $variant ==="
    cmake -S . -B "$variant" -G Ninja "${options[@]}" >/dev/null
    cmake --build "$variant" -j "$jobs"
    # Qt and the system libraries keep a few allocations to the end of the
    # process; the leak checker would report those and not ours.
    ASAN_OPTIONS=detect_leaks=0 ctest --test-dir "$variant" --output-on-failure -j "$jobs" || status=1
done
exit $status
