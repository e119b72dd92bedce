#!/usr/bin/env bash
# Nothing that was entered is lost silently: a line that cannot be saved is kept and tried again,
# leaving asks, an edit that is still open is saved on leaving, and a file that is no order is
# refused and left as it is.
# shellcheck source=tests/window/lib/demo.sh
source "$(dirname "${BASH_SOURCE[0]}")/lib/demo.sh"

expect_lines() { printf '%s\n' "$@" >"$work/expected"; }

start_demo
enter bolt
expect_lines '1|BOLT||0|0'
expect_saved 20 "$work/expected" "an entered cell is not saved at once"

# Another program holds the file while the operator goes on.
coproc lock { sqlite3 "$order"; }
lock_pid=$lock_PID # Bash forgets its own when the program ends.
echo "BEGIN EXCLUSIVE; SELECT 'locked';" >&"${lock[1]}"
read -r -t 20 answer <&"${lock[0]}" || fail "sqlite3 does not answer"
[[ $answer == locked ]] || fail "the file was not locked: $answer"
enter M8
within 20 title_has '*' || fail "a line that cannot be saved does not show"
xdotool key alt+F4
within 20 is_asked || fail "leaving with an unsaved line does not ask"
xdotool key Escape
within 20 has_focus || fail "the operator who stays does not get back to the form"
echo 'ROLLBACK;' >&"${lock[1]}"
eval "exec ${lock[1]}>&-"
wait "$lock_pid" 2>/dev/null || true
expect_lines '1|BOLT|M8|0|0'
expect_saved 20 "$work/expected" "a line is not saved by itself once it can be"
enter 12
expect_lines '1|BOLT|M8|12|0'
expect_saved 20 "$work/expected" "the line is not saved any more"
within 10 title_lacks '*' || fail "a saved line shows as unsaved"

# Saving, and leaving, in the middle of an edit enters it.
xdotool type --delay 0 '1.2'
xdotool key ctrl+s
expect_lines '1|BOLT|M8|12|120'
expect_saved 20 "$work/expected" "what is being typed is not saved by Ctrl+S"

# The file is this window's alone, and one that is renamed meanwhile is noticed.
"$TABLIO_DEMO" --database "$order" --screenshot "$work/shot.png" >"$work/demo.log" 2>&1 &&
    fail "a second window opens the same file"
grep -q 'open in another window' "$work/demo.log" || fail "a second window says nothing of it"
mv "$order" "$order.moved"
within 10 title_has '*' || fail "a file that was renamed is not noticed"
xdotool type --delay 0 '1.3'
xdotool key ctrl+s
xdotool key alt+F4
within 20 is_asked || fail "leaving without the file does not ask"
xdotool key Escape
within 20 has_focus || fail "the operator who stays does not get back to the form"
mv "$order.moved" "$order"
within 10 title_lacks '*' || fail "a file that is back is not noticed"
expect_lines '1|BOLT|M8|12|130'
expect_saved 20 "$work/expected" "what was entered without the file is not saved when it is back"

xdotool type --delay 0 '1.25'
quit_demo
expect_lines '1|BOLT|M8|12|125'
expect_saved 0 "$work/expected" "the edit that was open on leaving is not saved"

# A row without an article is no line, but keeps the rest until it has one again.
start_demo
xdotool key --delay 0 Delete
: >"$work/expected"
expect_saved 20 "$work/expected" "a row without an article is still saved"
xdotool key alt+F4
within 20 is_asked || fail "leaving with a line without an article does not ask"
xdotool key Escape
within 20 has_focus || fail "the operator who stays does not get back to the form"
enter nut
expect_lines '1|NUT|M8|12|125'
expect_saved 20 "$work/expected" "what a row without an article held is not saved with it"
quit_demo

# refuses WHAT FILE: the demo does not start on the file, says so and leaves it alone.
refuses() {
    local before after status=0
    before=$(md5sum <"$2")
    "$TABLIO_DEMO" --database "${3:-$2}" --screenshot "$work/shot.png" >"$work/demo.log" 2>&1 ||
        status=$?
    after=$(md5sum <"$2")
    [[ $status -eq 1 ]] || fail "$1: status $status instead of 1"
    grep -q "cannot use ${3:-$2}: ." "$work/demo.log" || fail "$1: no clear message"
    [[ $before == "$after" ]] || fail "$1: the file was changed"
}
echo 'this is a letter, not a database, and long enough to be read as one' >"$work/letter"
refuses "a file that is no database" "$work/letter"
sqlite3 "$work/other.sqlite" 'CREATE TABLE other (a)'
refuses "another program's database" "$work/other.sqlite"
refuses "a directory that cannot be made" "$work/letter" "$work/letter/order.sqlite"

# An order of a later form, and one of the earlier form that breaks while it is brought up to date.
quit_early() { "$TABLIO_DEMO" --database "$1" --screenshot "$work/shot.png" >"$work/demo.log" 2>&1; }
quit_early "$work/later.sqlite" || fail "an order file cannot be made"
sqlite3 "$work/later.sqlite" 'PRAGMA user_version = 9'
refuses "an order of a later form" "$work/later.sqlite"
quit_early "$work/broken.sqlite" || fail "an order file cannot be made"
sqlite3 "$work/broken.sqlite" \
    'ALTER TABLE articles DROP COLUMN unit; PRAGMA user_version = 0'
refuses "an order that cannot be brought up to date" "$work/broken.sqlite"
