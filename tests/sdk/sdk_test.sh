#!/usr/bin/env bash
# The SDK as an author meets it: install the build into a fresh prefix, check
# what is there (and what is not), compile every public header on its own, and
# build the example host and the example element module out of tree against
# the installed package, then run them together.
#
#   sdk_test.sh SOURCE_DIR BUILD_DIR linux|windows "INTERNAL_HEADERS"
set -euo pipefail
source_dir=$1
build_dir=$2
platform=$3
internal_headers=${4//;/ } # a CMake list

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix=$work/prefix
failures=0
fail() {
    echo "FAIL: $*"
    failures=$((failures + 1))
}

cmake --install "$build_dir" --prefix "$prefix" >/dev/null
include=$prefix/include/tavukit

# What the package holds, per platform.
if [ "$platform" = windows ]; then
    exe=.exe
    module=$prefix/bin/Tavukit.dll
    expected="bin/Tavukit.dll lib/libTavukit.dll.a bin/tavuhost.exe bin/tavuxml.exe"
    cxx=x86_64-w64-mingw32-g++-posix
    toolchain=(-DCMAKE_TOOLCHAIN_FILE="$source_dir/cmake/mingw-w64.cmake")
    run=("${CMAKE_CROSSCOMPILING_EMULATOR:-wine}")
    element_module=colorswatch.dll
else
    exe=
    module=$prefix/lib/libtavukit.so
    expected="lib/libtavukit.so bin/tavuhost bin/tavuxml lib/pkgconfig/tavukit.pc"
    cxx=g++
    toolchain=()
    run=()
    element_module=libcolorswatch.so
fi
expected="$expected lib/cmake/Tavukit/TavukitConfig.cmake
    lib/cmake/Tavukit/TavukitConfigVersion.cmake lib/cmake/Tavukit/TavukitTargets.cmake
    include/tavukit/TavukitModule.h include/tavukit/HostInterface.h include/tavukit/CUIManager.h
    include/tavukit/TAVUFactory.h include/tavukit/RXTypeDefinition.h include/tavukit/XMLNode.h
    share/doc/tavukit/README.md share/doc/tavukit/controls.md
    share/tavukit/examples/host/main.cpp share/tavukit/examples/modules/ColorSwatch.cpp"
for file in $expected; do
    [ -e "$prefix/$file" ] || fail "the package lacks $file"
done

# Internal headers stay inside; none of them may declare an exported class,
# and every other header of the tree is installed.
for name in $internal_headers; do
    [ ! -e "$include/$name" ] || fail "internal header $name is installed"
    if grep -q TAVU_API $(find "$source_dir/src" -name "$name"); then
        fail "internal header $name declares exports"
    fi
done
for header in $(find "$source_dir/src" -name '*.h'); do
    name=$(basename "$header")
    case " $internal_headers " in *" $name "*) continue ;; esac
    [ -e "$include/$name" ] || fail "public header $name is not installed"
done

# Each public header compiles alone, against the install tree only.
compile_alone() {
    echo "#include \"$(basename "$1")\"" |
        "$cxx" -std=c++17 -fsyntax-only -Wall -I"$include" -x c++ - 2>&1 | head -5
}
export -f compile_alone
export cxx include
broken=$(find "$include" -name '*.h' -print0 | xargs -0 -P 2 -I{} bash -c 'compile_alone "$1"' _ {})
[ -z "$broken" ] || fail "a public header does not compile alone:
$broken"

# pkg-config gives what a program that links the module needs.
if [ "$platform" = linux ]; then
    export PKG_CONFIG_PATH=$prefix/lib/pkgconfig
    version=$(pkg-config --modversion tavukit)
    grep -q "VERSION $version " "$source_dir/CMakeLists.txt" || fail "tavukit.pc says version $version"
    printf '#include "CUIManager.h"\nint main() { return &g_UIManager ? 0 : 1; }\n' >"$work/linked.cpp"
    # shellcheck disable=SC2046
    if "$cxx" "$work/linked.cpp" -o "$work/linked" $(pkg-config --cflags --libs tavukit) &&
        LD_LIBRARY_PATH=$prefix/lib "$work/linked"; then :; else
        fail "a program built with pkg-config does not link or run"
    fi
fi

# The example host and element module, built out of tree against the package.
for example in host modules; do
    if ! cmake -S "$source_dir/examples/$example" -B "$work/$example" -G Ninja \
        -DCMAKE_PREFIX_PATH="$prefix" "${toolchain[@]}" >"$work/$example.log" 2>&1 ||
        ! cmake --build "$work/$example" >>"$work/$example.log" 2>&1; then
        cat "$work/$example.log"
        fail "the $example example does not build against the package"
    fi
done
[ "$failures" -eq 0 ] || exit 1

expect() { # expect WHAT OUTPUT LINE...
    local what=$1 output=$2
    shift 2
    for line in "$@"; do
        grep -qF -- "$line" <<<"$output" || fail "$what: no line '$line' in:
$output"
    done
}
cd "$source_dir/examples"
hello=$("${run[@]}" "$work/host/examplehost$exe" "$module" host/hello.xml --click 140,76 2>&1)
expect "hello" "$hello" "Tavukit 0" "Hello from a host of your own" "echo: OK was clicked"
swatches=$("${run[@]}" "$work/host/examplehost$exe" "$module" modules/swatches.xml \
    "$work/modules/$element_module" --click 50,50 2>&1)
expect "swatches" "$swatches" "fill 21,21,79,79 FFC0392B" "echo: Red was clicked"

# The installed reference host finds the installed module, and takes the
# out-of-tree element module as it takes its own.
clicked=$("${run[@]}" "$prefix/bin/tavuhost$exe" --module "$work/modules/$element_module" \
    modules/swatches.xml -e "UIElement[Red]:LeftClick" 2>&1)
expect "tavuhost" "$clicked" "Red was clicked at 60,60"

[ "$failures" -eq 0 ] && echo "SDK: package, headers and out-of-tree examples OK"
exit $((failures > 0))
