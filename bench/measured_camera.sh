# shellcheck shell=bash
# Starts the camera of the benches. This file is sourced after processes.sh, in the folder of the
# sources.

# Serves pictures of a size such as 1920x1080. The camera's list, its pictures and its requests are
# files in the folder.
start_measured_camera() {
    local folder=$1 size=$2
    rm -f "$folder/Cams.inf"
    start_process env --chdir="$folder" "$PWD/build/release/bench/lookfar_measured_camera" \
        "${size%x*}" "${size#*x}"
    if ! wait_until 20 "$(last_started)" test -s "$folder/Cams.inf"; then
        echo "The camera does not start." >&2
        exit 1
    fi
}
