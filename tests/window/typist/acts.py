"""What an operator does in the order form, and what happens to him: each act presses keys and notes
in the model what must be saved for them. An act ends with the cursor anywhere."""
import itertools
import os
import signal
import sqlite3
import threading
import time

from order import in_file
from screen import NAMES, Demo, Lost, keys_of, press, within, xdotool

CODE, DESCRIPTION, QUANTITY, PRICE, UNIT, DELIVERY, DELIVERED = 1, 2, 3, 4, 6, 7, 8
UNITS = {"piece": "p", "pack": "pa", "box": "b", "set": "s", "kilogram": "k", "litre": "l",
         "metre": "m"}
WORDS = ["bolt", "washer", "O-ring", "pipe 3/4", "HINGE", "tape", "M8 x 40", "zinc, no. 7",
         "(steel)", "#12", "half-round", "cable", "a  b", "Nail", "5x2.5"]
# Within so many seconds an operator has seen what the form says.
SEEN = 5


class Acts:
    """Needs a demo, an order, another window, random numbers, a decimal sign and a say()."""

    codes = itertools.count(1)

    # ---- fingers ----

    def go_to(self, row, column):
        press(["ctrl+Home"] + ["Down"] * (row - 1) + ["Right"] * (column - 1), self.delay)

    def typed(self, text):
        """The keys of a text, with slips of the finger that are put right. A cell has room for
        three characters more, but for no third decimal."""
        keys = []
        for key in keys_of(text):
            if keys and NAMES.get(self.sign) not in keys and self.random.random() < 0.03:
                slips = [self.random.choice("1234567") for _ in range(self.random.randint(1, 3))]
                keys += slips + ["BackSpace"] * len(slips)
            keys.append(key)
        return keys

    def cell(self, text):
        return self.typed(text) + ["Return"]

    # ---- values ----

    def new_code(self):
        return f"{self.random.choice('abcdxyz')}{self.random.choice('aeiou')}-{next(self.codes)}"

    def unused_article(self):
        used = {line["article"] for line in self.order.rows.values()}
        return self.random.choice([code for code in self.order.articles if code not in used])

    def new_description(self):
        words = self.random.sample(WORDS, self.random.randint(1, 3))
        return " ".join([f"{self.random.choice('dtw')}{next(self.codes)}", *words])[:50].strip()

    def new_price(self):
        """In hundredths, and as it is typed."""
        price = self.random.randint(1, 9_999_999 if self.random.random() < 0.2 else 30_000)
        whole, cents = divmod(price, 100)
        if cents == 0:
            return price, str(whole)
        decimals = f"{cents:02}" if cents % 10 or self.random.random() < 0.5 else str(cents // 10)
        return price, f"{whole}{self.sign}{decimals}"

    def some_row(self):
        return self.random.choice([row for row, line in self.order.rows.items() if line["article"]])

    # ---- checks ----

    def told_since(self, mark, text):
        return any(text.casefold() in each.casefold() for each in self.demo.told()[mark:])

    def settle(self, seconds=40):
        """All that is typed is saved, and shown so."""
        press(["ctrl+Home", "Down"])
        seen = {}

        def is_saved():
            seen.update(file=in_file(self.demo.file), open=self.demo.shows_unsaved())
            return seen["file"] == self.order.saved() and not seen["open"]

        if not within(seconds, is_saved):
            self.differ(seen["file"], [self.order.saved()],
                        "unsaved" if seen["open"] else "not what was typed")
        self.order.is_past()

    def differ(self, held, allowed, what):
        wanted = min(allowed, key=lambda state: sum(held.get(row) != state.get(row)
                                                    for row in held.keys() | state.keys()))
        rows = sorted(row for row in held.keys() | wanted.keys()
                      if held.get(row) != wanted.get(row))
        raise Lost(f"{what}:" + "".join(f"\n    row {row}\n      file  {held.get(row)}"
                                        f"\n      typed {wanted.get(row)}" for row in rows[:6]))

    def check_states(self):
        held = in_file(self.demo.file)
        if held not in self.order.states:
            self.differ(held, self.order.states, "no state that the order went through")
        return held

    # ---- entering ----

    def line_keys(self, row):
        """A whole new line from its first cell on, noted."""
        is_known = self.random.random() < 0.3
        code = self.unused_article() if is_known else self.new_code()
        keys = self.cell(code.lower())
        self.order.enter(row, "article", code.upper())
        if is_known and self.random.random() < 0.6:
            keys += ["Right"]
        else:
            text = self.new_description()
            keys += self.cell(text)
            self.order.enter(row, "description", text)
        quantity = self.random.randint(1, 99_999)
        keys += self.cell(str(quantity))
        self.order.enter(row, "quantity", quantity)
        if is_known and self.random.random() < 0.6:
            return keys + ["Return"]
        price, text = self.new_price()
        self.order.enter(row, "price", price)
        return keys + self.cell(text)

    def lines(self, count=None):
        row = self.order.next_row()
        count = count or self.random.randint(1, 4)
        keys = [key for each in range(count) for key in self.line_keys(row + each)]
        self.go_to(row, CODE)
        press(keys, self.delay)

    def details(self):
        row = self.some_row()
        if self.random.random() < 0.7:
            unit = self.random.choice(list(UNITS))
            self.go_to(row, UNIT)
            press(self.cell(self.random.choice([UNITS[unit], unit])), self.delay)
            self.order.enter(row, "unit", unit)
        if self.random.random() < 0.7:
            day, month = self.random.randint(1, 28), self.random.randint(1, 12)
            year = self.random.randint(2026, 2039)
            self.go_to(row, DELIVERY)
            press(keys_of(f"{day:02}{month:02}{year}") + ["Return"], self.delay)
            self.order.enter(row, "delivery", f"{year}-{month:02}-{day:02}")
        if self.random.random() < 0.7:
            self.go_to(row, DELIVERED)
            press(["space"])
            self.order.enter(row, "delivered", 1 - self.order.line(row)["delivered"])

    def correct(self):
        row = self.some_row()
        old = self.order.line(row)["description"]
        leave = self.random.choice(["Return", "Up", "Down", "Tab"])
        way = self.random.choice(["retype", "append", "cancel", "number", "price", "code"])
        column = {"number": QUANTITY, "price": PRICE, "code": CODE}.get(way, DESCRIPTION)
        self.go_to(row, column)
        if way == "cancel":
            press(self.typed(self.new_description()) + ["Escape"], self.delay)
        elif way == "append":
            cut = self.random.randint(0, 3)
            text = (old[:len(old) - cut].rstrip() + f" {next(self.codes)}")[:57].strip()
            kept = len(os.path.commonprefix([old, text]))
            press(["F2", "End"] + ["BackSpace"] * (len(old) - kept) + keys_of(text[kept:]) +
                  [leave], self.delay)
            self.order.enter(row, "description", text)
        else:
            price, price_text = self.new_price()
            quantity = self.random.randint(1, 9999)
            code, text = self.new_code(), self.new_description()
            field, value, shown = {"retype": ("description", text, text),
                                   "number": ("quantity", quantity, str(quantity)),
                                   "price": ("price", price, price_text),
                                   "code": ("article", code.upper(), code)}[way]
            press(self.typed(shown) + [leave], self.delay)
            self.order.enter(row, field, value)

    def look_up(self):
        row, code = self.order.next_row(), self.unused_article()
        self.go_to(row, CODE)
        press(["F10"] + keys_of(code.lower()) + ["Return", "Right", "7", "Return", "Return"],
              self.delay)
        self.order.enter(row, "article", code)
        self.order.enter(row, "quantity", 7)

    def paste_cell(self):
        self.settle() # Whatever was to be pasted is pasted.
        row, text = self.some_row(), self.new_description()
        self.other.copy(text)
        self.go_to(row, DESCRIPTION)
        press(["ctrl+v", "Return"])
        self.order.enter(row, "description", text)

    def paste_block(self):
        self.settle()
        first, fields = self.order.next_row(), []
        for row in range(first, first + self.random.randint(1, 3)):
            price, shown = self.new_price()
            code, text, quantity = self.new_code(), self.new_description(), row * 7
            fields.append(f"{code}\t{text}\t{quantity}\t{shown}")
            for column, value in [("article", code.upper()), ("description", text),
                                  ("quantity", quantity), ("price", price)]:
                self.order.enter(row, column, value)
        self.other.copy(self.random.choice(["\n", "\r\n"]).join(fields) +
                        self.random.choice(["", "\n"]))
        self.go_to(first, CODE)
        press(["ctrl+v"])

    def move_rows(self):
        """The menu marks a row and removes it, or puts one before it, which is filled."""
        row = self.some_row()
        act, change = self.random.choice([("r", self.order.remove), ("i", self.order.insert)])
        self.go_to(row, CODE)
        # Not ahead of the menu: what X sends to a menu's window while Qt closes it is lost.
        for letter in ("m", act):
            press(["Menu"])
            time.sleep(0.3)
            press([letter])
            time.sleep(0.3)
        change(row)

    # ---- refusals ----

    def duplicate(self):
        """An article that is in another line is refused, and the operator sees it."""
        code, mark = self.order.line(self.some_row())["article"], len(self.demo.told())
        row = self.order.next_row()
        self.go_to(row, CODE)
        press(self.cell(code.lower()))
        if not within(SEEN, lambda: self.told_since(mark, code)):
            raise Lost(f"nobody was told that {code} is refused in row {row}")
        time.sleep(0.6)
        self.blank(row)

    def blank(self, row):
        """What a refusal may have left in a new line's first cell goes."""
        press(["Escape"])
        self.go_to(row, CODE)
        press(["Delete"])

    def unknown_unit(self):
        mark, unit = len(self.demo.told()), f"dozen{next(self.codes)}"
        self.go_to(self.some_row(), UNIT)
        press(self.cell(unit))
        if not within(SEEN, lambda: self.told_since(mark, unit)):
            raise Lost(f"nobody was told that the unit {unit} is refused")
        press(["Escape"])

    def no_date(self):
        self.go_to(self.some_row(), DELIVERY)
        press(keys_of("31022027") + ["Return"])
        if not within(SEEN, self.demo.is_asked):
            raise Lost("a wrong date is not warned of")
        press(["Return"])
        within(SEEN, self.demo.has_keyboard)
        press(["Escape"])

    # ---- interruptions ----

    def switch_windows(self):
        """In the middle of a word another window has the keyboard for a while."""
        row, code, text = self.order.next_row(), self.new_code(), self.new_description()
        at = self.random.randint(1, len(text) - 1)
        self.other.typed()
        self.go_to(row, CODE)
        press(self.cell(code) + keys_of(text[:at]), self.delay)
        self.demo.activate(self.other.window)
        press(keys_of("elsewhere"))
        self.demo.activate(self.demo.window)
        press(keys_of(text[at:]) + ["Return"], self.delay)
        self.order.enter(row, "article", code.upper())
        self.order.enter(row, "description", text)
        if not within(SEEN, lambda: self.other.typed() == "elsewhere"):
            raise Lost("keys for the other window have gone astray")

    def stop(self):
        """The program stands still while the operator types on."""
        self.demo.send(signal.SIGSTOP)
        threading.Timer(self.random.uniform(0.2, 1), self.demo.send, [signal.SIGCONT]).start()
        self.lines()

    def kill(self):
        """The program dies while lines are typed: what was finished and saved is whole."""
        row, count = self.order.next_row(), self.random.randint(2, 6)
        keys = [key for each in range(count) for key in self.line_keys(row + each)]
        self.go_to(row, CODE)
        delay = self.random.randint(1, 6)
        typing = threading.Thread(target=press, args=[keys, delay])
        typing.start()
        time.sleep(self.random.uniform(0, len(keys) * (delay + 3) / 1000))
        self.demo.kill()
        typing.join()
        held = self.check_states()
        self.say(f"killed in state {self.order.states.index(held)} of {len(self.order.states)}")
        self.kills += 1
        self.demo.start()
        self.order.take(held)

    def leave_and_return(self):
        """Leaving in the middle of an edit enters it."""
        if self.random.random() < 0.5:
            row, text = self.some_row(), self.new_description()
            self.go_to(row, DESCRIPTION)
            press(keys_of(text))
            self.order.enter(row, "description", text)
        self.demo.close()
        held = in_file(self.demo.file)
        if held != self.order.saved():
            self.differ(held, [self.order.saved()], "left with something unsaved")
        self.order.is_past()
        self.demo.start()

    # ---- a file that does not take it ----

    def expect_unsaved(self, why):
        self.lines(1)
        if not within(20, self.demo.shows_unsaved):
            raise Lost(f"nobody was told that {why} takes nothing")
        if self.random.random() < 0.4:
            self.demo.ask_to_close()
            if not within(20, self.demo.is_asked):
                raise Lost(f"leaving with unsaved lines does not ask: {why}")
            press(["Escape"])
            if not within(20, self.demo.has_keyboard):
                raise Lost("who stays does not get back to the form")
        if self.random.random() < 0.3:
            self.lines(1)

    def read_only(self):
        """A file that nobody may write is refused with a word, and left as it is."""
        self.demo.close()
        folder = self.demo.file.parent
        before = in_file(self.demo.file)
        for path, mode in [(self.demo.file, 0o444), (folder, 0o555)]:
            path.chmod(mode)
        # The superuser may write everything, unless he gives that away.
        drop = ["setpriv", "--bounding-set=-dac_override"] if os.geteuid() == 0 else []
        try:
            self.demo.launch(drop)
            within(20, lambda: self.demo.has_ended() or self.demo.is_asked())
            within(5, lambda: self.demo.has_ended() or press(["Return"]))
            if self.demo.process.poll() != 1:
                self.demo.kill()
                raise Lost("a file that cannot be written is not refused")
        finally:
            for path, mode in [(folder, 0o755), (self.demo.file, 0o644)]:
                path.chmod(mode)
        if in_file(self.demo.file) != before:
            raise Lost("a file that was refused has changed")
        self.demo.start()

    def come_free(self):
        """What the operator was told is unsaved is saved in the end; a kill may take it."""
        if self.random.random() < 0.2:
            self.demo.kill()
            self.kills += 1
            held = self.check_states()
            self.demo.start()
            self.order.take(held)
        if not self.saves_by_itself:
            self.lines(1)
        self.settle()

    def lock(self, pause=0):
        other = sqlite3.connect(self.demo.file, timeout=10, isolation_level=None)
        other.execute("BEGIN EXCLUSIVE")
        self.expect_unsaved("a locked file")
        time.sleep(pause)
        other.execute("ROLLBACK")
        other.close()
        self.come_free()

    def fill_disk(self):
        self.demo.limit_files(4096)
        self.expect_unsaved("a full disk")
        self.demo.limit_files()
        self.come_free()

    def forbid(self):
        """The database itself refuses every change."""
        with sqlite3.connect(self.demo.file, timeout=10) as other:
            for change in ("INSERT", "UPDATE", "DELETE"):
                other.execute(f"CREATE TRIGGER no_{change} BEFORE {change} ON order_lines BEGIN"
                              " SELECT RAISE(ABORT, 'this order is read-only'); END")
        self.expect_unsaved("a read-only order")
        for change in ("INSERT", "UPDATE", "DELETE"):
            other.execute(f"DROP TRIGGER no_{change}")
        other.commit()
        other.close()
        self.come_free()

    # ---- what a form should bear, too ----

    def type_on(self):
        """The operator types on after a refused article: what he typed belongs to the line that is
        refused, or he is told that it is gone. Nothing of it gets into another line."""
        self.settle()
        before, mark = in_file(self.demo.file), len(self.demo.told())
        row, refused = self.order.next_row(), self.order.line(self.some_row())["article"]
        other, texts = self.new_code().upper(), [self.new_description() for _ in range(2)]
        self.go_to(row, CODE)
        keys = self.cell(refused.lower()) + self.cell(texts[0]) + self.cell("4711") + self.cell("8")
        press(keys + self.cell(other.lower()) + self.cell(texts[1]))
        time.sleep(1.5)
        self.blank(row)
        press(self.cell(self.new_code()))
        within(SEEN, lambda: row in in_file(self.demo.file))
        held = in_file(self.demo.file)
        if any(held.get(each) != line for each, line in before.items()):
            self.differ(held, [before], "what was typed ahead is in another line")
        saved = {line["description"] for line in held.values()}
        for text in texts:
            if text not in saved and not self.told_since(mark, text):
                raise Lost(f"“{text}” was typed on after {refused} was refused in row {row}: it is "
                           "neither kept nor told")
        self.order.take(held)

    def paste_refused(self):
        """A block with values that cannot be: each of them is told."""
        self.settle()
        row, mark = self.order.next_row(), len(self.demo.told())
        wrong = f"many{next(self.codes)}"
        code, text = self.new_code(), self.new_description()
        self.other.copy(f"{code}\t{text}\t{wrong}\t5\n")
        self.go_to(row, CODE)
        press(["ctrl+v"])
        for column, value in [("article", code.upper()), ("description", text), ("price", 500)]:
            self.order.enter(row, column, value)
        self.settle()
        if not within(SEEN, lambda: self.told_since(mark, wrong)):
            raise Lost(f"nobody was told that {wrong} was not taken from the pasted block")

    def rename_file(self):
        """Somebody moves the file away and back again."""
        away = self.demo.file.with_suffix(".away")
        self.settle()
        self.demo.file.rename(away)
        self.lines(1)
        told = within(SEEN, self.demo.shows_unsaved)
        away.rename(self.demo.file)
        if not told:
            raise Lost("nobody was told that the file is gone")
        self.come_free()

    def two_windows(self):
        """The same order in a second window: refused, or what is typed in both is saved."""
        self.settle()
        second = Demo(self.demo.program, self.demo.file, self.demo.locale)
        second.told_file = second.told_file.with_suffix(".second")
        second.launch()
        within(20, lambda: second.has_ended() or second.is_asked())
        second.window = "" if second.has_ended() else xdotool("getactivewindow")
        if not second.window or self.demo.file.name not in xdotool("getwindowname", second.window):
            second.kill() # It has refused the file and said so.
            return self.demo.activate(self.demo.window)
        row, codes = self.order.next_row(), [self.new_code().upper() for _ in range(2)]
        for demo, code in zip([self.demo, second], codes):
            demo.activate(demo.window)
            self.go_to(row, CODE)
            press(self.cell(code.lower()) + ["ctrl+Home"])
            within(SEEN, lambda: row in in_file(self.demo.file))
        time.sleep(1)
        held, told = in_file(self.demo.file), "".join(self.demo.told() + second.told())
        second.kill()
        self.demo.activate(self.demo.window)
        saved = {line["article"] for line in held.values()}
        if lost := [code for code in codes if code not in saved and code not in told]:
            raise Lost(f"of two windows on one order one overwrote {lost} of the other in row {row}")
        self.order.take(held)

    def no_article(self):
        """Leaving with a line that has no article, and so is not saved, asks."""
        self.settle()
        row, text = self.order.next_row(), self.new_description()
        self.go_to(row, DESCRIPTION)
        press(self.cell(text))
        self.demo.ask_to_close()
        within(SEEN, lambda: self.demo.has_ended() or self.demo.is_asked())
        if self.demo.has_ended():
            raise Lost(f"leaving dropped “{text}” in row {row}, which has no article, unasked")
        press(["Escape"])
        within(SEEN, self.demo.has_keyboard)
        self.go_to(row, CODE)
        code = self.new_code()
        press(self.cell(code))
        self.order.enter(row, "article", code.upper())
        self.order.enter(row, "description", text)

    def wait_for_lock(self):
        """After a lock is gone, what waits is saved though the operator does nothing."""
        self.saves_by_itself = True
        self.lock(pause=6) # Until nothing that was typed ahead can save it.
        self.saves_by_itself = False
