"""Pictures of all windows of the program, taken while they are worked as a person works them, and a
page that shows them all.

    alone make_pictures.py PROGRAM FOLDER SIZE LANGUAGE LETTERING [EXERCISE...]

SIZE is WIDTHxHEIGHT in pixels, LANGUAGE a file of data/lngmorlene without its suffix, LETTERING small,
capitals, cursive, or own, which is that of the language's ready player. With EXERCISES, 1 to 8, only
those are played. `./run --pictures` calls this.
"""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

from PIL import Image, ImageChops

import picture_files
from check_language import CLOUDS, NEGATIVE, POSITIVE, SMOKE, Language, player_of, sentences_of
from child import EXERCISES, INSIDE, PARTS, Child, differing, where_it_is
from desktop import Desktop, Failure, Program, screen, wait_for
from printing_system import PrintingSystem
from steps import (SETTINGS, choose, choose_player, come_to_the_menu, counts, fresh_drive, page,
                   press, press_ok)

ROOT = pathlib.Path(__file__).resolve().parents[1]
LANGUAGES = ROOT / "data" / "lngmorlene"
REFERENCE = "italiano"
PLAYER = "Anna"
LETTERINGS = {"small": "minuscolo", "capitals": "maiuscolo", "cursive": "corsivo"}
# The captions of the pages are Italian in every language.
PAGES = {"players": "Giocatori", "colours": "Colori morlene", "teaching": "Scelte didattiche",
         "letters": "Font e colori", "sounds": "Suoni ", "input": "Modalità di input"}
REWARDED = 10  # right answers, at most
INTO_THE_REWARD = 2  # seconds of the four to ten that it lasts
DOTS_OF_A_SHEET = 80  # an inch
LIGHT = "FF0000"  # RRGGBB, of a new player
BESIDE_ALL = (3, 60)  # where every window shows its background
TRIES = 30  # where a child can but guess


class Album:
    """The pictures, by their names, in the order in which they were taken."""

    def __init__(self, folder):
        self.folder = folder
        self.pictures = {}

    def add(self, name, picture):
        if name in self.pictures:
            raise Failure(f"two pictures are called {name}")
        self.pictures[name] = picture
        picture_files.save(picture, self.folder / f"{name}.png")

    def take(self, name):
        """Of the screen, once it stays."""
        self.add(name, still_screen())


def still_screen(seconds=3):
    """What moves for ever, as a cursor in a field does, is taken as it is."""
    end = time.monotonic() + seconds
    before = screen()
    while time.monotonic() < end:
        time.sleep(0.15)
        now = screen()
        if not ImageChops.difference(before, now).getbbox():
            break
        before = now
    return before


class Captions:
    """What stands in the windows in a language; a text that its file lacks stays Italian."""

    def __init__(self, language):
        self.language = language
        self.reference = Language(LANGUAGES / f"{REFERENCE}.lng")

    def __call__(self, window, control):
        key = f"{control}.Caption"
        sections = [language.sections.get(window, {}) for language in (self.language, self.reference)]
        return next(section[key] for section in sections if key in section).replace("&", "")


