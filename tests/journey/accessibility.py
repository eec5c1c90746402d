"""What a screen reader makes of every window: each control that can be worked has a name and a role
that fits it, the Tab key goes the way of a reader, and what a mouse can do outside the exercises a
keyboard can do too, from the first box to an exercise.

    alone accessibility.py PROGRAM
"""
import os
import sys

from gi.repository import GLib

from desktop import Desktop, Failure, Program
from printing_system import PrintingSystem
from quick import ENABLED, FOCUSED, SHOWING, Controls, Hands, await_that
from steps import fresh_drive

ACTIVE, FOCUSABLE = 1, 11  # states, as the accessibility bus numbers them
PROPERTIES = "org.freedesktop.DBus.Properties"
ACTION = "org.a11y.atspi.Action"
WINDOWS = {"frame", "dialog", "alert message"}
WORKED = {"push button", "check box", "radio button", "combo box", "list", "list item", "text",
          "table", "page tab list", "page tab", "spin box", "slider", "menu item",
          "check menu item", "radio menu item", "tree"}
# What only takes keys, and what can be marked to be read aloud.
QUIET = {"graphic", "label"}
# The toolkit's own fields of colours in its dialog of colours.
COLOURS = {"Colori di base", "Colori personalizzati"}
# What a group of them has in common is one stop: the arrows go on from there.
GROUPED = {"radio button", "page tab", "list item"}
# They tell of the keyboard for what is in them.
HOLDERS = {"page tab", "panel", "list item", "frame", "dialog", "alert message"}
SCREEN = (1366, 768)
LIGHT = "FF0000"  # RRGGBB, of a new player


