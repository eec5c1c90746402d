"""Somebody at the screen who works fast and never gives up at once: presses, looks, and presses again
what came before the window could take it. What was done last is kept for whoever asks why."""
import collections

from gi.repository import GLib

from desktop import Failure
from quick import MENU_BAR, Controls, Hands, await_that

KEPT_ACTIONS = 20


class AtScreen:
    def __init__(self, process):
        self.process = process
        self.hands = Hands()
        self.eyes = Controls(process.pid)
        self.actions = collections.deque(maxlen=KEPT_ACTIONS)
        self.tasks = self.again = 0

    # --- Hands ---

    def note(self, action):
        self.actions.append(f"{self.tasks:6} {action}")

    def click(self, name):
        self.click_box(self.eyes.box(name), name)

    def click_path(self, path, what):
        self.click_box(self.eyes.box_of(path), what)

    def click_box(self, box, what):
        self.note(f"click {what}")
        x, y, width, height = box
        self.hands.click(x + width // 2, y + height // 2)

    def hover(self, name):
        x, y, width, height = self.eyes.box(name)
        self.hands.move(x + width // 2, y + height // 2)

    def key(self, *names):
        self.note("key " + "+".join(names))
        self.hands.key(*names)

    def until(self, act, what, look, tries=3):
        """Acts, and once more where an action came before the window could take it."""
        for left in reversed(range(tries)):
            act()
            try:
                return await_that(what, look, 5 if left else 15)
            except Failure:
                if not left:
                    raise
                self.again += 1
                self.note("again")

    # --- Windows ---

    def expect_windows(self, count=1):
        """No box that no rule asks for."""
        if self.process.poll() is not None:
            raise Failure(f"the program ended with {self.process.returncode}")
        await_that(f"{count} windows, no box among them",
                   lambda: self.hands.windows() == count, 5)

    def boxes(self):
        """What the windows say that have no menu bar."""
        try:
            return [[self.eyes.told(item, "Name") for item in self.eyes.children(window)]
                    for window in self.eyes.windows() if not self.eyes.search(
                        lambda item: self.eyes.role(item) == MENU_BAR, window)]
        except GLib.Error as error:
            return error

    def open(self, act, *comes):
        def there():
            self.eyes.look_round()
            return all(self.eyes.shows(name) for name in comes)
        self.until(act, " and ".join(comes), there)

    def leave(self, *comes):
        """By the last item of the menu bar, which leads back everywhere."""
        self.open(lambda: self.click_path(self.eyes.menu_items()[-1], "Esci"), *comes)

    def start(self):
        """From the splash to the menu. The bus tells of a window before the window manager has it,
        and a click that comes between is lost."""
        self.eyes.comes("Command1")
        self.expect_windows()
        self.open(lambda: self.click("Command1"), "Image1(8)")
