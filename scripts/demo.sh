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
