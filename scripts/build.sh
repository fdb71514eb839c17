#!/usr/bin/env bash
# Configures and builds one flavour: linux (with AddressSanitizer and
# UndefinedBehaviorSanitizer, as the tests run), windows (MinGW-w64), or
# release (optimised, as the benchmarks and users run it; with its tests), or
# windows-release (optimised MinGW-w64, without tests: what the Windows package holds).
set -euo pipefail
cd "$(dirname "$0")/.."

flavour=${1:-linux}
jobs=${JOBS:-$(nproc)}
case "$flavour" in
    linux)
        cmake -S . -B build/linux -G Ninja -DCMAKE_BUILD_TYPE=Debug -DTAVU_SANITIZE=ON >/dev/null
        ;;
    windows)
        cmake -S . -B build/windows -G Ninja -DCMAKE_BUILD_TYPE=Debug \
            -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64.cmake >/dev/null
        ;;
    release)
        cmake -S . -B build/release -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
        ;;
    windows-release)
        cmake -S . -B build/windows-release -G Ninja -DCMAKE_BUILD_TYPE=Release -DTAVU_TESTS=OFF \
            -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64.cmake >/dev/null
        ;;
    *)
        echo "usage: scripts/build.sh linux|windows|release|windows-release" >&2
        exit 2
        ;;
esac
echo "Building $flavour..."
cmake --build "build/$flavour" -j "$jobs"
