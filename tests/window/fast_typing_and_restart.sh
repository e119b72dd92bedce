#!/usr/bin/env bash
# An operator types 200 lines as fast as the display takes keys, leaves, and comes back: no
# character is lost, doubled or in a neighbour's cell, and the form shows again what was saved.
# shellcheck source=tests/window/lib/demo.sh
source "$(dirname "${BASH_SOURCE[0]}")/lib/demo.sh"

make_lines 200 60
start_demo
type_file "$work/keys"
expect_saved 90 "$work/expected" "200 lines typed at full speed are not what is saved"
echo "typed and saved 200 lines after ${SECONDS}s"
quit_demo

# The whole row is saved from what the grid shows, so changing one cell of every row by turns
# reads all the others back.
start_demo
for row in $(seq 1 100); do
    [[ $row -eq 1 ]] && printf 'Right\nRight\n' || printf 'Right\n'
    printf '7\nDown\nLeft\nx\nDown\n'
done >"$work/changes"
mapfile -t changes <"$work/changes"
xdotool key --delay 0 "${changes[@]}"
awk -F'|' -v OFS='|' 'NR % 2 { $4 = 7 } NR % 2 == 0 { $3 = "x" } 1' "$work/expected" \
    >"$work/changed"
expect_saved 60 "$work/changed" "the form came back with other contents than were saved"
quit_demo
expect_saved 0 "$work/changed" "leaving changed what was saved"
