#!/usr/bin/env bash
# Builds the optimised Linux and Windows toolkits and archives each as an SDK:
# build/packages/Tavukit-<version>-linux-x86_64.tar.gz and -win64.zip.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh
scripts/build.sh release
scripts/build.sh windows-release
mkdir -p build/packages
for flavour in release windows-release; do
    (cd "build/$flavour" && cpack -B "$PWD/../packages" >/dev/null)
done
rm -rf build/packages/_CPack_Packages
ls -1 build/packages/Tavukit-*
