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
# The ESC/POS decoder's fuzzer: a clang build of its own (libFuzzer with the
# address and undefined-behaviour sanitizers), run for a few seconds from the
# tool's own tickets. Its findings, if any, land in build-fuzz/.
echo "=== build-fuzz ==="
if cmake -S fuzz -B build-fuzz -G Ninja -DCMAKE_CXX_COMPILER=clang++ >/dev/null &&
    cmake --build build-fuzz -j "$jobs"; then
    mkdir -p build-fuzz/corpus
    ASAN_OPTIONS=detect_leaks=0:malloc_context_size=0:quarantine_size_mb=16 build-fuzz/escpos_fuzzer \
        -entropic=0 -max_len=1024 -rss_limit_mb=2048 -timeout=10 -max_total_time=15 \
        -artifact_prefix=build-fuzz/ build-fuzz/corpus fuzz/seeds || status=1
else
    status=1
fi
exit $status
