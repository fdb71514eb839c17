#!/usr/bin/env bash
# Installs what is missing, builds Linux and Windows, and runs every test: the
# Linux ones under the sanitizers and again optimised, the Windows ones under Wine.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=0
export UBSAN_OPTIONS=print_stacktrace=1

scripts/build.sh linux
scripts/build.sh windows
scripts/build.sh release
source scripts/wine-env.sh

status=0
if [ -x scripts/fuzz-smoke.sh ]; then
    echo "== Fuzzing (short runs) =="
    scripts/fuzz-smoke.sh || status=1
fi
# The optimised build runs the unit tests too: a test that passes only
# without the optimiser (or only under the sanitizers) shows here.
echo "== Linux tests of the optimised build =="
if (cd build/release && ctest --output-on-failure >../release-tests.log 2>&1); then
    grep -E 'tests passed' build/release-tests.log
else
    cat build/release-tests.log
    status=1
fi
echo "== Windows tests (under Wine) =="
(cd build/windows && ctest --output-on-failure) || status=1
echo "== Linux tests (AddressSanitizer, UndefinedBehaviorSanitizer) =="
(cd build/linux && ctest --output-on-failure) || status=1
exit $status