class Item:
    """One object of a window, as it was told."""

    def __init__(self, reader, path, parent):
        self.path, self.parent = path, parent
        self.name = reader.told(path, "Name")
        self.design = reader.told(path, "Description").split(":")[0]
        self.role = reader.ask(path, "GetRoleName")[0]
        words = reader.ask(path, "GetState")[0]
        self.states = {bit for bit in range(64) if words[bit // 32] >> (bit % 32) & 1}
        self.box = reader.box_of(path)
        self.place = self.box  # that of the first one of its group

    def __str__(self):
        return f"{self.role} '{self.name}' {self.design}"

    def ancestry(self):
        return [*(self.parent.ancestry() if self.parent else []), self]

    def pressed(self):
        """Whether a press does something that a person could miss."""
        return self.role in WORKED and self.role not in ("menu item", "list item")


class Reader(Controls):
    """Reads whole windows."""

    def items(self, path, parent=None):
        item = Item(self, path, parent)
        if SHOWING not in item.states:
            return []
        found = [item]
        if item.role not in ("table", "tree"):
            for child in self.children(path):
                found += self.items(child, item)
        return found

    def front(self):
        """All of the window that was opened last."""
        found = self.items(self.windows()[-1])
        groups = {}
        for item in found:
            if item.role == "radio button":
                item.place = groups.setdefault(item.parent, item).box
        return found

    def keyboard(self, items):
        """Where it is, among these."""
        return next((item for item in items if item.role not in HOLDERS
                     and self.has(item.path, FOCUSED)), None)


def fitting(where, items):
    """Names and roles."""
    window = items[0]
    if window.role not in WINDOWS or not window.name:
        raise Failure(f"{where}: the window is a {window}")
    seen = {}
    for item in items:
        if item.role not in WORKED and FOCUSABLE not in item.states:
            continue
        if item.role not in WORKED | QUIET and item.name not in COLOURS:
            raise Failure(f"{where}: who knows what to do with a {item}?")
        if not item.name.strip():
            raise Failure(f"{where}: a {item} without a name")
        if item.role == "push button":
            twin = seen.setdefault((item.name, item.design), item)
            if twin is not item:
                raise Failure(f"{where}: two are called {item}")


def above(one, other):
    """Whether a reader comes to `one` before `other`: in a row the left one, else the one that
    begins higher."""
    ways = list(zip(one.ancestry(), other.ancestry()))
    fork = next((index for index, (mine, its) in enumerate(ways) if mine is not its), None)
    if fork is None:  # one lies in the other
        return len(one.ancestry()) < len(other.ancestry())
    left, right = (way.place for way in ways[fork])
    if abs(left[1] - right[1]) < min(left[3], right[3]) / 2:  # a row
        return left[0] < right[0]
    return left[1] < right[1]


def stops(reader, hands, items):
    """Where the Tab key goes, from where the keyboard is until it is there again."""
    takers = [item for item in items if FOCUSABLE in item.states]
    first = await_that("the keyboard", lambda: reader.keyboard(takers), 5)
    found = [first]
    while len(found) <= len(takers):
        hands.key("Tab")
        try:
            now = await_that("the next stop", lambda: (
                item := reader.keyboard(takers)) is not found[-1] and item, 1)
        except Failure:
            if len(found) == 1:  # there is one stop
                return found
            raise
        if now is first:
            return found
        if now in found:
            break
        found.append(now)
    raise Failure(f"the Tab key does not come back to {first}")


def in_reading_order(where, found):
    begin = next((index for index in range(len(found))
                  if all(above(found[index], other) for other in found if other is not found[index])),
                 None)
    order = found if begin is None else found[begin:] + found[:begin]
    for one, other in zip(order, order[1:]):
        if begin is None or not above(one, other):
            raise Failure(f"{where}: the Tab key goes " + ", ".join(map(str, order)))


def reached(where, items, found):
    """By Tab, or by arrows from a stop of the same group."""
    groups = {(item.role, item.parent.path) for item in found if item.role in GROUPED}
    arrays = {item.design.split("(")[0] for item in found if item.design}
    for item in items:
        if not item.pressed() or ENABLED not in item.states or item in found:
            continue
        if item.role == "page tab" and item.parent in found:
            continue
        # The two arrows at a field for a number, which can be typed.
        if item.design.startswith("upd") and any(
                stop.design == "txt" + item.design[3:].split(".")[0] for stop in found):
            continue
        if (item.role, item.parent.path) in groups or (
                "(" in item.design and item.design.split("(")[0] in arrays):
            continue
        raise Failure(f"{where}: no key comes to the {item}")


class Visit:
    """Works the windows by keys alone, and looks at each."""

    def __init__(self, reader, hands):
        self.reader, self.hands = reader, hands

    def look(self, where):
        """Names and roles of the window in front."""
        items = await_that(where, self.reader.front)
        fitting(where, items)
        return items

    def tab_through(self, where):
        items = self.look(where)
        found = stops(self.reader, self.hands, items)
        in_reading_order(where, found)
        reached(where, items, found)
        return found

    def go_to(self, name):
        """Tab until what has that name or design name has the keyboard."""
        takers = [item for item in self.reader.front() if FOCUSABLE in item.states]
        for _ in takers:
            now = await_that("the keyboard", lambda: self.reader.keyboard(takers))
            if name in (now.name, now.design):
                return
            self.hands.key("Tab")
            await_that("the next stop", lambda: self.reader.keyboard(takers) is not now)
        raise Failure(f"the Tab key does not come to {name}")

    def press(self, name, key="space"):
        self.go_to(name)
        self.hands.key(key)

    def window(self, name):
        await_that(f"the window {name}", lambda: (
            front := self.in_front()) and self.reader.told(front, "Name") == name)

    def in_front(self):
        """The window that was opened last, when it has the keyboard."""
        windows = self.reader.windows()
        return windows and self.reader.has(windows[-1], ACTIVE) and windows[-1]

    def away(self, name, key="Escape"):
        """Until the box is gone; the key may come before the box has the keyboard."""
        def gone():
            windows = self.reader.windows()
            return not windows or self.reader.told(windows[-1], "Name") != name
        for _ in range(20):
            self.hands.key(key)
            try:
                return await_that(f"the end of {name}", gone, 0.5)
            except Failure:
                continue
        raise Failure(f"{name} does not go by {key}")

    def shows(self, *names):
        self.reader.comes(*names)

    def choose(self, *letters):
        """Menus by their letters, the first one with Alt held, and what has none by arrows."""
        await_that("a window in front", self.in_front)
        self.hands.key("Alt_L", letters[0])
        for letter in letters[1:]:
            self.hands.key(letter)

    def walk_to(self, *arrows):
        """Along the menu bar, whose items need no letters for it."""
        await_that("a window in front", self.in_front)
        self.hands.key("Alt_L")
        for arrow in arrows:
            self.hands.key(arrow)
        self.hands.key("Return")


def the_start(visit):
    visit.window("MorleneKVT")
    visit.look("the box of the font")
    visit.hands.key("Return")
    visit.shows("FormAvvio", "Command1")
    visit.tab_through("the splash")
    visit.press("Command1", "Return")
    visit.shows("FormMenu", "Image1(7)")
    visit.look("the menu")


def the_box_about(visit):
    visit.walk_to("Right", "Down", "Down")
    visit.shows("FormInfo", "Label4")
    visit.tab_through("the window about the program")
    visit.press("Command1")
    visit.shows("FormMenu")


def page(visit, name):
    """Along the tabs, from wherever the keyboard is."""
    tabs = visit.reader.search(lambda item: visit.reader.ask(item, "GetRoleName")[0] ==
                               "page tab list")
    now = visit.reader.told(tabs, "Name")
    visit.go_to(now)
    while now != name:
        visit.hands.key("Right")
        before = now
        await_that("the next page", lambda: visit.reader.told(tabs, "Name") != before)
        now = visit.reader.told(tabs, "Name")
    visit.tab_through(name)


def the_configuration(visit):
    visit.walk_to()
    visit.shows("FormConfigura", "OptionUtente(0)")
    visit.tab_through("Giocatori")
    visit.press("CheckSalvaUtente")
    visit.go_to("OptionUtente(0)")
    # None of them is chosen yet.
    visit.hands.key("Down")
    visit.press("OptionUtente(1)")
    visit.shows("ListModificaUtente")
    visit.tab_through("the players")
    visit.go_to("OptionUtente(1)")
    visit.hands.key("Up")

    page(visit, "Colori morlene")
    visit.go_to("Option2(0)")
    visit.hands.key("Down")
    visit.press("CasellaColorata(0)")
    visit.window("Morlenekvt")
    visit.tab_through("the name of a colour")
    visit.away("Morlenekvt")  # the others of that name too
    page(visit, "Scelte didattiche")
    page(visit, "Font e colori")
    for button, title in (("CommandSceltaColoreFont", "Colore"), ("CommandSceltaFont", "Font")):
        visit.press(button)
        visit.window(title)
        visit.look(title)
        visit.away(title)
    page(visit, "Suoni ")
    page(visit, "Modalità di input")
    visit.go_to("Option4(0)")
    visit.hands.key("Down")
    visit.hands.key("Down")
    visit.shows("HScroll3")
    visit.tab_through("automatic scanning")
    visit.go_to("Option4(2)")
    visit.hands.key("Down")
    visit.choose("e")
    visit.shows("FormMenu")


def the_log(visit):
    visit.walk_to("Right")
    visit.shows("FormEserciziEseguiti", "MSFlexGrid1")
    visit.tab_through("the log")
    for title, arrows in (("Salva", []), ("Apri", ["Down"])):
        visit.choose("f", *arrows, "Return")
        visit.window(title)
        visit.look(title)
        visit.away(title)
        visit.window("Morlenekvt")
        visit.tab_through("the box of an error")
        visit.away("Morlenekvt", "Return")
    visit.choose("e")
    visit.shows("FormMenu", "PictureScansioneManuale")


def light_up(visit, index):
    """The next entry of the menu; a first arrow may come before the window has the keyboard."""
    x, y, width, height = visit.reader.box(f"Command1({index})")
    for _ in range(5):
        visit.hands.key("Right")
        try:
            return await_that(f"the light on {index}", lambda: visit.hands.colour(
                x + width // 6, y + height // 6) == LIGHT, 1)
        except Failure:
            continue
    raise Failure(f"the light does not come to {index}")


def the_exercises(visit):
    """By arrows and Enter, as the player now answers."""
    for entry in range(8):
        for index in range(1, entry + 1):
            light_up(visit, index)
        visit.hands.key("Return")
        visit.shows(f"FormEs{[1, 2, 8, 3, 4, 5, 6, 7][entry]}", "PictureScansioneManuale")
        visit.look(f"exercise {entry + 1}")
        if entry == 0:
            visit.hands.key("Control_L", "v")
            visit.shows("cmdStampa")
            visit.tab_through("the print dialog")
            visit.press("cmdChiudi")
            await_that("the end of the dialog", lambda: len(visit.reader.windows()) == 1)
            the_pictures_to_colour(visit)
        visit.choose("e")
        visit.shows("FormMenu", "PictureScansioneManuale")


def the_pictures_to_colour(visit):
    await_that("a window in front", visit.in_front)
    visit.hands.key("Control_L", "p")
    visit.shows("Form1", "Picture1(2)")
    visit.tab_through("the pictures to colour")
    visit.press("Picture1(1)")
    visit.shows("cmdStampa")
    visit.press("cmdChiudi")
    await_that("the end of the dialog", lambda: len(visit.reader.windows()) == 2)
    visit.choose("e")
    await_that("the end of the pictures", lambda: len(visit.reader.windows()) == 1)


def accessibility(executable, drive):
    fresh_drive(drive)
    with PrintingSystem() as system, Desktop("%dx%d" % SCREEN) as desktop:
        system.add_printer("Stampante")
        os.environ["CUPS_SERVER"] = system.environment["CUPS_SERVER"]
        program = Program(desktop, executable, env=dict(os.environ, PATH="/nonexistent"))
        visit = Visit(Reader(program.process.pid), Hands())
        the_start(visit)
        the_box_about(visit)
        the_configuration(visit)
        the_log(visit)
        the_exercises(visit)


if __name__ == "__main__":
    try:
        accessibility(*sys.argv[1:])
    except (Failure, GLib.Error) as failure:
        sys.exit(f"FAILED: {failure}")