class Reader:
    """Reads what a child is asked, in the words of the language and of the player."""

    def __init__(self, language, player):
        lines = player.read_bytes().decode("cp1252").split("\r\n")
        self.palette = lines[9:29:5]
        made = sentences_of(language, player)
        self.joint = f" {language.text('0020')} ".lower()
        self.statements = {made.statement(part, number, positive).lower(): (part, number, positive)
                           for part, number in made.statements() for positive in (True, False)}
        for key, part, number in (("0012", SMOKE, 1), ("0013", SMOKE, 2), ("0018", CLOUDS, 1),
                                  ("0019", CLOUDS, 2), ("0081", CLOUDS, 2), ("0104", CLOUDS, 2)):
            self.statements[language.text(key).lower()] = (part, number, True)
        likenesses = {True: {**POSITIVE, SMOKE: "0034", CLOUDS: "0036"},
                      False: {**NEGATIVE, SMOKE: "0033", CLOUDS: "0035"}}
        self.openings = {language.text(key).lower(): (part, positive)
                         for positive, keys in likenesses.items() for part, key in keys.items()}

    def part(self, sentence):
        """Its index in PARTS."""
        return self.statements[self.plain(sentence)][0] - 1

    @staticmethod
    def plain(sentence):
        return sentence.lower().rstrip(".").strip()

    def holds(self, sentence, figure):
        """Whether it is true of the figure; nothing where it is not of the kinds known here."""
        text = self.plain(sentence)
        if text in self.statements:
            return self.statement_holds(*self.statements[text], figure)
        for first, second in self.halves(text):
            return (self.statement_holds(*self.statements[first], figure) and
                    self.statement_holds(*self.statements[second], figure))
        return None

    def halves(self, text):
        pieces = text.split(self.joint)
        for cut in range(1, len(pieces)):
            halves = self.joint.join(pieces[:cut]), self.joint.join(pieces[cut:])
            if all(half in self.statements for half in halves):
                yield halves

    def statement_holds(self, part, number, positive, figure):
        shown = figure[PARTS[part - 1]]
        if part in (SMOKE, CLOUDS):
            return (shown == "1") == (number % 2 == 1)
        return (shown == self.palette[number - 1]) == positive

    def alike(self, sentence, one, other):
        """Whether "alike" completes the sentence about two figures."""
        opening = max((words for words in self.openings if self.plain(sentence).startswith(words)),
                      key=len)
        part, positive = self.openings[opening]
        name = PARTS[part - 1]
        return (one[name] == other[name]) == positive


# --- One right answer in each exercise ---

def true_or_false(child, reader, attempt):
    holds = reader.holds(child.program.text("Label1"), child.wait_shown())
    if holds is None:
        holds = attempt % 2 == 0
    child.click(f"Command1({0 if holds else 1})")


def same_or_different(child, reader, _):
    alike = reader.alike(child.program.text("Label1"), child.wait_shown(),
                         child.wait_shown("ShockwaveFlash2"))
    child.click(f"Command1({0 if alike else 1})")


def repair_by_its_picture(child, *_):
    child.click(f"Image1({differing(child)[0]})")


def repair(child, *_):
    part = differing(child)[0]
    child.program.click_at(*child.spot(where_it_is(child, PARTS[part]), INSIDE[part]))


def lines_of(child):
    return [line for line in child.text("Text1").split("\n") if line]


def paint(child, reader, _):
    for sentence in lines_of(child):
        part = reader.part(sentence)
        for _ in reader.palette:
            before = child.wait_shown()
            child.program.click_at(*child.spot("ShockwaveFlash1", INSIDE[part]))
            painted = wait_for("another colour", lambda: (
                shown := child.wait_shown()) != before and shown)
            if reader.holds(sentence, painted):
                break
    child.click("Command1(0)")


def fitting(child, reader):
    """{number of a figure: whether all lines hold of it}"""
    lines = lines_of(child)
    figures = {index: child.shown(f"ShockwaveFlash1({index})") for index in range(12)}
    return {index: all(reader.holds(line, figure) for line in lines)
            for index, figure in figures.items() if figure is not None}


def choose_a_figure(child, reader, wanted, attempt):
    found = [index for index, fits in fitting(child, reader).items() if fits == wanted]
    child.click(f"ShockwaveFlash1({found[attempt % len(found)]})")


def remove(child, reader, attempt):
    choose_a_figure(child, reader, False, attempt)


def find(child, reader, attempt):
    choose_a_figure(child, reader, True, attempt)


ANSWERS = [true_or_false, same_or_different, repair_by_its_picture, repair, paint, true_or_false,
           remove, find]


def answer_one(child, reader, entry, level):
    """Where a child can but guess, a wrong answer begins the level anew."""
    for attempt in range(TRIES):
        if attempt or level > 1:
            child.fresh_level(level)
        ANSWERS[entry](child, reader, attempt)
        if child.answered():
            return
    raise Failure(f"no right answer came in exercise {entry + 1}, level {level}")


