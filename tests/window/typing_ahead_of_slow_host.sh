#!/usr/bin/env bash
# The host takes 20 ms in each event, so the operator is far ahead of it all the time: the keys
# that wait must still reach the cells they were meant for.
# shellcheck source=tests/window/lib/demo.sh
source "$(dirname "${BASH_SOURCE[0]}")/lib/demo.sh"

make_lines 20 9
start_demo --slow-host 20
type_file "$work/keys"
expect_saved 120 "$work/expected" "lines typed ahead of a slow host are not what is saved"
echo "typed and saved 20 lines after ${SECONDS}s"
quit_demo
