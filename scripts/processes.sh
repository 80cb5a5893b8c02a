# shellcheck shell=bash
# Starts processes that end with the script. This file is sourced.

started_processes=()

end_processes_with_script() {
    trap end_started_processes EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM
}

# Starts a command in the background.
start_process() {
    "$@" &
    started_processes+=("$!")
}

last_started() {
    echo "${started_processes[-1]}"
}

is_running() {
    kill -0 "$1" 2>/dev/null
}

has_ended() {
    ! is_running "$1"
}

# Tries a command every tenth of a second until it succeeds. Fails after so many seconds, or as
# soon as the process has ended.
wait_until() {
    local seconds=$1 process=$2 attempt
    shift 2
    for ((attempt = 0; attempt < seconds * 10; attempt++)); do
        "$@" && return 0
        is_running "$process" || return 1
        sleep 0.1
    done
    return 1
}

# Never fails: a script that stops at the first failure would leave the other processes behind.
end_process() {
    kill "$1" 2>/dev/null || return 0
    wait_until 5 "$1" has_ended "$1" || kill -KILL "$1" 2>/dev/null || true
    wait "$1" 2>/dev/null || true
}

# The last started is the first to end, since it may need the ones before it.
end_started_processes() {
    local index
    for ((index = ${#started_processes[@]} - 1; index >= 0; index--)); do
        end_process "${started_processes[index]}"
    done
}