# --- The tour ---

class Tour:
    def __init__(self, desktop, program, album, language, reader):
        self.desktop = desktop
        self.program = program
        self.album = album
        self.reader = reader
        self.caption = Captions(language)

    def choose(self, window, *controls):
        choose(self.program, *(self.caption(window, control) for control in controls))

    def take(self, name):
        self.point_beside()
        self.album.take(name)

    @staticmethod
    def point_beside():
        """So that no button is lit."""
        subprocess.run(["xdotool", "mousemove", *map(str, BESIDE_ALL)], check=True)

    def leave(self, window, comes, control="mnuEsci"):
        self.choose(window, control)
        self.program.await_object(comes)

    def menus(self):
        program = self.program
        choose_player(program, PLAYER)
        self.take("menu")
        press(program, "Combo1")
        wait_for(PLAYER, lambda: program.named(PLAYER, "list item"))
        self.take("menu-players")
        program.key("Escape")
        self.choose("FormMenu", "mnuLanguages")
        wait_for("the languages", lambda: program.named(REFERENCE, "menu item"))
        self.take("menu-languages")
        program.key("Escape")
        self.choose("FormMenu", "mnuInfo", "mnuAbout")
        program.await_object("Label4")
        self.take("about")
        press(program, "Command1")
        program.await_object("Command1(8)")

    def settings(self, lettering):
        program = self.program
        self.choose("FormMenu", "mnuConfigura")
        press(program, "CheckSalvaUtente")
        page(program, PAGES["letters"])
        if lettering in LETTERINGS:
            press(program, LETTERINGS[lettering])
        for name, caption in PAGES.items():
            page(program, caption)
            self.take(f"settings-{name}")
        self.leave("FormConfigura", "Command1(8)")

    def open(self, entry):
        press(self.program, f"Image1({entry})")
        self.program.await_object(EXERCISES[entry][1])
        return Child(self.program)

    def exercise(self, entry):
        child = self.open(entry)
        for name, level in (("first", 1), ("last", EXERCISES[entry][0])):
            answer_one(child, self.reader, entry, level)
            self.take(f"exercise-{entry + 1}-{name}")
            if counts(self.program) != (child.right, 0):
                raise Failure("the picture does not show the right answer")
        if entry == 0:
            self.exercise_menus()
            self.reward(child)
        self.leave(f"FormEs{self.number(entry)}", f"Image1({entry})")

    def number(self, entry):
        """Of the window: two of the exercises stand in the menu before others that are older."""
        return [1, 2, 8, 3, 4, 5, 6, 7][entry]

    def exercise_menus(self):
        for name, control in (("exercise-levels", "mnuLivelli"), ("exercise-print-menu", "mnuSt")):
            self.choose("FormEs1", control)
            self.take(name)
            self.program.key("Escape")

    def reward(self, child):
        child.fresh_level(1)
        for _ in range(REWARDED):
            true_or_false(child, self.reader, 0)
            if not child.answered():
                raise Failure("a right answer was judged wrong")
            if not child.program.text("Label1"):
                break
            child.click("Command1(2)")
            wait_for("the next task", lambda: not child.program.enabled(
                child.program.find("Command1(2)")))
        else:
            raise Failure("no reward came")
        self.point_beside()
        time.sleep(INTO_THE_REWARD)
        self.album.add("reward", screen())

    def log(self):
        program = self.program
        self.choose("FormMenu", "mnuEserciziEseguiti")
        program.await_object("MSFlexGrid1")
        self.take("log")
        self.leave("FormEserciziEseguiti", "Image1(0)")

    def scanning(self):
        """The light that a child with one switch waits for."""
        program = self.program
        self.answer_by(2)
        self.take("settings-scanning")
        self.leave("FormConfigura", "Command1(8)")
        self.take_lit("menu-scanning", "Command1(1)")
        program.key("space")
        program.await_object("ShockwaveFlash2")
        self.take_lit("exercise-scanning", "Command1(0)")
        self.leave("FormEs2", "Command1(8)")
        self.answer_by(0)
        self.leave("FormConfigura", "Command1(8)")

    def answer_by(self, mode):
        self.choose("FormMenu", "mnuConfigura")
        page(self.program, PAGES["input"])
        press(self.program, f"Option4({mode})")

    def take_lit(self, name, control):
        self.point_beside()
        wait_for("the light", lambda: (item := self.program.find(control))
                 and self.program.colour(item) == LIGHT)
        self.album.add(name, screen())

    def prints(self, system):
        """The sheets as they would come out of the printer."""
        program = self.program
        self.open(0)
        program.key("ctrl+v")
        program.await_object("cmdStampa")
        self.take("print-dialog")
        self.print(system, "printed-window", 1)
        self.choose("FormEs1", "mnuSt", "mnuCol")
        program.await_object("Picture1(0)")
        self.take("figures-to-colour")
        press(program, "Picture1(1)")
        # So the drawing fills the sheet.
        press(program, "chkProporzioni")
        press(program, "cmdMax")
        self.print(system, "printed-figure", 2)

    def print(self, system, name, count):
        press(self.program, "cmdStampa")
        wait_for("the end of the dialog", lambda: self.program.find("cmdStampa") is None)
        document, _ = system.await_documents(count)[-1]
        target = document.with_suffix("")
        subprocess.run(["pdftoppm", "-r", str(DOTS_OF_A_SHEET), "-png", "-singlefile", document,
                        target], check=True)
        with Image.open(target.with_suffix(".png")) as sheet:
            self.album.add(name, sheet.convert("RGB"))


