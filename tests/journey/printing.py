"""A teacher prints an exercise from its menu: the dialog stands before the window, is worked by the
keyboard, warns at once of a print that leaves the sheet, and what comes out is looked at.

    dbus-run-session -- printing.py PROGRAM DRIVE
"""
import os
import pathlib
import sys
import time

from desktop import Desktop, Failure, Program, wait_for
from journey import come_to_the_menu, fresh_drive

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "printers"))
from printing_system import PrintingSystem  # noqa: E402
from real_printing import Page  # noqa: E402

WARNING_WITHIN = 0.5  # seconds
EXACT = 0.5  # mm


def open_dialog(program, shortcut):
    program.key(shortcut)
    return program.await_object("cmdStampa")


def the_warning_comes_at_once(desktop, program):
    field = program.await_object("txtPrX")
    if program.find("lblFuoriFoglio") is not None:
        raise Failure("the warning is seen before there is a reason")
    program.click(field)
    program.key("ctrl+a")
    program.key("9")
    program.key("9")
    start = time.monotonic()
    program.key("9")
    wait_for("the warning", lambda: program.find("lblFuoriFoglio"), 5)
    waited = time.monotonic() - start
    if waited > WARNING_WITHIN:
        raise Failure(f"the warning came after {waited:.2f} s")
    if len(sys.argv) > 3:
        desktop.picture(sys.argv[3])
    for digit in ("BackSpace", "BackSpace", "BackSpace", "1", "0"):
        program.key(digit)
    wait_for("the end of the warning", lambda: program.find("lblFuoriFoglio") is None, 5)


def printed_page(system, count):
    path, _ = system.await_documents(count)[-1]
    # The menu bar and the status bar are nearly white.
    found = Page(path).printed(lightest=252)
    if found is None:
        raise Failure("an empty page came out")
    for side, wanted in zip(found, (10, 10, 110, 110)):
        if abs(side - wanted) > EXACT:
            raise Failure(f"the window lies at {found}")


def printing(desktop, program, system):
    come_to_the_menu(program, first_time=True)
    program.click(program.await_object("Image1(0)"))
    program.await_object("ShockwaveFlash1")
    open_dialog(program, "ctrl+v")
    the_warning_comes_at_once(desktop, program)
    program.click(program.await_object("cmdStampa"))
    wait_for("the end of the dialog", lambda: program.find("cmdStampa") is None)
    printed_page(system, 1)
    # The button has the keyboard, so Enter prints.
    open_dialog(program, "ctrl+v")
    wait_for("the keyboard", lambda: program.await_object("cmdStampa").getState().contains(
        program.bus.STATE_FOCUSED))
    program.key("Return")
    wait_for("the end of the dialog", lambda: program.find("cmdStampa") is None)
    printed_page(system, 2)
    open_dialog(program, "ctrl+o")
    program.click(program.await_object("cmdChiudi"))
    wait_for("the end of the dialog", lambda: program.find("cmdStampa") is None)
    program.key("ctrl+s")
    system.await_documents(3)


def main():
    executable, drive = sys.argv[1:3]
    fresh_drive(drive)
    with PrintingSystem() as system, Desktop() as desktop:
        system.add_printer("Stampante")
        os.environ["CUPS_SERVER"] = system.environment["CUPS_SERVER"]
        printing(desktop, Program(desktop, executable), system)
    print("printed")


if __name__ == "__main__":
    main()
