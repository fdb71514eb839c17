#!/usr/bin/env bash
# Installs what is missing, builds, and shows the toolkit at work.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh
scripts/build.sh linux
echo
echo "== A host loads the module, builds a small tree and renders it =="
build/linux/bin/tavuboundary build/linux/lib/libtavukit.so build/linux/lib/libtavuboundary_elements.so \
    build/linux/lib/libcolorswatch.so examples/modules/swatches.xml

echo
echo "== tavuhost paints an interface file into a picture =="
# The example to show; the settings panel will take its place once its controls exist.
example=(--module colorswatch examples/modules/swatches.xml)
mkdir -p build/demo
build/linux/bin/tavuhost "${example[@]}" -e "mouse move 50 50" --png build/demo/interface.png
echo "Wrote $(pwd)/build/demo/interface.png: open it with any image viewer."
echo "To click, type into and resize it in a window (needs a display):"
echo "  build/linux/bin/tavuhost --window ${example[*]}"
