# shellcheck shell=bash
# What the tests of the demo share: a directory of their own, the demo's window, its keyboard, its
# file, and waiting for what is to be seen. Sourced, not run.
set -euo pipefail
unset LC_ALL LC_NUMERIC LANGUAGE
export LANG=C.UTF-8

work=$(mktemp -d)
chmod 700 "$work"
export XDG_RUNTIME_DIR="$work"
program_pid=""

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

: "${TABLIO_DEMO:?the path of tablio_demo}"
order="$work/order.sqlite"

# start_demo [ARGUMENT…]: the demo on $order, with the keyboard in its grid. Numbers are written as
# in the United States, so that they are typed with a full stop and grouped as they grow. What it
# prints is kept for a failure.
start_demo() {
    LC_NUMERIC=en_US.UTF-8 "$TABLIO_DEMO" --database "$order" "$@" >"$work/program.log" 2>&1 &
    program_pid=$!
    within 20 has_focus || fail "the demo's window did not come up with the keyboard"
}

has_focus() { window_named 'Order entry' && is_active "$window"; }

# Closes the window as a user does; ends when the demo has.
quit_demo() {
    xdotool key --clearmodifiers alt+F4
    within 20 has_ended || fail "the demo did not close"
    wait "$program_pid" || fail "the demo ended with status $?"
    program_pid=""
}

# Another window, such as a question, has the keyboard.
is_asked() { ! is_active "$window"; }

window_title() { xdotool getwindowname "$window"; }
title_has() { [[ $(window_title) == *"$1"* ]]; }
title_lacks() { ! title_has "$1"; }

# The saved lines, one a line: row|article|description|quantity|price in hundredths.
saved_lines() {
    sqlite3 -cmd '.timeout 2000' "$order" \
        'SELECT row, article, description, quantity, price_hundredths FROM order_lines ORDER BY row'
}

# The same with unit|delivery|delivered behind it.
whole_lines() {
    sqlite3 -cmd '.timeout 2000' "$order" \
        'SELECT row, article, description, quantity, price_hundredths, unit, delivery, delivered
         FROM order_lines ORDER BY row'
}

# expect_saved SECONDS FILE WHAT: the saved lines become those of the file. A test that looks at
# whole lines sets lines_as=whole_lines.
lines_as=saved_lines
expect_saved() {
    if ! within "$1" saved_lines_are "$2"; then
        echo "--- saved differs (< expected, > saved):" >&2
        diff "$2" "$work/saved" | head -n 40 >&2 || true
        fail "$3"
    fi
}

saved_lines_are() {
    "$lines_as" >"$work/saved" && cmp -s "$1" "$work/saved"
}

# make_lines COUNT LENGTH: lines with as much variety as the columns take. $work/keys is what the
# operator types (Enter after each cell), $work/expected what must be saved then. Descriptions get
# at most LENGTH characters.
make_lines() {
    awk -v count="$1" -v longest="$2" -v keys="$work/keys" -v expected="$work/expected" '
        BEGIN {
            words = "Bolt M8 x 40, zinc|washer (steel) 8.4|O-ring 12 x 2; NBR|"
            words = words "Pipe 3/4 inch, 2 m|aaaa bbbb  cccc|Cable 5x2.5 mm2|1001 nails & Co.|"
            words = words "HINGE left+right|tape 50 mm #7|Screw-eye =A=, No. 11"
            n = split(words, word, "|")
            # Of some codes the demo knows a description and a price, which are typed over.
            # Each is used once, as the demo takes no article twice.
            known = split("pen-bl paper-a4 calc-12 ink-bk note-76 mark-4 env-c5 tape-50", article,
                          " ")
            for (row = 1; row <= count; ++row) {
                code = sprintf("%c%c%03d-%c", 97 + row % 26, 97 + int(row / 26) % 26, row,
                               122 - row % 26)
                if (row % 25 == 7)
                    code = article[1 + row % known]
                text = substr(word[1 + row % n] " " row, 1, longest)
                sub(/ +$/, "", text)
                quantity = 1 + (row * row * 37) % (row % 10 == 0 ? 9999999 : 997)
                price = 5 + (row * 7919) % (row % 7 == 0 ? 99999999 : 20000)
                if (price % 100 == 0)
                    typed = price / 100
                else if (price % 10 == 0)
                    typed = sprintf("%d.%d", price / 100, price % 100 / 10)
                else
                    typed = sprintf("%d.%02d", price / 100, price % 100)
                printf "%s\n%s\n%d\n%s\n", code, text, quantity, typed > keys
                printf "%d|%s|%s|%d|%d\n", row, toupper(code), text, quantity, price > expected
            }
        }'
}

# Types a file as fast as the X server takes it; a line end is Enter, which xdotool calls CR.
type_file() { tr '\n' '\r' <"$1" | xdotool type --delay 0 --file -; }

# enter TEXT…: types each text and Enter.
enter() { printf '%s\r' "$@" | xdotool type --delay 0 --file -; }
