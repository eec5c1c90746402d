"""A pupil that plays on and on: all eight exercises in all four ways to answer, with whatever
children and teachers do in between. Levels, languages, players and settings change, print dialogs
are opened and closed, windows are left in the middle. It decides from what the screen shows and
says; where the picture does not tell (after a reward, among twins, in a language it cannot read) it
tries one answer and then the other.

    alone pupil.py PROGRAM TASKS [SEED]

It keeps an account of its own of what it played, and holds the log of the exercises against it
before it changes player. Now and then it rests: always in the same player's menu, in Italian, so
that memory, descriptors and what the program keeps in the display can be compared. After a first
thousand tasks memory may grow by 2 MB, and the others by nothing. In a shorter run, which goes on
meeting things for the first time, memory is only told, and of the others there may be two more of a
kind than at the end of its first third: a leak at each visit makes more. The same seed makes the
same plan.
"""
import collections
import os
import random
import sys
import tempfile
import time

from gi.repository import GLib

from child import EXERCISES, INSIDE, PARTS, spot_in
from desktop import Desktop, Failure, figure
from exercises import ARROWS, MOUSE, OUTLINE, SWITCH, fits, painted_as, tells_all
from printing_system import PrintingSystem
from quick import (FOCUSED, LIST_ITEM, MENU_BAR, MENU_ITEM, PAGE_TAB, SHOWING, TICKED, Controls,
                   Hands, await_that, descriptors, memory)
from scanning import CHOOSE, LIT, PROFILE, STEP
from sentences import painted, sentence_holds
from steps import SETTINGS, fresh_drive

LATE = 8  # tries, where the light goes on while a key is on its way
PLAYERS = ["_predefinito", "Anna", "Bruno", "Carla", "Dario"]
MODES = [MOUSE, MOUSE, 1, SWITCH, ARROWS]  # of the players
TURNS = ["_predefinito", "Carla", *["Anna", "Bruno", "Dario"] * 3]
REST_PLAYER = "Anna"
LANGUAGES = ["deutsch", "english", "español", "français", "italiano"]
FULL = 440  # rows of the log; a visit makes fewer than forty
KEPT_ACTIONS = 20
LONGEST = 12  # tasks of a visit; a short run makes shorter ones
FIRST_TASKS = 1000
MAY_GROW = 2048  # kB, after them
MET_FIRST = 2  # of a kind, in a short run: what was needed for the first time
NEXT = [2, 2, 0, 0, 1, 2, 0, 0]  # in the order of the menu: which button leads to the next task
PRINT_DIALOGS = [("o", "cmdChiudi"), ("v", "cmdChiudi"), ("p", "Picture1(0)")]
FORMS = [f"FormEs{number}" for number in (1, 2, 8, 3, 4, 5, 6, 7)]  # in the order of the menu
READ_NOTHING = [0, 1, 2, 3, 5]  # what can be played without reading


class Log:
    """The pupil's own account: one row for each level played."""

    def __init__(self):
        self.clear()

    def clear(self):
        self.rows = {}
        self.now = 0

    def begin(self, title):
        self.now += 1
        self.rows[self.now] = [title, "", "", ""]

    def close_row(self, level, right, wrong):
        row = self.rows.setdefault(self.now, ["", "", "", ""])
        row[1:] = [str(level), str(right), str(wrong)]
        self.now += 1


def letters(text):
    """A caption and the title in the log differ in capitals, line breaks and signs."""
    return "".join(sign for sign in text.casefold() if sign.isalnum())


