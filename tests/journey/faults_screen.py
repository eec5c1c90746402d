"""The screen gets another size while a window shows: everything in it is on the screen at once, the
task goes on, and the windows that come later fit as well.

    alone faults_screen.py PROGRAM [FOLDER-FOR-PICTURES]

With FAULTS_WHOLE in the environment there are more sizes, and one who plays by a switch.
"""
import os
import re
import signal
import subprocess
import sys

import Xlib.display
import Xlib.error
import Xlib.X

from desktop import Desktop, Failure, Program, wait_for
from journey import answer
from players import open_configuration
from scanning import bring_light_to, write_profile
from steps import choose, come_to_the_menu, counts, fresh_drive, leave, press

WHOLE = "FAULTS_WHOLE" in os.environ
SIZES = ("1024x768", "800x600", "1366x768") if WHOLE else ("800x600", "1366x768")
OUTPUT = "screen"


def xrandr(*arguments):
    return subprocess.run(["xrandr", *arguments], check=True, capture_output=True, text=True).stdout


def resize(size):
    width, height = size.split("x")
    if not re.search(rf"^ +{size} ", xrandr(), re.MULTILINE):
        xrandr("--newmode", size, "10", *[width] * 4, *[height] * 4)
        xrandr("--addmode", OUTPUT, size)
    xrandr("--output", OUTPUT, "--mode", size)


class Screen:
    def __init__(self, desktop, program, pictures):
        self.desktop, self.program, self.pictures = desktop, program, pictures

    def full_screen(self):
        """Whether the window manager takes the window in front for one that fills the screen."""
        display = Xlib.display.Display()
        try:
            def values(window, name):
                found = window.get_full_property(display.intern_atom(name), Xlib.X.AnyPropertyType)
                return found.value if found else []
            [front] = values(display.screen().root, "_NET_ACTIVE_WINDOW")
            return display.intern_atom("_NET_WM_STATE_FULLSCREEN") in values(
                display.create_resource_object("window", front), "_NET_WM_STATE")
        except (ValueError, Xlib.error.XError):  # none in front at this moment
            return False
        finally:
            display.close()

    def expect_whole(self, what, size):
        room = [int(side) for side in size.split("x")]
        try:
            wait_for("a whole window", lambda: not self.program.beyond(*room), 5)
        except Failure:
            raise Failure(f"on a screen of {size} {what} reaches beyond: "
                          f"{self.program.beyond(*room)}") from None
        if self.desktop.with_manager:
            wait_for(f"{what}, full-screen to the window manager", self.full_screen)
        if self.pictures:
            self.desktop.picture(os.path.join(self.pictures, f"{what}-{size}.png"))


def exercise(screen, size, entry):
    program = screen.program
    press(program, f"Image1({entry})")
    wait_for("an exercise", lambda: program.find("ShockwaveFlash1")
             or program.find("ShockwaveFlash1(0)"))
    resize(size)
    screen.expect_whole(f"exercise {entry + 1}", size)
    if entry == 0:
        before = counts(program)
        answer(program, 0)
        wait_for("an answer", lambda: counts(program) != before)
    choose(program, "Esci")
    program.await_object("Image1(0)")


def by_mouse(desktop, executable, drive, pictures):
    fresh_drive(drive)
    program = Program(desktop, executable)
    come_to_the_menu(program, first_time=True)
    screen = Screen(desktop, program, pictures)
    for number, size in enumerate(SIZES):
        exercise(screen, size, 0)
        screen.expect_whole("the menu", size)
        exercise(screen, SIZES[number - 1], 6)
        open_configuration(program)
        resize(size)
        screen.expect_whole("the configuration", size)
        leave(program)
    press(program, "Command1(8)")
    if program.ended() != 0:
        raise Failure("the program did not end well")


def by_one_switch(desktop, executable, drive, pictures):
    fresh_drive(drive)
    write_profile(drive, 2)
    program = Program(desktop, executable)
    program.await_object("Command1")
    program.key_until("Return", "the menu", lambda: program.find("Image1(0)"))
    bring_light_to(program, 2, "Command1(0)")
    program.key_until("space", "the exercise", lambda: program.find("ShockwaveFlash1"))
    screen = Screen(desktop, program, pictures)
    resize(SIZES[0])
    screen.expect_whole("an exercise by one switch", SIZES[0])
    before = counts(program)
    bring_light_to(program, 2, "Command1(1)")
    program.key("space")
    wait_for("an answer by the switch", lambda: counts(program) != before)


def with_a_late_window_manager(desktop, executable, drive, pictures):
    """The program knows the new size before the window manager does anything about it."""
    fresh_drive(drive)
    program = Program(desktop, executable)
    come_to_the_menu(program, first_time=True)
    screen = Screen(desktop, program, pictures)
    for size in SIZES:
        desktop.manager.send_signal(signal.SIGSTOP)
        try:
            resize(size)
            width, height = (int(side) for side in size.split("x"))
            wait_for("a menu of the new size", lambda: tuple(
                program.box(program.await_object("FormMenu")))[2:] == (width, height))
        finally:
            desktop.manager.send_signal(signal.SIGCONT)
        screen.expect_whole("the menu under a late window manager", size)


def without_a_window_manager(desktop, executable, drive, pictures):
    fresh_drive(drive)
    program = Program(desktop, executable)
    come_to_the_menu(program, first_time=True)
    screen = Screen(desktop, program, pictures)
    press(program, "Image1(0)")
    program.await_object("ShockwaveFlash1")
    for size in SIZES:
        resize(size)
        screen.expect_whole("an exercise without a window manager", size)
        width, height = (int(side) for side in size.split("x"))
        wait_for("a window that fills the screen", lambda: tuple(
            program.box(program.find("FormEs1")))[2:] == (width, height))


def faults_screen(executable, drive, pictures=None):
    with Desktop(with_manager=False) as desktop:
        without_a_window_manager(desktop, executable, drive, pictures)
    with Desktop() as desktop:
        with_a_late_window_manager(desktop, executable, drive, pictures)
    with Desktop() as desktop:
        by_mouse(desktop, executable, drive, pictures)
    if WHOLE:
        with Desktop() as desktop:
            by_one_switch(desktop, executable, drive, pictures)


if __name__ == "__main__":
    try:
        faults_screen(*sys.argv[1:])
    except Failure as failure:
        sys.exit(f"FAILED: {failure}")
