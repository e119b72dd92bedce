"""The operator's hands and eyes: keys by xdotool, windows by their titles, the demo as a process.

Nothing in here knows what an order is.
"""
import json
import os
import pathlib
import resource
import signal
import subprocess
import time

NAMES = {
    " ": "space", ".": "period", ",": "comma", "-": "minus", "/": "slash", "(": "parenleft",
    ")": "parenright", "#": "numbersign", "+": "plus", "&": "ampersand", "=": "equal",
    ";": "semicolon", "'": "apostrophe", ":": "colon",
}


class Lost(Exception):
    """What must not happen has happened."""


def keys_of(text):
    return [NAMES.get(character, character) for character in text]


def xdotool(*arguments):
    done = subprocess.run(["xdotool", *arguments], capture_output=True, text=True)
    return done.stdout.strip() if done.returncode == 0 else ""


def press(keys, delay=0):
    """The keys one after the other, as fast as the display takes them."""
    for first in range(0, len(keys), 400):
        subprocess.run(["xdotool", "key", "--delay", str(delay), *keys[first:first + 400]],
                       check=True, capture_output=True)


def within(seconds, condition):
    deadline = time.monotonic() + seconds
    while not condition():
        if time.monotonic() > deadline:
            return False
        time.sleep(0.03)
    return True


class Other:
    """Another application: it has the keyboard for a while, and the clipboard."""

    def __init__(self, program):
        self.process = subprocess.Popen([program], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        text=True)
        if not within(20, lambda: xdotool("search", "--onlyvisible", "--name", "Other window")):
            raise Lost("the other window does not come up")
        self.window = xdotool("search", "--onlyvisible", "--name", "Other window").split()[0]

    def ask(self, what, text=""):
        self.process.stdin.write(json.dumps([what, text]) + "\n")
        self.process.stdin.flush()
        return json.loads(self.process.stdout.readline())[0]

    def copy(self, text):
        self.ask("copy", text)

    def typed(self):
        """What was typed into it since it was asked last."""
        return self.ask("typed")

    def end(self):
        self.process.kill()
        self.process.wait()


class Demo:
    """The demo on a file, in its window."""

    def __init__(self, program, file, locale, arguments=()):
        self.program, self.file, self.locale = program, file, locale
        self.arguments = list(arguments)
        self.told_file = pathlib.Path(f"{file}.told")
        self.process = None
        self.window = ""

    def launch(self, before=()):
        self.told_file.unlink(missing_ok=True)
        environment = dict(os.environ, LC_NUMERIC=f"{self.locale}.UTF-8")
        # Python leaves SIGXFSZ ignored here, so that a file that may not grow is an error.
        self.process = subprocess.Popen(
            [*before, self.program, "--database", self.file, "--told", self.told_file,
             *self.arguments],
            env=environment, stdout=subprocess.DEVNULL,
            stderr=open(f"{self.file}.printed", "a"), restore_signals=False)

    def start(self):
        self.launch()
        if not within(20, self.has_keyboard):
            raise Lost("the demo's window does not come up with the keyboard")

    def has_ended(self):
        return self.process.poll() is not None

    def find(self):
        found = xdotool("search", "--onlyvisible", "--name",
                        " - " + pathlib.Path(self.file).name + "$").split()
        self.window = found[0] if found else ""
        return self.window

    def has_keyboard(self):
        if self.has_ended():
            raise Lost(f"the demo has ended with status {self.process.returncode}: "
                       + pathlib.Path(f"{self.file}.printed").read_text()[-2000:])
        return bool(self.find()) and xdotool("getactivewindow") == self.window

    def is_asked(self):
        """Another of its windows, a question say, has the keyboard."""
        active = xdotool("getactivewindow")
        return bool(active) and active != self.window and \
            xdotool("getwindowpid", active) == str(self.process.pid)

    def shows_unsaved(self):
        return "*" in xdotool("getwindowname", self.window)

    def activate(self, window):
        xdotool("windowactivate", "--sync", window)

    def told(self):
        """What the form has shown the operator so far, message by message."""
        return self.told_file.read_text().splitlines() if self.told_file.exists() else []

    def send(self, number):
        self.process.send_signal(number)

    def kill(self):
        self.send(signal.SIGKILL)
        self.process.wait()

    def limit_files(self, most=None):
        """No file may grow beyond so many bytes."""
        hard = resource.prlimit(self.process.pid, resource.RLIMIT_FSIZE)[1]
        resource.prlimit(self.process.pid, resource.RLIMIT_FSIZE,
                         (hard if most is None else most, hard))

    def ask_to_close(self):
        press(["alt+F4"])

    def close(self):
        self.ask_to_close()
        if not within(20, self.has_ended):
            raise Lost("the demo does not close")
        if self.process.returncode:
            raise Lost(f"the demo ends with status {self.process.returncode}")
