"""One of two people who are logged in on the same computer at once. Each makes a player, the other
changes and saves it; one saves a report and chooses another language. Every file that the program
opens is written down.

    visitor.py anna|bruno PROGRAM MEETING-FOLDER [short]

They wait for each other by files in the meeting folder.
"""
import os
import pwd
import sys
import time

TESTS = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
sys.path += [os.path.join(TESTS, "journey"), os.path.join(TESTS, "..", "tools", "outside")]

from desktop import Desktop, Failure, Program, wait_for  # noqa: E402
from journey import answer, figure_text  # noqa: E402
from players import new_player, open_configuration  # noqa: E402
from steps import (SETTINGS, choose, choose_player, leave, name_the_file, page,  # noqa: E402
                   panel, press)

PLAYERS = os.path.join("/var/lib/morlenekvt", SETTINGS)
LANGUAGE = "/var/lib/morlenekvt/LangSetting.ini"
begin = time.monotonic()


class Visit:
    def __init__(self, me, executable, meeting):
        self.me, self.executable, self.meeting = me, executable, meeting
        self.starts = 0

    def tell(self, what):
        print(f"{time.monotonic() - begin:5.1f} s  {self.me}: {what}", flush=True)
        with open(os.path.join(self.meeting, what.replace(" ", "-")), "x", encoding="ascii"):
            pass

    def await_other(self, what):
        path = os.path.join(self.meeting, what.replace(" ", "-"))
        wait_for(f"the other one's '{what}'", lambda: os.path.exists(path), 90)

    def start(self, desktop):
        self.starts += 1
        trace = os.path.join(self.meeting, f"trace-{self.me}-{self.starts}")
        program = Program(desktop, "strace", arguments=[
            # The program stays our own child, and the one who watches is not.
            "-D", "-f", "-y", "--seccomp-bpf", "-e", "trace=open,openat,openat2,creat,rename,renameat2",
            "-o", trace, self.executable])
        return program


def splash(program, first_run):
    """Over the splash of a first run, and of no other, a box tells of the font."""
    def ok():
        return program.named("OK", "push button")
    if first_run:
        wait_for("the box of the font", lambda: program.any(
            lambda item: item.getRoleName() == "label" and "Indis1" in item.name))
        program.click(wait_for("its button", ok))
        wait_for("the end of the box", lambda: not ok())
    found = wait_for("the splash", lambda: program.find("Command1") or ok())
    if not program.find("Command1"):
        raise Failure(f"a box came with {found.name}")
    press(program, "Command1")
    program.await_object("Command1(8)")


def end(program):
    # Whoever answers with two keys would have to end with them too.
    choose_player(program, "_predefinito")
    press(program, "Command1(8)")
    if program.ended() != 0:
        raise Failure("the program did not end well")


def lines_of(player):
    with open(os.path.join(PLAYERS, player + ".ini"), encoding="cp1252") as file:
        return file.read().splitlines()


def owner_of(path):
    return pwd.getpwuid(os.stat(path).st_uid).pw_name


def save_the_others(program, player, mode, owner):
    """Changes the way of answering in a player's file that belongs to somebody else."""
    path = os.path.join(PLAYERS, player + ".ini")
    choose_player(program, player)
    open_configuration(program)
    page(program, "Modalità di input")
    press(program, f"Option4({mode})")
    leave(program)
    wait_for(f"{player}'s file", lambda: lines_of(player)[2] == f" {mode} ")
    if owner_of(path) != owner:
        raise Failure(f"{path} was replaced by one of {owner_of(path)}")


def play_and_save_a_report(program):
    press(program, "Image1(0)")
    wait_for("a figure", lambda: figure_text(program))
    for index in (0, 1):
        if panel(program, 1) == "0 Esatti":
            answer(program, index)
            wait_for("an answer", lambda: (panel(program, 1), panel(program, 2)) !=
                     ("0 Esatti", "0 Errati"))
    leave(program)
    choose(program, "Esercizi eseguiti")
    program.await_object("MSFlexGrid1")
    choose(program, "File", "Salva")
    name_the_file(program, "prova")
    path = os.path.join(PLAYERS, "dati", "Bruno", "prova.rpt")
    wait_for("the report", lambda: os.path.exists(path) and os.path.getsize(path))
    with open(path, "rb") as file:
        if b"Vero o falso" not in file.read():
            raise Failure("the report does not hold what was done")
    choose(program, "Esci")
    program.await_object("Command1(8)")


def anna(visit, short):
    with Desktop() as desktop:
        program = visit.start(desktop)
        splash(program, first_run=True)
        visit.tell("first run")
        open_configuration(program)
        new_player(program, "Anna")
        leave(program)
        wait_for("Anna's file", lambda: os.path.exists(os.path.join(PLAYERS, "Anna.ini")))
        visit.tell("made Anna")
        if short:
            visit.await_other("saved Anna")
            return end(program)
        visit.await_other("made Bruno")
        end(program)
        program = visit.start(desktop)
        splash(program, first_run=False)
        save_the_others(program, "Bruno", 1, "bruno")
        visit.tell("saved Bruno")
        visit.await_other("chose English")
        end(program)
        program = visit.start(desktop)
        splash(program, first_run=False)
        wait_for("an English menu", lambda: program.named("Configuration", "menu item"))
        visit.tell("reads English")
        return end(program)


def bruno(visit, short):
    visit.await_other("made Anna")
    with Desktop() as desktop:
        program = visit.start(desktop)
        splash(program, first_run=False)
        save_the_others(program, "Anna", 1, "anna")
        visit.tell("saved Anna")
        if short:
            return end(program)
        open_configuration(program)
        new_player(program, "Bruno")
        press(program, "CheckSalvaUtente")
        page(program, "Modalità di input")
        press(program, "Option4(0)")
        leave(program)
        visit.tell("made Bruno")
        play_and_save_a_report(program)
        visit.tell("saved a report")
        visit.await_other("saved Bruno")
        choose(program, "Lingua", "english")
        wait_for("the language", lambda: "CurrentLanguage=english" in
                 open(LANGUAGE, encoding="cp1252").read())
        visit.tell("chose English")
        return end(program)


if __name__ == "__main__":
    who, executable, meeting = sys.argv[1:4]
    try:
        {"anna": anna, "bruno": bruno}[who](Visit(who, executable, meeting), sys.argv[4:] == ["short"])
    except Failure as failure:
        sys.exit(f"FAILED: {who}: {failure}")
