"""A teacher prints from each exercise: the dialog stands before the window, is worked by the
keyboard, warns at once of a print that leaves the sheet, and what comes out is looked at. Then the
log of the exercises is saved, opened again and printed.

    alone printing.py PROGRAM
"""
import os
import pathlib
import sys
import time

from desktop import Desktop, Failure, Program, wait_for
from players import open_configuration
from printing_system import PrintingSystem
from steps import SETTINGS, choose, come_to_the_menu, fresh_drive, leave, name_the_file

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "printers"))
from real_printing import Page  # noqa: E402

WARNING_WITHIN = 0.5  # seconds
EXACT = 0.5  # mm
EXERCISES = 8


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
    leave(program)


def print_every_exercise(program, system, printed):
    for entry in range(EXERCISES):
        program.click(program.await_object(f"Image1({entry})"))
        wait_for("an exercise", lambda: program.find("ShockwaveFlash1")
                 or program.find("ShockwaveFlash1(0)"))
        program.key("ctrl+s")
        printed += 1
        system.await_documents(printed)
        leave(program)
    return printed


# --- The log ---

def keep_a_log(program):
    open_configuration(program)
    program.click(program.await_object("CheckSalvaUtente"))
    leave(program)


def log_of_exercises(program, system, drive, printed):
    choose(program, "Esercizi eseguiti")
    program.await_object("MSFlexGrid1")
    choose(program, "File", "Salva")
    name_the_file(program, "prova")
    path = os.path.join(drive, SETTINGS, "dati", "_predefinito", "prova.rpt")
    wait_for("the report", lambda: os.path.exists(path) and os.path.getsize(path))
    with open(path, "rb") as file:
        saved = file.read()
    if saved.count(b"Vero o falso") != 2 or saved.count(b"Indovina chi") != 1:
        raise Failure(f"the report does not hold what was done: {saved}")

    # Of a report with rows the heading and the first row come back, and the box tells of the rest.
    choose(program, "File", "Apri")
    name_the_file(program, "_predefinito/prova")
    wait_for("the first row", lambda: program.named("Vero o falso", "table cell"))
    program.click(wait_for("the box", lambda: program.named("OK", "push button")))
    wait_for("the end of the box", lambda: program.named("OK", "push button") is None)
    leave(program)

    choose(program, "Esercizi eseguiti")
    program.await_object("MSFlexGrid1")
    choose(program, "File", "Stampa")
    program.click(wait_for("the question", lambda: program.named("Sì", "push button")
                           or program.named("Yes", "push button")))
    program.click(wait_for("the hint", lambda: program.named("OK", "push button")))
    page = Page(system.await_documents(printed + 1)[-1][0])
    if page.printed() is None:
        raise Failure("an empty report came out")
    with open(path, "rb") as file:
        if file.read() != saved:
            raise Failure("the report was changed by opening and printing")


def main():
    executable, drive = sys.argv[1:3]
    fresh_drive(drive)
    with PrintingSystem() as system, Desktop() as desktop:
        system.add_printer("Stampante")
        os.environ["CUPS_SERVER"] = system.environment["CUPS_SERVER"]
        program = Program(desktop, executable)
        come_to_the_menu(program, first_time=True)
        keep_a_log(program)
        printing(desktop, program, system)
        log_of_exercises(program, system, drive, print_every_exercise(program, system, printed=3))
    print("printed")


if __name__ == "__main__":
    main()
