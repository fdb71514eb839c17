#!/bin/sh
# Builds the XML fuzz targets with clang in build/fuzz and runs each for a
# short, bounded time over the kept corpus and the regression inputs.
# TAVU_FUZZ_SECONDS changes the time per target (default 30).
set -eu

root=$(cd "$(dirname "$0")/.." && pwd)
build="$root/build/fuzz"
seconds=${TAVU_FUZZ_SECONDS:-30}

CC=clang CXX=clang++ cmake -S "$root" -B "$build" -G Ninja \
    -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTAVU_FUZZ=ON -DTAVU_TESTS=OFF >/dev/null
cmake --build "$build" --target xml_buffer_fuzzer xml_file_fuzzer -j2

for fuzzer in xml_buffer_fuzzer xml_file_fuzzer; do
    work="$build/corpus/$fuzzer"
    mkdir -p "$work"
    echo "== $fuzzer for ${seconds}s"
    "$build/bin/$fuzzer" -max_total_time="$seconds" -max_len=20000 -timeout=10 \
        -rss_limit_mb=2560 -print_final_stats=1 -dict="$root/fuzz/xml.dict" \
        -artifact_prefix="$build/$fuzzer-" \
        "$work" "$root/fuzz/corpus/xml" "$root/tests/data/xml/regress"
done
