"""A tour of all windows, boxes and dialogs: the window manager shows the titles as they are stated,
a box shows a name as it was typed, and the program has nothing to say on standard error.

    alone windows.py PROGRAM
"""
import os
import re
import subprocess
import sys
import tempfile
import time

from desktop import Desktop, Failure, Program, wait_for
from players import open_configuration
from steps import choose, fresh_drive, leave, page, press, press_ok

EXERCISES = 8


def asked_of_the_window_manager(*words):
    return subprocess.run(["xprop", *words], capture_output=True, text=True, check=False).stdout


def titles():
    """Of every window that the window manager looks after, as it got them."""
    found = []
    for window in re.findall(r"0x[0-9a-f]+", asked_of_the_window_manager("-root",
                                                                         "_NET_CLIENT_LIST")):
        name = re.search(r'= "(.*)"$', asked_of_the_window_manager("-id", window, "_NET_WM_NAME"),
                         re.MULTILINE)
        found.append(name and name.group(1))
    return sorted(found, key=str)


def expect_titles(*wanted):
    try:
        wait_for("titles", lambda: titles() == sorted(wanted), 5)
    except Failure:
        raise Failure(f"the titles are {titles()} and not {sorted(wanted)}") from None


def put_away(program, *left):
    wait_for("the end of the box", lambda: titles() == sorted(left) or press_ok(program))


def cancel(program, *left):
    program.key_until("Escape", "the end of the dialog", lambda: titles() == sorted(left))


def the_start(program):
    wait_for("the box of the font", lambda: program.named("OK", "push button"))
    expect_titles("MorleneKVT")
    wait_for("the splash", lambda: program.find("Command1") or press_ok(program))
    expect_titles("MorleneKVT")
    press(program, "Command1")
    program.await_object("Command1(8)")
    expect_titles("MorleneKVT")


def the_small_windows(program):
    choose(program, "Informazioni", "about")
    program.await_object("Label4")
    expect_titles("Informazioni")
    press(program, "Command1")
    program.await_object("Command1(8)")
    # Nothing here opens documents.
    choose(program, "Informazioni", "documentazione")
    expect_titles("MorleneKVT")


def the_configuration(program):
    open_configuration(program)
    expect_titles("Configurazione")
    press(program, "CheckSalvaUtente")
    page(program, "Font e colori")
    for control, title in (("CommandSceltaColoreFont", "Colore"), ("CommandSceltaFont", "Font")):
        press(program, control)
        expect_titles("Configurazione", title)
        cancel(program, "Configurazione")
    page(program, "Colori morlene")
    press(program, "Option2(1)")
    press(program, "CasellaColorata(0)")
    for example in ("rosso", "rossi", "rossa", "rosse"):
        wait_for(example, lambda: program.any(
            lambda item: item.getRoleName() == "label" and example in item.name))
        expect_titles("Configurazione", "Morlenekvt")
        program.key("Return")
    wait_for("the end of the questions", lambda: titles() == ["Configurazione"])
    for name in ("Scelte didattiche", "Suoni ", "Modalità di input", "Giocatori"):
        page(program, name)
    leave(program)


def the_empty_log(program):
    choose(program, "Esercizi eseguiti")
    table = program.await_object("MSFlexGrid1").queryTable()
    headings = [table.getColumnHeader(column).name for column in range(table.nColumns)]
    if headings != ["Esercizio", " Livello", " Esatti", " Errati"]:
        raise Failure(f"an empty log has the headings {headings}")
    heading = program.text("Label2")
    if not heading.endswith(time.strftime("%d/%m/%Y")):
        raise Failure(f"the log's date is written so: {heading}")
    expect_titles("MorleneKVT")
    choose(program, "File", "Salva")
    expect_titles("MorleneKVT", "Salva")
    program.key_until("Escape", "the box", lambda: titles() == ["MorleneKVT", "Morlenekvt"])
    put_away(program, "MorleneKVT")
    choose(program, "File", "Apri")
    expect_titles("Apri", "MorleneKVT")
    program.key_until("Escape", "the box", lambda: titles() == ["MorleneKVT", "Morlenekvt"])
    put_away(program, "MorleneKVT")
    choose(program, "File", "Stampa")
    expect_titles("MorleneKVT", "Morlenekvt")
    cancel(program, "MorleneKVT")
    choose(program, "Esci")
    program.await_object("Command1(8)")


def the_exercises(program):
    for entry in range(EXERCISES):
        press(program, f"Image1({entry})")
        wait_for("an exercise", lambda: program.find("ShockwaveFlash1")
                 or program.find("ShockwaveFlash1(0)"))
        expect_titles("MorleneKVT")
        if entry == 0:
            choose(program, "Stampa", "figura da colorare")
            program.await_object("Picture1(0)")
            expect_titles("Figura da colorare", "MorleneKVT")
            choose_in(program, "Figura da colorare", "Esci")
            expect_titles("MorleneKVT")
        choose(program, "Esci")
        program.await_object(f"Image1({entry})")


def choose_in(program, window, name):
    """The item of that window, where two have one of that name."""
    def item():
        frame = program.any(lambda found: found.name == window and
                            found.getRoleName() in ("frame", "filler", "window", "dialog"))
        return frame and program._search(frame, lambda found: found.name == name and
                                         found.getRoleName() == "menu item")
    program.click(wait_for(name, item))


def a_name_that_cannot_be_saved(program):
    open_configuration(program)
    press(program, "OptionUtente(2)")
    program.await_object("TextNuovoUtente")
    program.write("a<b>c")
    wait_for("the new name", lambda: program.text("Label4") == "a<b>c")
    choose(program, "Esci")
    wait_for("the box of the error", lambda: program.any(
        lambda item: item.getRoleName() == "label" and item.name.startswith("52: ") and
        "a<b>c.ini" in item.name))
    expect_titles("Configurazione", "MorleneKVT")
    program.key("Return")
    if program.ended() != 1:
        raise Failure("an error that nothing trapped ended the program well")


def windows(executable, drive):
    fresh_drive(drive)
    with tempfile.TemporaryFile() as errors, Desktop() as desktop:
        program = Program(desktop, executable, stderr=errors,
                          env=dict(os.environ, PATH="/nonexistent"))
        the_start(program)
        the_small_windows(program)
        the_configuration(program)
        the_empty_log(program)
        the_exercises(program)
        a_name_that_cannot_be_saved(program)
        errors.seek(0)
        said = errors.read().decode(errors="replace")
        if said:
            raise Failure(f"the program wrote on standard error:\n{said}")


if __name__ == "__main__":
    try:
        windows(*sys.argv[1:])
    except Failure as failure:
        sys.exit(f"FAILED: {failure}")
