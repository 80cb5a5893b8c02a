# shellcheck shell=bash
# Checks of the program as a menu starts it. This file is sourced after processes.sh.

source packaging/layout.sh

# The program asks for pictures through this proxy. Nobody serves it, so no request leaves the
# machine.
unserved_proxy=http://127.0.0.1:9

value_in_desktop_entry() {
    sed --quiet "s/^$1=//p" "$unpacked/usr/share/applications/$application.desktop"
}

# Gives the next start a home, with a space in its path, and an empty folder to start in.
make_home() {
    echo "$1"
    scene=$work/$2
    home="$scene/the home"
    start_folder=$scene/start
    mkdir -p "$home" "$start_folder"
}

# Turns this process into the program that the desktop entry names, in the start folder. The
# arguments are variables for its environment, such as HOME=/tmp.
launch() {
    exec env --chdir="$start_folder" --unset=XDG_DATA_HOME HOME="$home" \
        http_proxy="$unserved_proxy" "$@" "$unpacked/usr/bin/$(value_in_desktop_entry Exec)"
}

# The splash window has the same name and is told apart by its type. xdotool complains about every
# window that closes during its search, which is no fault.
find_main_window() {
    window=$(xdotool search --onlyvisible --name '^Lookfar$' 2>/dev/null) &&
        [[ $(xprop -id "$window" _NET_WM_WINDOW_TYPE) != *UTILITY* ]]
}

open_main_window() {
    start_process launch "$@"
    wait_until 30 "$(last_started)" find_main_window || fail "The main window does not open."
}

wait_for_end() {
    timeout 20 tail --sleep-interval=0.1 --pid="$(last_started)" --follow /dev/null ||
        fail "$1"
}

close_main_window() {
    wmctrl -i -c "$window"
    wait_for_end "The program goes on although its main window was closed."
    wait "$(last_started)" || fail "The program ended with the exit status $?."
}

# Expects the camera list in this folder, and no other file of the program in any folder.
check_list() {
    local found
    found=$(find "$scene" "$unpacked" -iname Cams.inf -o -iname C1.DAT -o -iname data.dat)
    [[ $found == "$1/Cams.inf" ]] || fail "The list should be in $1, but there is: ${found:-none}"
}

check_process() {
    local executable
    executable=$(readlink "/proc/$(last_started)/exe")
    [[ $executable == "$unpacked/usr/bin/lookfar" ]] || fail "The launcher started $executable."
}

# By these properties a desktop finds the program that a window belongs to.
check_window() {
    local class process icons pixels
    class=$(xprop -id "$window" WM_CLASS)
    [[ $class == *", \"$(value_in_desktop_entry StartupWMClass)\"" ]] ||
        fail "The desktop entry names another class than the window has: $class"
    process=$(xprop -id "$window" _NET_WM_PID)
    [[ $process == *" = $(last_started)" ]] || fail "The window is of another process: $process"
    icons=$(xprop -id "$window" -len 1000000 _NET_WM_ICON)
    for pixels in "${icon_sizes[@]}"; do
        [[ $pixels == "$menu_icon_size" || $icons == *"Icon ($pixels x $pixels):"* ]] ||
            fail "The window has no icon of $pixels pixels."
    done
}

check_first_start() {
    make_home "A first start" first
    open_main_window
    check_process
    check_window
    close_main_window
    check_list "$home/.local/share/lookfar"
    [[ $(stat --format=%a "$home/.local") == 700 ]] ||
        fail "Other users can read the folders that the launcher makes."
}

check_named_data_home() {
    make_home "A start with a list in a data folder of the user's choice" named
    local folder="$home/my data/lookfar"
    mkdir -p "$folder"
    printf 'A camera\r\nhttp://camera.example.com/a.jpg\r\n' >"$scene/list"
    cp "$scene/list" "$folder/Cams.inf"
    open_main_window XDG_DATA_HOME="$home/my data"
    close_main_window
    check_list "$folder"
    cmp "$scene/list" "$folder/Cams.inf" || fail "The list was changed."
}

check_relative_data_home() {
    make_home "A start with a relative data folder, which is ignored" relative
    open_main_window XDG_DATA_HOME=data
    close_main_window
    check_list "$home/.local/share/lookfar"
}

# Expects the launcher to give up with this text.
check_refusal() {
    local text=$1 error=$scene/error status=0
    shift
    start_process launch "$@" 2>"$error"
    wait_for_end "The launcher goes on without a folder."
    wait "$(last_started)" || status=$?
    ((status == 1)) || fail "The launcher should end with the exit status 1, but it is $status."
    grep --quiet --fixed-strings "lookfar-desktop: $text" "$error" ||
        fail "The launcher should say '$text', but it says: $(<"$error")"
    [[ -z $(ls -A "$start_folder") ]] || fail "The launcher left files in $start_folder."
}

check_refusals() {
    make_home "A start where a file is in the way of the data folder" blocked
    : >"$home/data"
    check_refusal "The folder for the camera list cannot be made: $home/data/lookfar" \
        XDG_DATA_HOME="$home/data"
    make_home "A start without a home" homeless
    check_refusal "HOME is not set" HOME=
}

# The cameras serve a list of themselves.
start_cameras() {
    local list=$1
    cmake --preset dev >/dev/null
    cmake --build --preset dev --target lookfar-cameras >/dev/null
    start_process build/dev/demo/lookfar-cameras --port 0 --list "$list"
    wait_until 20 "$(last_started)" test -s "$list" || fail "The cameras do not start."
}

# Turns this process into the installed program, in a folder that is open to all, as a user who may
# do nothing that others may not.
launch_as_nobody() {
    local as_nobody=()
    ((EUID != 0)) || as_nobody=(setpriv --reuid=nobody --regid=nogroup --clear-groups)
    exec env --chdir="$open_folder/home" HOME="$open_folder/home" no_proxy=127.0.0.1 \
        "${as_nobody[@]}" "$open_folder/usr/bin/lookfar"
}

# What says that a picture is missing has few colours.
shows_picture() {
    local colours
    find_main_window &&
        colours=$(import -window "$window" -crop 300x220+4+4 -format %k info:- 2>/dev/null) &&
        ((colours > 1000))
}

check_decoder() {
    local decoder executable
    decoder=$(pgrep --parent "$(last_started)" --exact lookfar-decoder) ||
        fail "The program has no decoder."
    grep --quiet $'^Seccomp:\t2$' "/proc/$decoder/status" || fail "The decoder is not locked in."
    # Of a process that leaves no core, the system tells this to root alone.
    executable=$(readlink "/proc/$decoder/exe") || ((EUID != 0)) ||
        fail "Nobody tells which file the decoder is."
    [[ $EUID != 0 || $executable == "$open_folder/usr/libexec/lookfar/lookfar-decoder" ]] ||
        fail "The decoder is $executable."
}

check_picture() {
    echo "A picture, shown to another user than root"
    open_folder=$(mktemp --directory)
    chmod 755 "$open_folder"
    cp --recursive "$unpacked/usr" "$open_folder"
    mkdir --mode=777 "$open_folder/home"
    start_cameras "$open_folder/home/Cams.inf"
    start_process launch_as_nobody
    wait_until 30 "$(last_started)" shows_picture || fail "The program shows no picture."
    check_decoder
    close_main_window
    rm -r "$open_folder"
}

check_starts() {
    check_first_start
    check_named_data_home
    check_relative_data_home
    check_refusals
    check_picture
}
