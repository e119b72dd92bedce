#!/usr/bin/env python3
"""Seeded sessions of an operator with the demo, to whom everything happens that can; a model says
what the order's file must hold. Run it on a private display, by scripts/typist.

    main.py [--short] [--sessions N] [--seed N] [--quick] DEMO OTHER-WINDOW
"""
import argparse
import collections
import pathlib
import random
import shutil
import sys
import tempfile
import time

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))

from acts import Acts  # noqa: E402
from order import Order, articles_in, in_file  # noqa: E402
from screen import Demo, Lost, Other  # noqa: E402

SIGNS = {"en_US": ".", "de_DE": ",", "fr_FR": ",", "de_CH": ".", "pl_PL": ","}
# How often each of them comes, of a hundred or so.
WEIGHTS = dict(lines=20, details=10, correct=16, look_up=5, paste_cell=4, paste_block=6,
               move_rows=4, duplicate=5, unknown_unit=3, no_date=3, switch_windows=5, stop=5,
               kill=10, leave_and_return=4, lock=4, fill_disk=4, forbid=4, read_only=2,
               type_on=4, paste_refused=3, rename_file=2, two_windows=1, no_article=3,
               wait_for_lock=2)


class Session(Acts):
    def __init__(self, seed, demo, other, folder, arguments=()):
        self.random = random.Random(seed)
        self.delay = self.random.choice([0, 0, 0, 2])
        locale = self.random.choice(list(SIGNS))
        self.sign = SIGNS[locale]
        self.saves_by_itself = False
        self.kills = 0
        self.other = other
        self.steps = []
        self.demo = Demo(demo, folder / "order.sqlite", locale, arguments)
        self.demo.start()
        self.order = Order(articles_in(self.demo.file), in_file(self.demo.file))

    def say(self, what):
        self.steps.append(what)

    def play(self, acts):
        self.lines()
        for act in acts:
            self.say(act)
            if self.random.random() < 0.4:
                self.settle()
            # An order without a line has nothing to correct, and the shop has few articles.
            if not self.order.saved() or len(self.order.saved()) > 30:
                act = "lines" if not self.order.saved() else "kill"
            getattr(self, act)()
        self.say("the end")
        self.settle()
        self.leave_and_return()


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--short", action="store_true", help="one of each sort, and a kill")
    parser.add_argument("--sessions", type=int, default=20)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--acts", help="these, by their names with commas between")
    parser.add_argument("demo")
    parser.add_argument("other")
    options = parser.parse_args()

    other = Other(options.other)
    done, kills, failed, began = collections.Counter(), 0, [], time.monotonic()
    for seed in range(options.seed, options.seed + (1 if options.short else options.sessions)):
        if options.acts:
            acts = options.acts.split(",")
        elif options.short:
            acts = [act for act in WEIGHTS if act not in ("lock", "read_only", "forbid")]
        else:
            acts = random.Random(-seed).choices(list(WEIGHTS), WEIGHTS.values(), k=12)
        folder = pathlib.Path(tempfile.mkdtemp())
        session = None
        try:
            session = Session(seed, options.demo, other, folder)
            session.play(acts)
            shutil.rmtree(folder)
        except Lost as lost:
            failed.append(seed)
            steps = ", ".join(session.steps) if session else "the start"
            print(f"seed {seed}, at the end of: {steps}\n  LOST: {lost}\n  kept in {folder}",
                  flush=True)
        finally:
            if session and not session.demo.has_ended():
                session.demo.kill()
        if session:
            done.update(session.steps)
            kills += session.kills
    other.end()
    counts = ", ".join(f"{count} {act}" for act, count in done.most_common() if act in WEIGHTS)
    print(f"{seed - options.seed + 1} sessions, {kills} kills, {time.monotonic() - began:.0f} s: "
          f"{counts}\n{len(failed)} sessions lost something {failed or ''}")
    return 1 if failed else 0


sys.exit(main())
