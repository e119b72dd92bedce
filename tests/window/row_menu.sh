#!/usr/bin/env bash
# The operator removes, inserts and clears rows with the grid's menu: the saved lines follow with
# their units, dates and ticks, and no slip of the hand clears a whole order.
# shellcheck source=tests/window/lib/demo.sh
source "$(dirname "${BASH_SOURCE[0]}")/lib/demo.sh"

# menu LETTER: picks that entry of the grid's menu, without waiting for the menu to be seen.
menu() { xdotool key Menu "$1"; }

lines_as=whole_lines
start_demo --sample
whole_lines >"$work/sample"
[[ $(wc -l <"$work/sample") -eq 8 ]] || fail "there are no sample lines"

xdotool key Down
menu m
menu r
awk -F'|' -v OFS='|' '$1 != 2 { $1 = ++row; print }' "$work/sample" >"$work/expected"
expect_saved 20 "$work/expected" "after row 2 was removed"

menu m
menu i
awk -F'|' -v OFS='|' '$1 >= 2 { ++$1 } 1' "$work/expected" >"$work/inserted"
expect_saved 20 "$work/inserted" "after a row was inserted before row 2"
enter new
sed '1a 2|NEW||0|0|||0' "$work/inserted" >"$work/expected"
expect_saved 20 "$work/expected" "after the inserted row was filled"

menu c
within 10 is_asked || fail "clearing the table does not ask"
xdotool key alt+n
within 10 has_focus || fail "the question does not close"
enter again
sed 's/^2|NEW|/2|NEW|again/' "$work/expected" >"$work/kept"
expect_saved 20 "$work/kept" "the lines that the operator kept"
menu c
within 10 is_asked || fail "clearing the table does not ask"
xdotool key alt+y
: >"$work/expected"
expect_saved 20 "$work/expected" "after the table was cleared"
quit_demo
