"""Pictures of all windows of the program, taken while they are worked as a person works them, and a
page that shows them all.

    alone take.py PROGRAM FOLDER SIZE LANGUAGE LETTERING [EXERCISE...]

SIZE is WIDTHxHEIGHT in pixels, LANGUAGE a file of data/lngmorlene without its suffix, LETTERING small,
capitals, cursive, or own, which is that of the language's ready player. With EXERCISES, 1 to 8, only
those are played. `./run --pictures` calls this.
"""
import os
import pathlib
import shutil
import subprocess
import sys
import time

from PIL import Image, ImageChops

import picture_files
from answers import answer_one, true_or_false
from check_language import Language, player_of
from child import EXERCISES, Child
from desktop import Desktop, Failure, Program, screen, wait_for
from printing_system import PrintingSystem
from reader import Reader
from steps import (SETTINGS, choose, choose_player, come_to_the_menu, counts, fresh_drive, page,
                   press, press_ok)

ROOT = pathlib.Path(__file__).resolve().parents[2]
LANGUAGES = ROOT / "data" / "lngmorlene"
REFERENCE = "italiano"
PLAYER = "Anna"
LETTERINGS = {"small": "minuscolo", "capitals": "maiuscolo", "cursive": "corsivo"}
# The captions of the pages are Italian in every language.
PAGES = {"players": "Giocatori", "colours": "Colori morlene", "teaching": "Scelte didattiche",
         "letters": "Font e colori", "sounds": "Suoni ", "input": "Modalità di input"}
WINDOWS = [1, 2, 8, 3, 4, 5, 6, 7]  # numbers of the exercises' windows, in the order of the menu
REWARDED = 10  # right answers, at most
INTO_THE_REWARD = 2  # seconds of the four to ten that it lasts
DOTS_OF_A_SHEET = 80  # an inch
LIGHT = "FF0000"  # RRGGBB, of a new player
BESIDE_ALL = (3, 60)  # where every window shows its background


class Album:
    """The pictures, by their names, in the order in which they were taken."""

    def __init__(self):
        self.pictures = {}

    def add(self, name, picture):
        if name in self.pictures:
            raise Failure(f"two pictures are called {name}")
        self.pictures[name] = picture

    def save(self, folder, heading):
        """At the end: to make one small takes longer than a light stays where it is."""
        folder.mkdir(parents=True, exist_ok=True)
        for name, picture in self.pictures.items():
            picture_files.save(picture, folder / f"{name}.png")
        picture_files.sheet(self.pictures, heading, folder / "all.png")

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


class Tour:
    """Works one running program from its menu on, and takes the pictures on the way."""

    def __init__(self, program, album, language, reader):
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

    def leave(self, window, comes):
        self.choose(window, "mnuEsci")
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
        self.leave(f"FormEs{WINDOWS[entry]}", f"Image1({entry})")

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
    wait_for("the box of the first start",
             lambda: program.named("OK", "push button") and screen().getbbox())
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
    album = Album()
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
        visit = Tour(program, album, language, Reader(language, player))
        visit.menus()
        visit.settings(lettering)
        for entry in [int(number) - 1 for number in only] or range(len(EXERCISES)):
            visit.exercise(entry)
        visit.log()
        visit.scanning()
        visit.prints(system)
        program.process.kill()
    album.save(pathlib.Path(folder), f"MorleneKVT, {language_name}, {size}")
    print(f"{len(album.pictures)} pictures and a page of them all: {folder}")


if __name__ == "__main__":
    try:
        tour(*sys.argv[1:])
    except Failure as failure:
        sys.exit(f"FAILED: {failure}")
