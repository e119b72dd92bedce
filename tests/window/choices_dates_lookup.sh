#!/usr/bin/env bash
# An operator goes on with an order of the earlier form, which gets units and deliveries: chooses a
# unit, types dates and picks one, ticks what has come, looks an article up, and is kept from a
# second line of an article, from days that do not exist and from unknown units.
# shellcheck source=tests/window/lib/demo.sh
source "$(dirname "${BASH_SOURCE[0]}")/lib/demo.sh"

lines_as=whole_lines
expect_lines() {
    printf '%s\n' "$@" >"$work/expected"
}

sqlite3 "$order" "
    PRAGMA application_id = $((0x4F726472));
    CREATE TABLE articles (code TEXT PRIMARY KEY, description TEXT NOT NULL,
        price_hundredths INTEGER NOT NULL);
    CREATE TABLE order_lines (row INTEGER PRIMARY KEY, article TEXT NOT NULL,
        description TEXT NOT NULL, quantity INTEGER NOT NULL, price_hundredths INTEGER NOT NULL);
    INSERT INTO articles VALUES ('PAPER-A4', 'Copy paper', 449), ('OAK', 'Our own board', 1200),
        ('LABEL-65', 'Labels', 1120);
    INSERT INTO order_lines VALUES (1, 'PAPER-A4', 'Copy paper', 5, 449), (2, 'OAK', '', 2, 1200);
"
start_demo
expect_lines '1|PAPER-A4|Copy paper|5|449|pack||0' '2|OAK||2|1200|||0'
expect_saved 5 "$work/expected" "the file of the earlier form"

# A unit by its first letter, a date typed, one picked a week from today; Enter goes down the dates.
in_a_week=$(date -d '+7 days' +%F)
xdotool key --delay 0 End Left Left
enter b 24122026
xdotool key --delay 0 F10 Down Return
expect_lines '1|PAPER-A4|Copy paper|5|449|box|2026-12-24|0' "2|OAK||2|1200||$in_a_week|0"
expect_saved 5 "$work/expected" "a chosen unit, a typed and a picked date"

# Below the last line the next article is entered; Esc leaves the list, Enter takes the article.
xdotool key --delay 0 F10
xdotool type --delay 0 pap
xdotool key --delay 0 Escape F10
enter labels '' 3 ''
third='3|LABEL-65|Labels|3|1120|pack||0'
expect_lines "$(<"$work/expected")" "$third"
expect_saved 5 "$work/expected" "an article that was looked up, typed at full speed"

# A second line of an article is not saved, and what is typed ahead waits in it for another one.
enter paper-a4 'typed ahead' 7 9.99
within 5 title_has '*' || fail "a second line of an article does not show"
expect_saved 5 "$work/expected" "an article that is in another line already"
xdotool key --delay 0 Up
enter new
fourth='4|NEW|typed ahead|7|999|||0'
expect_lines "$(<"$work/expected")" "$fourth"
expect_saved 5 "$work/expected" "the line that has an article of its own now"
within 5 title_lacks '*' || fail "a saved line shows as unsaved"
xdotool key --delay 0 Up Up Up End space Return space space Left Left
expect_lines '1|PAPER-A4|Copy paper|5|449|box|2026-12-24|1' "2|OAK||2|1200||$in_a_week|0" \
    "$third" "$fourth"
expect_saved 5 "$work/expected" "a tick"

# An unknown unit, and a day that the calendar does not have: the cell stays as it was.
enter dozen 31022027
within 5 is_asked || fail "a wrong date is not warned of"
xdotool key Return
within 5 has_focus || fail "the warning does not close"
xdotool key --delay 0 Escape
enter 29022100
expect_saved 5 "$work/expected" "what cannot be taken"

# A tick that was set last is saved on leaving, too.
xdotool key --delay 0 space
quit_demo
sed -i '2s/0$/1/' "$work/expected"
expect_saved 0 "$work/expected" "the last tick"
echo "done after ${SECONDS}s"
