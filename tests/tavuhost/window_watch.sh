#!/usr/bin/env bash
# tavuhost --window --watch in a real window on a virtual display: a broken
# save keeps the window open and the last good interface on screen, a good
# save replaces it. Skipped (status 77) where there is no virtual display.
# Usage: window_watch.sh HOST DATA_FOLDER SCRATCH_FOLDER
set -u
host=$1 data=$2 scratch=$3

if [ -z "${WINDOW_WATCH_DISPLAY:-}" ]; then
    if ! command -v xvfb-run >/dev/null 2>&1; then
        echo "skipped: xvfb-run is not installed, so there is no display for a window"
        exit 77
    fi
    WINDOW_WATCH_DISPLAY=1 exec xvfb-run -a "$0" "$@"
fi

rm -rf "$scratch" && mkdir -p "$scratch" || exit 1
cp "$data"/live_v1.xml "$data"/live_v2.xml "$data"/live_broken.xml "$data"/window_watch.tss \
   "$data"/textures/red3x2.png "$scratch"/ || exit 1
cd "$scratch" || exit 1

output=$(timeout 60 "$host" live_v1.xml --window --watch --script window_watch.tss 2>errors.txt)
status=$?
expected="panel one
Reload failed: live_v1.xml line 6: </frme> closes <frame> of line 2
200
panel two
Reloaded live_v1.xml
260"
if [ $status -ne 0 ] || [ "$output" != "$expected" ]; then
    printf 'exit %s\noutput:\n%s\nexpected:\n%s\nerrors:\n' "$status" "$output" "$expected"
    cat errors.txt
    exit 1
fi
echo "the window reloaded and kept the last good interface"
