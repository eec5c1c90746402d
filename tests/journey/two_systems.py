"""A visit that is played on two systems, to lay what they showed and wrote side by side: the font is
installed, a child plays by mouse, an adult makes a new player, who plays by keys, and the log is saved
and opened. Each window is kept as a picture, each file of the drive as it was written.

    alone two_systems.py PROGRAM DRIVE FOLDER
"""
import os
import shutil
import sys
import time

from desktop import Desktop, Failure, Program, screen, wait_for
from exercises import AnyChild, open_exercise, vero_o_falso
from journey import play
from players import (DEFAULT, GREEN, WHITE, expect_files, name_a_colour,
                     new_player, open_configuration, profile)
from steps import (SETTINGS, choose, choose_player, come_to_the_menu, fresh_drive, leave,
                   name_the_file, page, press, press_ok)

TASKS = 10
BY_KEYS = 1
# Her log is kept.
ANNA = profile(BY_KEYS, 4, GREEN, "minuscolo", "arial", "arial").replace(
    b"False\r\nProfilo", b"True\r\nProfilo")
PAGES = ["Colori morlene", "Scelte didattiche", "Font e colori", "Suoni ", "Modalità di input"]
PAINTED = 0.5  # seconds until a window that is there has been painted and its pointer rests


class Album:
    """Pictures in the order in which they were taken."""

    def __init__(self, folder):
        self.folder = folder
        os.makedirs(folder, exist_ok=True)
        self.count = 0

    def take(self, name):
        time.sleep(PAINTED)
        self.count += 1
        screen().save(os.path.join(self.folder, f"{self.count:02}-{name}.png"))


def begin(program, album):
    wait_for("the box of the font", lambda: program.named("OK", "push button"))
    album.take("font")
    wait_for("the splash", lambda: program.find("Command1") or press_ok(program))
    album.take("splash")
    come_to_the_menu(program, first_time=False)
    album.take("menu")


def by_mouse(program, album):
    press(program, "Image1(0)")
    program.await_object("ShockwaveFlash1")
    album.take("exercise")
    right, wrong, untold = play(program, TASKS)
    print(f"by mouse: {right} right, {wrong} wrong, of which {untold} not told by the picture",
          flush=True)
    leave(program)


def make_player(program, album, drive):
    open_configuration(program)
    album.take("settings")
    new_player(program, "Anna")
    press(program, "CheckSalvaUtente")
    name_a_colour(program, 1, 0, WHITE[1:])
    for name in PAGES:
        page(program, name)
        album.take("settings-" + name.split()[0].lower())
    page(program, "Colori morlene")
    press(program, "Command4")
    page(program, "Modalità di input")
    press(program, "Option4(1)")
    leave(program)
    expect_files(drive, {"Anna.ini": ANNA, "_predefinito.INI": DEFAULT})


def by_keys(program, album):
    choose_player(program, "_predefinito")
    choose_player(program, "Anna")
    album.take("menu-players")
    child = AnyChild(program, BY_KEYS)
    open_exercise(child, 0, "ShockwaveFlash1")
    child.places.clear()
    album.take("exercise-keys")
    for _ in range(TASKS):
        vero_o_falso(child, 1)
    print(f"by keys: {child.right} right, {child.wrong} wrong", flush=True)
    if (child.right, child.wrong) != (TASKS, 0):
        raise Failure("not each task was counted as right")
    leave(program)


def log(program, album, drive):
    choose(program, "Esercizi eseguiti")
    program.await_object("MSFlexGrid1")
    album.take("log")
    choose(program, "File", "Salva")
    wait_for("a file's name", lambda: program.any(
        lambda item: item.getRoleName() == "text"
        and item.getState().contains(program.bus.STATE_FOCUSED)))
    album.take("save")
    name_the_file(program, "prova")
    path = os.path.join(drive, SETTINGS, "dati", "Anna", "prova.rpt")
    wait_for("the report", lambda: os.path.exists(path) and os.path.getsize(path))
    choose(program, "File", "Apri")
    name_the_file(program, "Anna/prova")
    # Of a report with rows the first comes back, which the picture shows, and the box tells of the rest.
    program.click(wait_for("the box", lambda: program.named("OK", "push button")))
    wait_for("the end of the box", lambda: program.named("OK", "push button") is None)
    album.take("report")
    leave(program)


def visit(executable, drive, folder):
    # The drive of another system holds that system.
    if not os.path.exists(os.path.join(drive, "windows", "system32")):
        fresh_drive(drive)
    album = Album(folder)
    with Desktop("1024x768") as desktop:
        program = Program(desktop, executable)
        begin(program, album)
        by_mouse(program, album)
        make_player(program, album, drive)
        by_keys(program, album)
        log(program, album, drive)
        # Who plays by keys leaves by keys.
        choose_player(program, "_predefinito")
        press(program, "Command1(8)")
        status = program.ended()
        if status != 0:
            raise Failure(f"the program ended with {status}")
    root = SETTINGS.split("/", maxsplit=1)[0]
    shutil.copytree(os.path.join(drive, root), os.path.join(folder, root), dirs_exist_ok=True)


if __name__ == "__main__":
    try:
        visit(*sys.argv[1:])
    except Failure as failure:
        sys.exit(f"FAILED: {failure}")
