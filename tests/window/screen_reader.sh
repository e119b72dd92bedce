#!/usr/bin/env bash
# What a screen reader tells of the demo, key by key, is what the document says.
# shellcheck source=tests/window/lib/demo.sh
source "$(dirname "${BASH_SOURCE[0]}")/lib/demo.sh"
here=$(dirname "${BASH_SOURCE[0]}")

# The demo makes its file; the lines are dated, which its own samples are by the day.
start_demo
quit_demo
sqlite3 "$order" "
    INSERT INTO order_lines VALUES
        (1, 'PAPER-A4', 'Copy paper', 5, 449, 'pack', '2026-11-30', 1),
        (2, 'OAK', 'Our own board', 2, 1200, 'piece', '2026-12-24', 0);
"
start_demo
# The user's Python may have none of Debian's packages.
/usr/bin/python3 "$here/lib/listen.py" "${TABLIO_HEARD:-$here/../../docs/accessibility.md}" "$@" ||
    fail "a screen reader tells something else than docs/accessibility.md"
quit_demo
