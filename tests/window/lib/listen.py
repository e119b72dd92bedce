#!/usr/bin/python3
"""Plays a table of keys to the demo and hears over AT-SPI what a screen reader would say of it.

listen.py DOCUMENT [--write]: the document has the table, each row what the operator does and what is
told then, in quotes. Fails at the first row in which another thing is told, or anything more. With
--write it prints the table as it is told now. Built after what screen readers of several makes say
of a table: a header or a row is told when it is another than before, a state when it changes.
"""

import re
import subprocess
import sys
import time
import warnings

import gi

# The names of AT-SPI's interfaces, which newer versions would have shorter.
warnings.simplefilter("ignore", DeprecationWarning)

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

# Longest wait for what a row promises, and how long it is listened for more, in seconds.
PATIENCE = 10
SILENCE = 0.5

CELLS = (Atspi.Role.TABLE_CELL, Atspi.Role.CHECK_BOX, Atspi.Role.ROW_HEADER)


def is_in(accessible, state):
    return accessible.get_state_set().contains(state)


class Reader:
    """What is said, and what was last said of the table."""

    def __init__(self):
        self.said = []
        self.deleted = None
        self.focus = None
        self.tables = []
        self.row = self.column = None
        self.listener = Atspi.EventListener.new(self.hear)
        for event in (
            "object:state-changed:focused",
            "object:state-changed:checked",
            "object:state-changed:showing",
            "object:property-change:accessible-name",
            "object:text-changed",
            "object:text-caret-moved",
        ):
            self.listener.register(event)

    def say(self, text):
        self.said.append(text)

    def hear(self, event):
        source = event.source
        try:
            if event.type == "object:state-changed:focused":
                if event.detail1:
                    self.reached(source)
            elif event.type == "object:state-changed:showing":
                if event.detail1 and source.get_role() == Atspi.Role.NOTIFICATION:
                    self.say(source.get_name())
            elif source != self.focus:
                pass
            elif event.type == "object:state-changed:checked":
                self.say("checked" if event.detail1 else "not checked")
            elif event.type == "object:property-change:accessible-name":
                source.clear_cache()
                self.say(source.get_name())
            elif event.type.startswith("object:text-changed:insert"):
                # What takes the place of something else is told alone.
                if self.said and self.said[-1] == self.deleted:
                    self.said.pop()
                self.say(str(event.any_data))
            elif event.type.startswith("object:text-changed:delete"):
                self.deleted = f"{event.any_data} deleted"
                self.say(self.deleted)
            elif event.type == "object:text-caret-moved" and not self.said:
                text = source.get_text_iface()
                self.say(text.get_text(event.detail1, event.detail1 + 1) or "end")
        except GLib.Error:
            pass  # It has gone meanwhile, and another has the keyboard.

    def reached(self, source):
        source.clear_cache()
        if source == self.focus:
            self.say("(the same again)")
        self.focus = source
        role = source.get_role()
        parent = source.get_parent()
        tables = []
        above = parent
        while above is not None and above.get_role() != Atspi.Role.APPLICATION:
            if above.get_role() == Atspi.Role.TABLE:
                tables.append(above)
            above = above.get_parent()
        if role in CELLS and parent in tables:
            self.say(", ".join(self.cell(source, parent)))
        else:
            self.say(", ".join(self.other(source, role)))
        self.tables = tables

    def cell(self, source, parent):
        table = parent.get_table_iface()
        index = source.get_index_in_parent()
        row, column = table.get_row_at_index(index), table.get_column_at_index(index)
        # The weeks of a calendar have no names.
        row_name = table.get_row_description(row)
        if parent not in self.tables:
            yield parent.get_name()
            if row_name:
                yield f"{table.get_n_rows()} rows, {table.get_n_columns()} columns"
        if not self.tables or parent != self.tables[0]:
            self.row = self.column = None
        if row_name and row != self.row:
            yield f"row {row_name}"
            if table.is_row_selected(row):
                yield "marked"
        header = table.get_column_description(column)
        if header and column != self.column and header != source.get_name():
            yield header
        self.row, self.column = row, column
        yield source.get_name() or "blank"
        if source.get_role() == Atspi.Role.CHECK_BOX:
            yield "check box"
            yield "checked" if is_in(source, Atspi.StateType.CHECKED) else "not checked"
        elif is_in(source, Atspi.StateType.READ_ONLY):
            yield "read only"
        description = source.get_description()
        if description:
            yield description

    def other(self, source, role):
        text = source.get_text_iface()
        if text is not None and is_in(source, Atspi.StateType.EDITABLE):
            yield source.get_name()
            yield "combo box" if role == Atspi.Role.COMBO_BOX else "edit"
            content = text.get_text(0, text.get_character_count())
            if text.get_n_selections() > 0:
                part = text.get_selection(0)
                yield f"{text.get_text(part.start_offset, part.end_offset)} selected"
            else:
                yield content or "blank"
            return
        # A dialog tells what it says before its button.
        dialog = source.get_parent()
        while dialog is not None and dialog.get_role() not in (Atspi.Role.DIALOG, Atspi.Role.ALERT):
            dialog = dialog.get_parent()
        if dialog is not None:
            yield dialog.get_name()
            for at in range(dialog.get_child_count()):
                child = dialog.get_child_at_index(at)
                if child.get_role() == Atspi.Role.LABEL and child.get_name():
                    yield child.get_name()
        yield source.get_name()
        yield source.get_role_name()


def press(reader, step):
    """One step of the table: keys, "types …", or "does …" for an action of the focused object."""
    if step.startswith("types "):
        subprocess.run(["xdotool", "type", "--delay", "30", step[6:]], check=True)
    elif step.startswith("does "):
        action = reader.focus.get_action_iface()
        names = [action.get_action_name(at) for at in range(action.get_n_actions())]
        action.do_action(names.index(step[5:]))
    else:
        subprocess.run(["xdotool", "key", *step.split(" ")], check=True)


def rows_of(document):
    with open(document, encoding="utf-8") as text:
        for line in text:
            match = re.fullmatch(r"\| `([^`]+)` \|([^|]*)\|\n", line)
            if match:
                yield match[1], re.findall(r"“([^”]*)”", match[2])


def listen(context, until):
    deadline = time.monotonic() + PATIENCE
    while not until() and time.monotonic() < deadline:
        context.iteration(False) or time.sleep(0.005)
    deadline = time.monotonic() + SILENCE
    while time.monotonic() < deadline:
        context.iteration(False) or time.sleep(0.005)


def main(document, writes):
    Atspi.init()
    reader = Reader()
    context = GLib.MainContext.default()
    failed = False
    for step, expected in rows_of(document):
        reader.said.clear()
        press(reader, step)
        if writes:
            listen(context, lambda: True)
        else:
            listen(context, lambda: reader.said == expected)
        heard = "; ".join(f"“{text}”" for text in reader.said) or "nothing"
        if writes:
            print(f"| `{step}` | {heard} |", flush=True)
        elif reader.said != expected:
            wanted = "; ".join(f"“{text}”" for text in expected)
            print(f"{step}: heard {heard} in place of {wanted}", file=sys.stderr)
            failed = True
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], "--write" in sys.argv))
