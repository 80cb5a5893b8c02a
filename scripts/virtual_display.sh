# shellcheck shell=bash
# Gives the script an X display of its own, with a window manager, on a free display number.
# This file is sourced after processes.sh.

# Its size in pixels is given as WIDTHxHEIGHT.
start_virtual_display() {
    start_x_server "$1"
    start_window_manager
    unset WAYLAND_DISPLAY QT_QPA_PLATFORM
}

start_x_server() {
    local size=$1 number_file
    number_file=$(mktemp)
    start_process Xvfb -displayfd 3 -screen 0 "${size}x24" -nolisten tcp -noreset \
        3>"$number_file" 2>/dev/null
    if ! wait_until 20 "$(last_started)" test -s "$number_file"; then
        echo "The virtual display does not start; it is made by Xvfb." >&2
        exit 1
    fi
    DISPLAY=:$(<"$number_file")
    export DISPLAY
    rm -f "$number_file"
}

start_window_manager() {
    start_process openbox >/dev/null 2>&1
    if ! wait_until 20 "$(last_started)" has_window_manager; then
        echo "The window manager does not start; it is openbox, and xprop looks for it." >&2
        exit 1
    fi
}

has_window_manager() {
    [[ $(xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null) == *"window id"* ]]
}

# Whether the window manager manages any window.
has_open_window() {
    [[ $(xprop -root _NET_CLIENT_LIST 2>/dev/null) == *"window id # 0x"* ]]
}
