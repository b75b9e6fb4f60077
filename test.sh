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
# The readers of bytes that the tool did not write (the numeric rule, the
# record files, the tables, the ticket lines, the port strings, the prompt
# dialog's message, the code strings): each of their fuzzers, built above,
# runs 5 seconds from its seeds in fuzz/readers/NAME; a finding lands in
# build-fuzz/ as NAME-crash-... and is to become a seed or a test row.
echo "=== readers' fuzzers ==="
for reader in numeric record_files param_table switch_table ticket_lines port_settings \
    prompt_message code_string; do
    if [ ! -x "build-fuzz/${reader}_fuzzer" ]; then
        status=1
        continue
    fi
    # Absolute paths: the record file fuzzers work in a scratch directory.
    corpus="$PWD/build-fuzz/corpus-$reader" log="$PWD/build-fuzz/$reader.log"
    mkdir -p "$corpus"
    if ASAN_OPTIONS=detect_leaks=0:malloc_context_size=0 "build-fuzz/${reader}_fuzzer" \
        -max_len=8192 -rss_limit_mb=2048 -timeout=10 -max_total_time=5 -print_final_stats=1 \
        -artifact_prefix="$PWD/build-fuzz/$reader-" "$corpus" "$PWD/fuzz/readers/$reader" \
        >"$log" 2>&1; then
        echo "$reader: $(grep -o 'number_of_executed_units: *[0-9]*' "$log") in 5 s"
    else
        tail -40 "$log"
        status=1
    fi
done
exit $status
