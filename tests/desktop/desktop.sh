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

# until_true WHAT COMMAND...: until the command succeeds, at most for as long as a busy machine may need.
until_true() {
    for _ in $(seq 300); do "${@:2}" && return; sleep 0.1; done
    fail "$1"
}

# --- A desktop ---

Xvfb -displayfd 3 -screen 0 1600x1000x24 3>"$folder/display" 2>"$folder/xvfb.log" &
pids+=($!)
until_true "Xvfb did not start" test -s "$folder/display"
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
    until_true "planbook's window does not come to rest" is_at_rest "$window"
}

# is_at_rest WINDOW: it has the focus, and is where and as large as it was a moment ago.
is_at_rest() {
    local place before=${rest[$1]:-}
    place=$(xdotool getwindowgeometry --shell "$1") || return 1
    rest[$1]=$place
    [ "$place" = "$before" ] && [ "$(xdotool getwindowfocus)" = "$1" ]
}
declare -A rest=()

# windows: those of planbook that can be seen, popups and dialogs among them.
windows() { { xdotool search --onlyvisible --pid "$process" || true; } 2>/dev/null | sort; }

# with_popup WHAT COMMAND...: the command, until the popup or submenu that it opens is there.
with_popup() {
    windows >"$folder/windows"
    "${@:2}"
    until_true "$1 does not open" is_popup_new
}
is_popup_new() {
    local new
    new=$(windows | comm -13 "$folder/windows" -)
    popups+=" $new"
    [ -n "$new" ]
}
popups=

# chosen COMMAND...: the command, which chooses in a popup, until all popups are gone.
chosen() {
    "$@"
    until_true "a popup stays open" are_popups_gone
}
are_popups_gone() {
    local open
    # shellcheck disable=SC2086  # several words
    open=$(printf '%s\n' $popups | sort | comm -12 - <(windows))
    [ -z "$open" ]
}

# until_dialog NAME: until a window with this name is open and at rest.
until_dialog() {
    dialog=$(timeout 30 xdotool search --sync --onlyvisible --name "$1" | head -1) || fail "there is no window $1"
    until_true "the window $1 does not come to rest" is_at_rest "$dialog"
}

# entered: of a list of TAB and TAB_OLD the cells of the sample book that no formula computes.
entered() { grep -vE '^TAB [0-9]+: (1|2|3|6|9|10|11|23) '; }

keys() { xdotool key --clearmodifiers --delay 40 "$@"; }

# wait_for PATTERN WHAT: until a line of the book matches.
wait_for() {
    for _ in $(seq 300); do
        "$dumper" "$book" >"$folder/now" && grep -qE "$1" "$folder/now" && return
        sleep 0.1
    done
    fail "$2; the book holds $(grep -E "${1%% [0-9\"]*}" "$folder/now" | head -3)"
}

move_to() { xdotool mousemove --window "$window" "$1" "$2"; }
click() { move_to "$1" "$2"; xdotool click "${@:3}" 1; }

# drag X Y X Y...: presses the button at the first place and lets it go at the last one.
drag() {
    move_to "$1" "$2"
    xdotool mousedown 1
    for ((i = 3; i < $#; i += 2)); do move_to "${!i}" "${@:i+1:1}"; done
    xdotool mouseup 1
}

# --- Workbooks ---

is_alone() { [ "$(windows)" = "$window" ]; }
corner() { move_to 70 60; xdotool click 3; }
its_excel() { xdotool mousemove_relative 60 163 click 1; }
excel() { # NUMBER TITLE: the popup of the corner, Microsoft Excel, its entry with this number, which opens this dialog
    until_true "a window is still open" is_alone
    with_popup "the popup of the corner" corner
    with_popup "the submenu Microsoft Excel" its_excel
    # shellcheck disable=SC2046  # several words
    keys $(for _ in $(seq "$1"); do echo Down; done) Return
    until_dialog "$2"
}
