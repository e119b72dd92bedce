# shellcheck shell=bash
# What tests of a program in a real window share: a directory of their own, the one program, waiting
# for what is to be seen. Sourced, not run.
set -euo pipefail
unset LC_ALL LC_NUMERIC LANGUAGE
export LANG=C.UTF-8

work=$(mktemp -d)
chmod 700 "$work"
export XDG_RUNTIME_DIR="$work"
program_pid=""

# start PROGRAM [ARGUMENT…]: what it prints is kept for a failure.
start() {
    "$@" >"$work/program.log" 2>&1 &
    program_pid=$!
}

has_ended() { ! kill -0 "$program_pid" 2>/dev/null; }

fail() {
    echo "FAILED: $*" >&2
    if [[ -n $program_pid ]] && has_ended; then echo "The program has ended." >&2; fi
    [[ ! -s $work/program.log ]] || sed 's/^/  printed: /' "$work/program.log" >&2
    picture failed
    exit 1
}

finish() {
    [[ -z $program_pid ]] || kill "$program_pid" 2>/dev/null || true
    rm -rf "$work"
}
trap finish EXIT

# within SECONDS COMMAND…: until the command succeeds; fails when time is up.
within() {
    local deadline=$((SECONDS + $1))
    shift
    until "$@"; do
        ((SECONDS < deadline)) || return 1
        sleep 0.1
    done
}

# window_named PATTERN: sets $window to the first such window that is to be seen.
window_named() {
    window=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | head -n 1) && [[ -n $window ]]
}
is_active() { [[ $(xdotool getactivewindow 2>/dev/null) == "$1" ]]; }

# For a picture of what a user sees at this point.
picture() {
    [[ -z ${TABLIO_SCREENSHOT:-} ]] || { sleep 1; import -window root "$TABLIO_SCREENSHOT-$1.png"; }
}
