"""What every visit begins and ends with, and how its windows are found: for whoever plays the program
from outside."""
import os
import shutil
import time

from desktop import Failure, wait_for

SETTINGS = "ImpostazioniProgrammiTesmi/morlenekvt"


def fresh_drive(drive):
    shutil.rmtree(drive, ignore_errors=True)
    os.makedirs(os.path.join(drive, "windows", "fonts"))


def press_ok(program):
    """A click that comes while the window manager still moves the box goes beside it."""
    button = program.named("OK", "push button")
    if button:
        program.click(button)
        time.sleep(0.3)


def come_to_the_menu(program, first_time):
    if first_time:
        wait_for("the splash",
                 lambda: program.find("Command1") or press_ok(program))
    # On a busy machine a first press may come before the window manager has placed the window.
    for _ in range(3):
        program.click(program.await_object("Command1"))
        try:
            return wait_for("the menu", lambda: program.find("Command1(8)"), 10)
        except Failure:
            pass
    raise Failure("the menu never came")


def press(program, described):
    program.click(program.await_object(described))


def choose(program, *items):
    """Items of the menu bar, from the bar down."""
    for item in items:
        program.click(wait_for(item, lambda: program.named(item, "menu item")))


def leave(program):
    """Back to the menu, from wherever the menu bar leads there."""
    choose(program, "Esci")
    program.await_object("Image1(8)")


def name_the_file(program, name):
    """The dialog's field for the name has the keyboard from the start."""
    wait_for("the name of a file", lambda: program.any(
        lambda item: item.getRoleName() == "text"
        and item.getState().contains(program.bus.STATE_FOCUSED)))
    program.write(name)
    program.key("Return")


def page(program, name):
    program.click(wait_for(name, lambda: program.named(name, "page tab")))


def choose_player(program, name):
    press(program, "Combo1")
    program.click(wait_for(name, lambda: program.named(name, "list item")))


def panel(program, number):
    return program.text(f"StatusBar1.Panels({number})")


def counts(program):
    """Right and wrong answers, as the status bar tells them."""
    return tuple(int(panel(program, number).split()[0]) for number in (1, 2))