def speak(executable, language):
    setting = pathlib.Path(executable).parent / "lngmorlene" / "LangSetting.ini"
    setting.write_bytes(f"[Language]\r\nCurrentLanguage={language}\r\n".encode("cp1252"))


def first_visit(desktop, executable, album):
    """Leaves the drive as a first start does, with the settings of a new player."""
    program = Program(desktop, executable)
    wait_for("the box of the first start", lambda: program.named("OK", "push button"))
    box = still_screen()
    album.add("first-start", box.crop(box.getbbox()))
    wait_for("the splash", lambda: program.find("Command1") or press_ok(program))
    album.take("splash")
    program.click(program.await_object("Command1"))
    press(program, "Command1(8)")
    if program.ended() != 0:
        raise Failure("the first visit did not end well")


def make_a_player(drive, language_file):
    """Gives the ready player of the language; Italian needs none."""
    settings = pathlib.Path(drive) / SETTINGS
    ready = player_of(language_file) or settings / "_predefinito.INI"
    target = settings / f"{PLAYER}.ini"
    shutil.copyfile(ready, target)
    return target


def tour(executable, drive, folder, size, language_name, lettering, *only):
    folder = pathlib.Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    album = Album(folder)
    language_file = LANGUAGES / f"{language_name}.lng"
    fresh_drive(drive)
    speak(executable, language_name)
    with PrintingSystem() as system, Desktop(size) as desktop:
        system.add_printer("A4")
        os.environ["CUPS_SERVER"] = system.environment["CUPS_SERVER"]
        first_visit(desktop, executable, album)
        player = make_a_player(drive, language_file)
        language = Language(language_file)
        program = Program(desktop, executable)
        come_to_the_menu(program, first_time=False)
        visit = Tour(desktop, program, album, language, Reader(language, player))
        visit.menus()
        visit.settings(lettering)
        for entry in [int(number) - 1 for number in only] or range(len(EXERCISES)):
            visit.exercise(entry)
        visit.log()
        visit.scanning()
        visit.prints(system)
        program.process.kill()
    picture_files.sheet(album.pictures, f"MorleneKVT, {language_name}, {size}",
                        folder / "all.png")
    print(f"{len(album.pictures)} pictures and a page of them all: {folder}")


if __name__ == "__main__":
    try:
        tour(*sys.argv[1:])
    except Failure as failure:
        sys.exit(f"FAILED: {failure}")
