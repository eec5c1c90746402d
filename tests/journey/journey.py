"""A child's first visit, from outside: the real program in a real window, worked by real mouse
events and read through the accessibility bus, until the profile stands on the disk.

    alone journey.py PROGRAM
"""
import os
import sys

from desktop import Desktop, Failure, Program, figure, wait_for
from sentences import ITALIAN
from steps import SETTINGS, come_to_the_menu, counts, fresh_drive, leave, panel, press

TASKS = 20


def answer(program, index):
    program.click(program.await_object(f"Command1({index})"))


def play(program, tasks=TASKS):
    """Gives how many could not be told from the picture and were missed."""
    right = wrong = untold = 0
    for task in range(tasks):
        parts = figure(wait_for("a figure", lambda: figure_text(program)))
        sentence = wait_for("a sentence", lambda: program.text("Label1"))
        holds = ITALIAN.holds(sentence, parts)
        if task == 3:
            # Once on purpose: a wrong answer counts, and the task stays.
            answer(program, 1 if holds else 0)
            wrong += 1
            wait_for("the wrong answer", lambda: panel(program, 2).startswith(f"{wrong} "))
            if program.text("Label1") != sentence:
                raise Failure("a wrong answer changed the task")
        answer(program, 0 if holds else 1)
        counted = wait_for("an answer", lambda: counts(program) != (right, wrong) and counts(program))
        if counted == (right, wrong + 1):
            if ITALIAN.painted(parts):
                raise Failure(f"'{sentence}' of {parts} was judged otherwise")
            untold += 1
            wrong += 1
            answer(program, 1 if holds else 0)
            wait_for("the other answer", lambda: counts(program) == (right + 1, wrong))
        right += 1
        wait_for("the next-task button", lambda: program.enabled(program.find("Command1(2)")))
        answer(program, 2)
        wait_for("the next task", lambda: not program.enabled(program.find("Command1(2)")))
    return right, wrong, untold


def figure_text(program):
    item = program.find("ShockwaveFlash1")
    return item is not None and ": " in item.description and item.description


def check_the_disk(drive):
    profile = os.path.join(drive, SETTINGS, "_predefinito.INI")
    with open(profile, "rb") as file:
        lines = file.read().split(b"\r\n")
    if len(lines) != 44 or lines[0] != b"True" or lines[2] != b" 0 " or lines[43] != b"":
        raise Failure(f"the profile is not what a new player's is: {lines}")
    if not os.path.exists(os.path.join(drive, "windows/fonts/indis1.ttf")):
        raise Failure("the font is not there")


def journey(executable, drive):
    fresh_drive(drive)
    with Desktop() as desktop:
        program = Program(desktop, executable)
        come_to_the_menu(program, first_time=True)
        program.click(program.await_object("Image1(0)"))
        program.await_object("ShockwaveFlash1")
        if (panel(program, 1), panel(program, 3)) != ("0 Esatti", "1 Livello"):
            raise Failure("the exercise does not start at level 1 with empty counters")
        right, wrong, untold = play(program)
        print(f"{right} right, {wrong} wrong, of which {untold} not told by the picture")

        leave(program)
        press(program, "Command1(8)")
        status = program.ended()
        if status != 0:
            raise Failure(f"the program ended with {status}")
        check_the_disk(drive)

        program = Program(desktop, executable)
        come_to_the_menu(program, first_time=False)
        program.click(program.await_object("Command1(8)"))
        if program.ended() != 0:
            raise Failure("the second visit did not end well")


if __name__ == "__main__":
    try:
        journey(*sys.argv[1:])
    except Failure as failure:
        sys.exit(f"FAILED: {failure}")