class Pupil:
    def __init__(self, process, seed, longest):
        self.longest = longest  # tasks of a visit
        self.decks = {}
        self.chance = random.Random(seed)
        self.process = process
        self.hands = Hands()
        self.eyes = Controls(self.process.pid)
        self.actions = collections.deque(maxlen=KEPT_ACTIONS)
        self.tasks = self.untold = self.late = self.again = self.rows_checked = 0
        self.played = collections.Counter()
        self.log = Log()
        self.entry = self.level = 0
        self.counts = (0, 0)
        self.framed_among = []
        self.player = PLAYERS[0]
        self.language = "italiano"
        self.settings = {name: {"mode": mode, "levels": False}
                         for name, mode in zip(PLAYERS, MODES)}

    # --- Hands ---

    @property
    def mode(self):
        return self.settings[self.player]["mode"]

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

    def leave(self, *comes):
        """By the last item of the menu bar, which leads back everywhere."""
        def act():
            items = self.eyes.menu_items()
            self.click_path(items[-1], "Esci")

        def there():
            self.eyes.look_round()
            return all(self.eyes.shows(name) for name in comes)
        self.until(act, "the window before", there)

    def open(self, act, *comes):
        def there():
            self.eyes.look_round()
            return all(self.eyes.shows(name) for name in comes)
        self.until(act, " and ".join(comes), there)

    def start(self):
        self.eyes.comes("Command1")
        self.open(lambda: self.click("Command1"), "Image1(8)")

    def focused(self, name):
        return self.mode == MOUSE or self.eyes.has(self.eyes.paths[name], FOCUSED)

    def await_keyboard(self):
        """Where keys are wanted, until the window has them."""
        name = "PictureScansioneAutomatica" if self.mode == SWITCH else "PictureScansioneManuale"
        await_that("the keyboard", lambda: self.focused(name), 8)

    # --- The menu ---

    def point_menu(self, index, what):
        self.click_path(self.eyes.menu_items()[index], what)

    def change_language(self, language):
        self.note(f"language {language}")

        def act():
            bar = self.eyes.menu_items()[-1]
            self.click_path(bar, "Lingua")
            item = await_that(language, lambda: self.eyes.search(
                lambda one: self.eyes.role(one) == MENU_ITEM and
                self.eyes.told(one, "Name") == language, bar))
            self.click_path(item, language)
        before = self.eyes.name_of("Command1(7)")
        if language == self.language:
            return
        self.until(act, language, lambda: self.eyes.name_of("Command1(7)") != before)
        self.language = language

    def change_player(self, name):
        self.note(f"player {name}")
        if name == self.player:
            return
        self.check_log()

        def act():
            if not self.eyes.named(name, LIST_ITEM):
                self.click("Combo1")
            self.click_path(await_that(name, lambda: self.eyes.named(name, LIST_ITEM)), name)

        self.until(act, name, lambda: self.eyes.name_of("Combo1").casefold() == name.casefold()
                   and self.eyes.named(name, LIST_ITEM) is None)
        self.player = name
        self.log.clear()

    def check_log(self):
        self.open(lambda: self.point_menu(1, "Esercizi eseguiti"), "MSFlexGrid1")
        columns, rows = 5, self.log.now
        cells = [self.eyes.told(cell, "Name")
                 for cell in self.eyes.children(self.eyes.paths["MSFlexGrid1"])]
        shown = [cells[at:at + columns] for at in range(0, len(cells), columns)]
        if self.eyes.name_of("Label1").casefold() != self.player.casefold():
            raise Failure(f"the log is {self.eyes.name_of('Label1')}'s and not {self.player}'s")
        shown = [row for row in shown if row and row[0].strip().isdigit()]
        found = {int(row[0]): [letters(row[1]), *row[2:]] for row in shown}
        wanted = {row: self.log.rows.get(row, [""] * 4) for row in range(1, rows + 1)}
        if found != wanted:
            wrong = {row: (found.get(row), wanted.get(row)) for row in {*found, *wanted}
                     if found.get(row) != wanted.get(row)}
            raise Failure(f"the log and what was played, where they differ: {wrong}")
        self.rows_checked += rows
        self.expect_windows()
        self.leave("Image1(8)")

    def configure(self):
        """A teacher changes something, or goes without."""
        self.open(lambda: self.point_menu(0, "Configurazione"), "OptionUtente(2)")
        what = self.chance.choice(["levels", "sounds", "letters", "nothing"])
        self.note(f"settings: {what}")
        settings = self.settings[self.player]
        if what == "levels":
            self.tick("Scelte didattiche", "Check1")
            settings["levels"] = not settings["levels"]
        elif what == "sounds":
            self.tick("Suoni ", "CheckSuoni")
        elif what == "letters":
            self.tick("Font e colori", self.chance.choice(["minuscolo", "maiuscolo"]))
        self.leave("Image1(8)")

    def look_at_the_contact(self):
        """The little window about the program, by the keyboard."""
        def act():
            bar = self.eyes.menu_items()[-2]
            self.click_path(bar, "Informazioni")
            item = await_that("about", lambda: [one for one in self.eyes.children(
                self.eyes.children(bar)[0]) if self.eyes.has(one, SHOWING)][-1:])
            self.click_path(item[0], "about")
        self.open(act, "Label4", "Command1")
        self.expect_windows()
        self.open(lambda: self.click("Command1"), "Image1(8)")

    def tick(self, page, control):
        tab = await_that(page, lambda: self.eyes.named(page, PAGE_TAB))
        self.open(lambda: self.click_path(tab, page), control)
        path = self.eyes.paths[control]
        if control in ("minuscolo", "maiuscolo"):
            self.until(lambda: self.click(control), control, lambda: self.ticked(path))
        else:
            before = self.ticked(path)
            self.until(lambda: self.click(control), control, lambda: self.ticked(path) != before)

    def ticked(self, path):
        return self.eyes.has(path, TICKED)

    def lit_item(self, names):
        for name in names:
            x, y, width, height = self.eyes.box(name)
            # A letter may stand on one of the two places.
            if LIT in (self.hands.colour(x + width // 6, y + height // 6),
                       self.hands.colour(x + width // 6, y + height * 4 // 5)):
                return name
        return None

    def open_exercise(self, entry):
        shows = EXERCISES[entry][1]
        title = letters(self.eyes.name_of(f"Command1({entry})"))
        if self.mode == MOUSE:
            self.open(lambda: self.click(f"Image1({entry})"), shows, "StatusBar1.Panels(3)")
        else:
            self.open_by_light(entry)
        self.entry, self.counts, self.level = entry, (0, 0), 1
        self.log.begin(title)
        self.wait_for_task()

    def open_by_light(self, entry):
        items = [f"Command1({item})" for item in range(9)]
        for _ in range(LATE):
            self.await_keyboard()
            titles = [letters(self.eyes.name_of(item)) for item in items]
            self.bring(lambda: self.lit_item(items), items[entry])
            self.until(lambda: self.key(CHOOSE[self.mode]), "an exercise", self.exercise_shown)
            opened = FORMS.index(self.exercise_shown())
            if opened == entry:
                return
            if self.mode != SWITCH:
                raise Failure(f"{titles[entry]} was chosen and {titles[opened]} came")
            # The light had gone on: a look at this one, and back.
            self.late += 1
            self.log.begin(titles[opened])
            self.log.close_row(1, 0, 0)
            self.leave("Image1(8)")
        raise Failure(f"exercise {entry} never came")

    def exercise_shown(self):
        self.eyes.look_round()
        return next((form for form in FORMS if self.eyes.shows(form) and
                     self.eyes.shows("StatusBar1.Panels(3)")), None)

    def wait_for_task(self):
        sentence = {0: "Label1", 1: "Label1", 5: "Label1"}.get(self.entry)
        if sentence:
            await_that("a sentence", lambda: self.eyes.name_of(sentence))
        elif self.entry in (4, 6, 7):
            await_that("sentences", lambda: self.eyes.text("Text1").strip())
        await_that("a figure", lambda: self.shown(EXERCISES[self.entry][1]))
        self.await_keyboard()
        if self.seen() != (1, 0, 0):
            raise Failure(f"the exercise begins at {self.seen()}")

    # --- What the window says ---

    def panel(self, number):
        return int(self.eyes.name_of(f"StatusBar1.Panels({number})").split()[0])

    def seen(self):
        return self.panel(3), self.panel(1), self.panel(2)

    def shown(self, name):
        told = self.eyes.described(name)
        return figure(told) if ": " in told else {}

    def lines(self):
        return [line for line in self.eyes.text("Text1").replace("\r", "").split("\n") if line]

    def judged(self, act, gain=1):
        """Answers; True when it was right. Nothing else may have been counted."""
        before = self.counts
        act()
        try:
            await_that("an answer", lambda: (self.panel(1), self.panel(2)) != before, 5)
        except Failure:
            self.again += 1
            self.note("again")
            act()
            await_that("an answer", lambda: (self.panel(1), self.panel(2)) != before)
        self.counts = self.panel(1), self.panel(2)
        right, wrong = self.counts[0] - before[0], self.counts[1] - before[1]
        if (right, wrong) not in ((gain, 0), (0, 1)):
            raise Failure(f"one answer made {before} to {self.counts}")
        return right > 0

    # --- The light ---

    def bring(self, position, wanted):
        if self.mode == SWITCH:
            # The step itself: then the whole interval lies ahead.
            await_that("a step", lambda: position() not in (wanted, None) or None)
            await_that(f"the light on {wanted}", lambda: position() == wanted)
            return
        for _ in range(40):
            before = position()
            if before == wanted:
                return
            self.until(lambda: self.key(STEP[self.mode]), "a step",
                       lambda before=before: position() not in (before, None))
        raise Failure(f"the light never came to {wanted}")

    def choose_at(self, position, wanted, must=True):
        """True when it was right; with one switch a late key is tried again."""
        for _ in range(LATE if self.mode == SWITCH and must else 1):
            self.bring(position, wanted)
            if self.judged(lambda: self.key(CHOOSE[self.mode])):
                return True
            if must and self.mode == SWITCH:
                self.late += 1
        if must:
            raise Failure(f"{wanted} was judged wrong")
        return False

    def button(self, index, must=True):
        if self.mode == MOUSE:
            right = self.judged(lambda: self.click(f"Command1({index})"))
            if must and not right:
                raise Failure(f"button {index} was judged wrong")
            return right
        return self.choose_at(lambda: self.lit_item(["Command1(0)", "Command1(1)"]),
                              f"Command1({index})", must)

    def either(self, told):
        """One of the two buttons: the one that the picture tells, else one and then the other."""
        if told is not None:
            return self.button(0 if told else 1)
        for index in (0, 1) * LATE:
            if self.button(index, must=False):
                return True
            self.untold += 1
        raise Failure("neither answer was right")

    # --- The exercises ---

    def reads(self):
        return self.language == "italiano"

    def vero_o_falso(self):
        parts = self.shown("ShockwaveFlash1")
        told = self.reads() and painted(parts) and "fumo" in parts
        self.either(sentence_holds(self.eyes.name_of("Label1"), parts) if told else None)

    def uguale_diverso(self):
        one, other = self.shown("ShockwaveFlash1"), self.shown("ShockwaveFlash2")
        if not (self.reads() and one and other and painted(one) and painted(other)):
            return self.either(None)
        words = self.eyes.name_of("Label1").lower().split()
        part = next(word for word in words if word in one)
        return self.either((one[part] == other[part]) != ("non" in words))

    def differences(self):
        one, other = self.shown("ShockwaveFlash1"), self.shown("ShockwaveFlash2")
        parts = [index for index, part in enumerate(PARTS) if one[part] != other[part]]
        if len(parts) != self.level:
            raise Failure(f"{parts} differ on level {self.level}")
        if self.chance.random() < 0.1 and self.mode != SWITCH:
            self.wrong_on_purpose(next(part for part in range(6) if part not in parts))
        for part in parts:
            if not self.part(part, one):
                raise Failure(f"{PARTS[part]} was judged wrong")
        await_that("equal figures",
                   lambda: self.shown("ShockwaveFlash1") == self.shown("ShockwaveFlash2"))

    def wrong_on_purpose(self, part):
        if self.part(part, self.shown("ShockwaveFlash1"), must=False):
            raise Failure(f"{PARTS[part]} was judged right")

    def part(self, part, one, must=True):
        if self.mode != MOUSE:
            lit = self.frame_lit if self.entry == 2 else self.outline_lit
            return self.choose_at(lit, part, must)
        if self.entry == 2:
            return self.judged(lambda: self.click(f"Image1({part})"))
        # Smoke and clouds can be clicked on the figure that has them only.
        place = "ShockwaveFlash2" if one[PARTS[part]] == "0" else "ShockwaveFlash1"
        return self.judged(lambda: self.point(place, INSIDE[part]))

    def spot(self, name, place):
        return spot_in(self.eyes.box(name), place)

    def point(self, name, place):
        self.note(f"click {name} at {place}")
        self.hands.click(*self.spot(name, place))

    def outline_lit(self):
        return next((index for index, place in enumerate(OUTLINE)
                     if self.hands.colour(*self.spot("ShockwaveFlash2", place)) == LIT), None)

    def frame_lit(self):
        return next((index for index in range(8) if self.eyes.shows(f"Shape1({index})")), None)

    def colora(self):
        done = 0
        while done < 6:
            sentences = self.lines()
            if self.mode != MOUSE:
                self.paint_by_light(sentences)
                done += 1
                continue
            for sentence in sentences:
                self.paint(sentence)
            if not self.judged(lambda: self.click("Command1(0)"), gain=len(sentences)):
                raise Failure(f"{sentences} was judged wrong")
            done += len(sentences)

    def paint(self, sentence):
        part = next(part for part in PARTS if part in sentence.lower())
        for _ in range(5):
            now = self.shown("ShockwaveFlash1")
            if painted_as(sentence, part, now):
                return
            self.until(lambda: self.point("ShockwaveFlash1", INSIDE[PARTS.index(part)]), "a colour",
                       lambda now=now: self.shown("ShockwaveFlash1") != now)
        raise Failure(f"no colour satisfies {sentence}")

    def paint_by_light(self, sentences):
        before = self.shown("ShockwaveFlash1")
        while True:
            changed = lambda before=before: self.shown("ShockwaveFlash1") != before
            if self.mode == SWITCH:
                await_that("another colour", changed)
            else:
                self.until(lambda: self.key(STEP[self.mode]), "another colour", changed)
            now = self.shown("ShockwaveFlash1")
            part = next(part for part in PARTS if now[part] != before[part])
            sentence = next(line for line in sentences if part in line.lower())
            if painted_as(sentence, part, now):
                if self.judged(lambda: self.key(CHOOSE[self.mode])):
                    return
                if self.mode != SWITCH:
                    raise Failure(f"{sentence} was judged wrong of {now}")
                self.late += 1
            before = now

    def insiemi(self):
        sentence = self.eyes.name_of("Label1")
        told = self.reads() and tells_all(sentence, self.level)
        while self.eyes.shows("ShockwaveFlash1"):
            parts = self.shown("ShockwaveFlash1")
            self.either(fits(sentence, parts) if told else None)

    def grid(self):
        """Figures shown, and those of them that fit the description."""
        lines = self.lines()
        figures = [index for index in range(12) if self.eyes.shows(f"ShockwaveFlash1({index})")]
        fitting = [index for index in figures
                   if all(sentence_holds(line, self.shown(f"ShockwaveFlash1({index})"))
                          for line in lines)]
        if not fitting:
            raise Failure(f"no figure is the one described by {lines}")
        self.framed_among = figures
        for index in figures:  # each level has places of its own
            self.eyes.boxes.pop(f"ShockwaveFlash1({index})", None)
        return figures, fitting

    def framed(self):
        for index in self.framed_among:
            x, y, _, height = self.eyes.box(f"ShockwaveFlash1({index})")
            if self.hands.colour(x + 3, y + height // 2) == LIT:
                return index
        return None

    def figure(self, index, must=True):
        if self.mode == MOUSE:
            right = self.judged(lambda: self.click(f"ShockwaveFlash1({index})"))
            if must and not right:
                raise Failure(f"figure {index} was judged wrong")
            return right
        return self.choose_at(self.framed, index, must)

    def intrusi(self):
        figures, fitting = self.grid()
        twins = len(fitting) > 1
        left = len(figures) - 1
        for index in [one for one in figures if one not in fitting] + fitting * (1 + LATE * twins):
            if not left:
                return
            if index in fitting and not twins:
                return
            if not self.eyes.shows(f"ShockwaveFlash1({index})"):
                continue
            if self.figure(index, must=index not in fitting):
                left -= 1
            else:
                self.untold += 1
        if left:
            raise Failure(f"{left} intruders would not go")

    def indovina(self):
        if self.mode == ARROWS:
            self.intrusi()
            return
        _, fitting = self.grid()
        for index in fitting * (LATE if len(fitting) > 1 else 1):
            if self.figure(index, must=len(fitting) == 1):
                return
            self.untold += 1
        raise Failure("none of the twins was right")

    PLAYS = [vero_o_falso, uguale_diverso, differences, differences, colora, insiemi, intrusi,
             indovina]

    # --- From task to task ---

    def next_task(self):
        before = self.level, *self.counts
        name = f"Command1({NEXT[self.entry]})"
        text = self.eyes.text("Text1") if self.entry in (6, 7) else None
        if self.mode == MOUSE:
            await_that("the way to the next task", lambda: self.eyes.enabled(name))
            self.until(lambda: self.click(name), "the next task",
                       lambda: not self.eyes.enabled(name))
        else:
            await_that("the light on the way to the next task", lambda: self.lit_item([name]))
            self.until(lambda: self.key(CHOOSE[self.mode]), "the next task",
                       lambda: not self.lit_item([name]) and
                       (text is None or self.eyes.text("Text1") != text))
        if self.entry in (0, 1, 5):
            await_that("a sentence", lambda: self.eyes.name_of("Label1"))
        self.note_level(before)

    def note_level(self, before):
        """The level may have changed by itself; then the log has a row of the level before."""
        now = self.seen()
        if now == before:
            return
        if not self.settings[self.player]["levels"] or now[1:] != (0, 0) or \
                abs(now[0] - before[0]) != 1:
            raise Failure(f"the next task made {before} to {now}")
        self.note(f"level {now[0]} came by itself")
        self.log.close_row(*before)
        self.level, self.counts = now[0], now[1:]

    def choose_level(self, level):
        if self.settings[self.player]["levels"]:
            return
        if (level, 0, 0) == (self.level, *self.counts):
            return  # nothing would tell that it was done
        self.note(f"level {level}")
        self.until(lambda: self.key(f"F{level}"), f"level {level}",
                   lambda: self.seen() == (level, 0, 0))
        self.log.close_row(self.level, *self.counts)
        self.level, self.counts = level, (0, 0)

    def look_at_printing(self):
        """A dialog opened and closed: the exercise begins anew, without a row."""
        if (self.level, *self.counts) == (1, 0, 0):
            return
        keys, shows = self.chance.choice(PRINT_DIALOGS)
        self.note(f"print dialog by ctrl+{keys}")
        self.open(lambda: self.key("Control_L", keys), shows)
        self.expect_windows(2)
        if shows == "cmdChiudi":
            self.open(lambda: self.click("cmdChiudi"), "StatusBar1.Panels(3)",
                      EXERCISES[self.entry][1])
        else:
            dialog = next(index for index, window in enumerate(self.eyes.windows())
                          if self.eyes.told(window, "Name") != "MorleneKVT")

            def act():
                self.click_path(self.eyes.menu_items(dialog)[-1], "Esci")
            self.until(act, "the end of the dialog", lambda: self.hands.windows() == 1)
            self.eyes.comes("StatusBar1.Panels(3)", EXERCISES[self.entry][1])
        self.expect_windows()
        await_that("a fresh start", lambda: self.seen() == (1, 0, 0))
        self.level, self.counts = 1, (0, 0)
        self.wait_for_task()

    def visit(self, entry, tasks, levels):
        self.note(f"exercise {entry} in {self.language}, mode {self.mode}")
        self.open_exercise(entry)
        for _ in range(tasks):
            self.expect_windows()
            if self.chance.random() < 0.25:
                self.choose_level(self.chance.randint(1, levels))
            if self.chance.random() < 0.04:
                self.look_at_printing()
            self.PLAYS[entry](self)
            self.tasks += 1
            self.played[self.mode, entry] += 1
            self.next_task()
        if self.chance.random() < 0.4:
            self.leave_in_the_middle()
        self.log.close_row(self.level, *self.counts)
        self.leave("Image1(8)")
        self.expect_windows()

    def leave_in_the_middle(self):
        """One answer given, right or wrong, and gone."""
        if self.mode == SWITCH:
            return
        self.note("one answer more")
        if self.entry in (0, 1, 5):
            self.button(0, must=False)
        elif self.entry in (2, 3):
            self.part(self.chance.randrange(6), self.shown("ShockwaveFlash1"), must=False)
        elif self.entry in (6, 7):
            self.figure(self.chance.choice(self.grid()[0]), must=False)

    def deal(self, what, cards):
        """By chance, but each of them before one comes again."""
        left = self.decks.setdefault(what, [])
        if not left:
            left += cards
            self.chance.shuffle(left)
        return left.pop()

    def one_round(self, tasks):
        if self.chance.random() < 0.5:
            self.change_player(self.deal("players", TURNS))
        if self.log.now > FULL:
            self.change_player(next(name for name in PLAYERS if name != self.player))
        if self.chance.random() < 0.15:
            self.change_language(self.chance.choice(LANGUAGES) if self.reads() else "italiano")
        if self.chance.random() < 0.12:
            self.configure()
        if self.chance.random() < 0.03:
            self.look_at_the_contact()
        entries = range(8) if self.reads() else READ_NOTHING
        if self.mode == SWITCH and self.longest < LONGEST:
            # Behind the last one stands the way out, which a late key on a busy machine would take.
            entries = entries[:-1]
        entry = self.deal((self.mode, self.reads()), entries)
        levels = EXERCISES[entry][0]
        if self.mode == SWITCH:
            # One switch waits for the light.
            self.visit(entry, 1, min(levels, 2))
        else:
            self.visit(entry, min(tasks, self.chance.randint(1, self.longest)), levels)

    def rest(self):
        """What the program holds in a known place, once it is quiet."""
        self.change_language("italiano")
        if self.player == REST_PLAYER:
            self.change_player(PLAYERS[0])
        self.change_player(REST_PLAYER)
        self.hands.move(683, 760)
        time.sleep(0.3)
        pid = self.process.pid
        return memory(pid), descriptors(pid), self.hands.resources(pid)


def write_players(drive):
    folder = os.path.join(drive, SETTINGS)
    os.makedirs(os.path.join(folder, "dati"))
    log_kept = PROFILE.replace("False\nFalse\nProfilo", "False\nTrue\nProfilo")
    log_kept = log_kept.replace("{mode} \n 1 \n", "{mode} \n 2 \n")  # half a second for the light
    for name, mode in zip(PLAYERS, MODES):
        ending = ".INI" if name == PLAYERS[0] else ".ini"
        with open(os.path.join(folder, name + ending), "w", newline="\r\n",
                  encoding="cp1252") as file:
            file.write(log_kept.format(mode=mode))


def check_growth(first, last, tasks):
    if tasks > FIRST_TASKS and last[0] - first[0] > MAY_GROW:
        raise Failure(f"memory grew from {first[0]} to {last[0]} kB")
    allowed = 0 if tasks > FIRST_TASKS else MET_FIRST
    gained = {kind: count - first[2].get(kind, 0) for kind, count in last[2].items()}
    gained["descriptors"] = last[1] - first[1]
    if max(gained.values()) > allowed:
        raise Failure(f"descriptors and what is kept in the display: {first[1:]} became {last[1:]}")


def play(pupil, tasks):
    pupil.start()
    begun = time.monotonic()
    warm = min(FIRST_TASKS, tasks // 3)
    told = 0
    first = None
    while pupil.tasks < tasks:
        pupil.one_round(tasks - pupil.tasks)
        if first is None and pupil.tasks >= warm:
            first = pupil.rest()
        if pupil.tasks // 500 > told:
            told = pupil.tasks // 500
            now = pupil.rest()
            print(f"{pupil.tasks} tasks, {time.monotonic() - begun:.0f} s, {now[0]} kB, "
                  f"{now[1]} descriptors, {sum(now[2].values())} in the display", flush=True)
    last = pupil.rest()
    spent = time.monotonic() - begun
    by_mode = [sum(count for (mode, _), count in pupil.played.items() if mode == one)
               for one in range(4)]
    print(f"{pupil.tasks} tasks in {spent:.0f} s ({pupil.tasks / spent:.1f} a second; by mode "
          f"{by_mode}); {pupil.untold} misses not told by the picture, {pupil.late} by late keys, "
          f"{pupil.again} actions repeated; {pupil.rows_checked} rows of the log compared; "
          f"{first[0]} kB after {warm} tasks, {last[0]} kB at the end", flush=True)
    check_growth(first, last, tasks)
    pupil.open(lambda: None, "Image1(8)")
    pupil.click("Image1(8)")
    await_that("the end", lambda: pupil.process.poll() is not None)
    if pupil.process.returncode != 0:
        raise Failure(f"the program ended with {pupil.process.returncode}")


def main(executable, drive, tasks, seed=None):
    seed = int(seed) if seed else int(time.strftime("%Y%m%d"))
    print(f"seed {seed}", flush=True)
    fresh_drive(drive)
    write_players(drive)
    with tempfile.TemporaryFile() as errors, PrintingSystem() as system, Desktop() as desktop:
        system.add_printer("Stampante")
        os.environ["CUPS_SERVER"] = system.environment["CUPS_SERVER"]
        pupil = Pupil(desktop.start([executable], stderr=errors), seed,
                      LONGEST if int(tasks) >= FIRST_TASKS else 3)
        try:
            play(pupil, int(tasks))
            errors.seek(0)
            said = errors.read().decode(errors="replace")
            if said:
                raise Failure(f"the program wrote on standard error:\n{said}")
        except Exception as fault:
            print(f"seed {seed}; the last actions, each after so many tasks:", *pupil.actions,
                  sep="\n", flush=True)
            if pupil.process.poll() is not None:
                raise Failure(f"the program ended with {pupil.process.returncode}") from fault
            if pupil.hands.windows() > 1:
                raise Failure(f"{fault}; more windows than one: {pupil.boxes()}") from fault
            raise


if __name__ == "__main__":
    try:
        main(*sys.argv[1:])
    except Failure as failure:
        sys.exit(f"FAILED: {failure}")
