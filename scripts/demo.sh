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
echo "== tavuhost paints the settings panel example into a picture =="
panel=examples/settings/settings.xml
mkdir -p build/demo
build/linux/bin/tavuhost "$panel" --png build/demo/settings.png

echo
echo "== A script clicks through the panel; its event scripts echo what happens =="
build/linux/bin/tavuhost "$panel" --script examples/settings/demo.tss

# The gallery: one panel per family of controls, each painted into a picture
# and driven by the script of the same name. Each panel brings a look of its
# own and is drawn exactly as its file says, without tavuhost's default look.
for gallery in examples/gallery/*.xml; do
    name=$(basename "$gallery" .xml)
    echo
    echo "== Gallery: $name =="
    build/linux/bin/tavuhost "$gallery" --png "build/demo/$name.png" \
        --script "examples/gallery/$name.tss" --no-default-look
done

echo
echo "== A form with no templates at all, in tavuhost's default look =="
build/linux/bin/tavuhost examples/plain/form.xml --script examples/plain/form.tss \
    --size 480x370 --png build/demo/form.png

echo
echo "Wrote the pictures in $(pwd)/build/demo: open them with any image viewer."
echo "To click, type into and resize a panel in a window (needs a display):"
echo "  build/linux/bin/tavuhost --window $panel"
