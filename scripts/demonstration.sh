# shellcheck shell=bash
# Starts Lookfar on the demonstration cameras and drives its windows with real clicks and keys.
# This file is sourced, after packages.sh, processes.sh and virtual_display.sh, in the folder of
# the sources.

install_demonstration_packages() {
    install_build_packages
    install_virtual_display_packages
    install_missing_packages imagemagick xdotool
}

build_demonstration() {
    cmake --preset release
    cmake --build --preset release --target lookfar lookfar-cameras
}

# Starts the demonstration cameras, and writes a list of the first few of them into the folder.
start_demonstration_cameras() {
    local folder=$1 port=$2 cameras=$3
    : >"$folder/cameras.log"
    start_process build/release/demo/lookfar-cameras --port "$port" --list "$folder/all.inf" \
        >"$folder/cameras.log"
    wait_until 20 "$(last_started)" test -s "$folder/cameras.log"
    head -n $((2 * cameras)) "$folder/all.inf" >"$folder/Cams.inf"
}

start_demonstration() {
    start_process env --chdir="$1" "$PWD/build/release/src/lookfar"
}

# Waits for a window whose title fits the pattern, and prints its number.
window_titled() {
    timeout 20 xdotool search --sync --onlyvisible --name "$1" | tail -n 1
}

click() {
    local window=$1 x=$2 y=$3
    shift 3
    xdotool mousemove --window "$window" "$x" "$y" click "$@"
    sleep 1
}
