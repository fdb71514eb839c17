#!/usr/bin/env bash
# The Windows tavuhost --window under Wine on a virtual display: a click, a
# right click and a wheel notch reach the panel, and closing the window
# (Alt+F4) ends the run at once. Skipped (status 77) where there is no
# virtual display, no xdotool or no Wine.
# Usage: window_win32.sh HOST EMULATOR DATA_FOLDER
set -u
host=$1 emulator=$2 data=$3

if [ -z "${WINDOW_WIN32_DISPLAY:-}" ]; then
    for tool in xvfb-run xdotool "$emulator"; do
        if ! command -v "$tool" >/dev/null 2>&1; then
            echo "skipped: $tool is not installed, so there is no window to test"
            exit 77
        fi
    done
    WINDOW_WIN32_DISPLAY=1 exec xvfb-run -a "$0" "$@"
fi

scratch=$(mktemp -d) || exit 1
trap 'rm -rf "$scratch"' EXIT
cd "$data" || exit 1
timeout 90 "$emulator" "$host" window_input.xml --window --script window_input.tss \
    >"$scratch/output.txt" 2>"$scratch/errors.txt" &
host_pid=$!
for _ in $(seq 300); do
    grep -q 'ready' "$scratch/output.txt" && break
    sleep 0.2
done
window=""
for _ in $(seq 50); do
    window=$(xdotool search --name '^tavuhost' 2>/dev/null | head -1)
    [ -n "$window" ] && break
    sleep 0.2
done
if [ -n "$window" ]; then
    xdotool windowfocus --sync "$window" mousemove --window "$window" 60 50
    sleep 0.5
    xdotool click 1 && sleep 0.3
    xdotool click 3 && sleep 0.3
    xdotool click 4 && sleep 0.3
    xdotool key alt+F4
fi
wait $host_pid
status=$?

expected="ready
left click at 60,50
right click
wheel 120"
output=$(tr -d '\r' <"$scratch/output.txt")
if [ $status -ne 0 ] || [ "$output" != "$expected" ]; then
    printf 'exit %s\noutput:\n%s\nexpected:\n%s\nerrors:\n' "$status" "$output" "$expected"
    cat "$scratch/errors.txt"
    exit 1
fi
echo "the window took a click, a right click and the wheel, and closing it ended the run"
