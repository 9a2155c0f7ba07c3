# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2154
# Read by the runs of planbook in a real window, which set planbook, dumper and book: a desktop of its own that ends with
# the run, and what a user does on it. Ends the run with 77 where the tools for it are missing.

for tool in Xvfb openbox xdotool; do
    command -v "$tool" >/dev/null || { echo "skipped: $tool is not installed"; exit 77; }
done

folder=$(mktemp -d)
export HOME=$folder XDG_CONFIG_HOME=$folder/config XDG_RUNTIME_DIR=$folder
chmod 700 "$folder"
pids=()
cleanup() {
    for pid in "${pids[@]}"; do
        { kill "$pid" && wait "$pid"; } 2>/dev/null || true
    done
    rm -rf "$folder"
}
trap cleanup EXIT

fail() {
    echo "FAILED: $1"
    [ ! -s "$folder/planbook.log" ] || cat "$folder/planbook.log"
    exit 1
}

# --- A desktop ---

Xvfb -displayfd 3 -screen 0 1600x1000x24 3>"$folder/display" 2>"$folder/xvfb.log" &
pids+=($!)
for _ in $(seq 100); do [ -s "$folder/display" ] && break; sleep 0.1; done
[ -s "$folder/display" ] || fail "Xvfb did not start"
DISPLAY=:$(cat "$folder/display")
export DISPLAY
unset WAYLAND_DISPLAY QT_QPA_PLATFORM QT_SCALE_FACTOR
openbox >"$folder/openbox.log" 2>&1 &
pids+=($!)

# --- The window and the hands ---

# open_book TITLE: starts planbook with the book.
open_book() {
    "$planbook" --light "$book" >"$folder/planbook.log" 2>&1 &
    process=$!
    pids+=("$process")
    window=$(timeout 30 xdotool search --sync --onlyvisible --name "$1.* – planbook" | head -1) ||
        fail "planbook shows no window"
    xdotool windowactivate --sync "$window" 2>/dev/null || xdotool windowfocus --sync "$window"
}

keys() { xdotool key --clearmodifiers --delay 40 "$@"; }

# wait_for PATTERN WHAT: until a line of the book matches.
wait_for() {
    for _ in $(seq 100); do
        "$dumper" "$book" >"$folder/now" && grep -qE "$1" "$folder/now" && return
        sleep 0.1
    done
    fail "$2; the book holds $(grep -E "${1%% [0-9\"]*}" "$folder/now" | head -3)"
}

click() { xdotool mousemove --window "$window" "$1" "$2" sleep 0.2 click "${@:3}" 1; }
