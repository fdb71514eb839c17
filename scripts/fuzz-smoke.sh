#!/bin/sh
# Builds the fuzz targets with clang in build/fuzz and runs each for a short,
# bounded time over its kept corpus and regression inputs.
# TAVU_FUZZ_SECONDS changes the time per target (default 30).
set -eu

root=$(cd "$(dirname "$0")/.." && pwd)
build="$root/build/fuzz"
seconds=${TAVU_FUZZ_SECONDS:-30}

CC=clang CXX=clang++ cmake -S "$root" -B "$build" -G Ninja \
    -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTAVU_FUZZ=ON -DTAVU_TESTS=OFF >/dev/null
cmake --build "$build" --target xml_buffer_fuzzer xml_file_fuzzer interface_fuzzer -j2

# fuzzer dictionary corpus-folders...
run() {
    fuzzer=$1 dict=$2
    shift 2
    work="$build/corpus/$fuzzer"
    mkdir -p "$work"
    echo "== $fuzzer for ${seconds}s"
    # The fuzzer's running commentary goes to a log; the run shows its summary,
    # and the end of the log when it finds something.
    log="$build/$fuzzer.log"
    if "$build/bin/$fuzzer" -max_total_time="$seconds" -max_len=20000 -timeout=10 \
        -rss_limit_mb=2560 -print_final_stats=1 -dict="$root/fuzz/$dict" \
        -artifact_prefix="$build/$fuzzer-" "$work" "$@" >"$log" 2>&1; then
        grep -E '^(Done|stat::number_of_executed_units|stat::new_units_added)' "$log" || true
    else
        tail -n 80 "$log"
        echo "$fuzzer found a failing input: see $build/$fuzzer-*"
        exit 1
    fi
}

run xml_buffer_fuzzer xml.dict "$root/fuzz/corpus/xml" "$root/tests/data/xml/regress"
run xml_file_fuzzer xml.dict "$root/fuzz/corpus/xml" "$root/tests/data/xml/regress"
run interface_fuzzer interface.dict "$root/fuzz/corpus/interface" "$root/tests/data/manager/regress"
