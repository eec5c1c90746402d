"""Without an X server: the program fills the screen of a Wayland compositor, which knows whose
window that is, and a first task is played by accessibility actions alone, as a screen reader or a
switch of the desktop's does it.

    alone wayland.py PROGRAM [x]

With "x" the program knows X alone, and the compositor lends it a place.
"""
import os
import sys
import tempfile

from desktop import Failure, Program, WaylandDesktop, figure, wait_for
from journey import figure_text
from sentences import ITALIAN
from steps import counts, fresh_drive, panel

SIZE = (1366, 768)


def act(item):
    """What a press on it does."""
    actions = item.queryAction()
    names = [actions.getName(index) for index in range(actions.nActions)]
    wanted = next((name for name in ("Press", "Toggle", "ShowMenu") if name in names), None)
    if wanted is None:
        raise Failure(f"{item.name}: nothing to press in {names}")
    actions.doAction(names.index(wanted))


def await_the_splash(program):
    """A first run says first that the font is there."""
    def ok():
        return program.named("OK", "push button")
    act(wait_for("the box of the first run", ok))
    wait_for("the end of the box", lambda: not ok())
    return program.await_object("Command1")


def fills_the_screen(program, window):
    def size():
        shown = program.find(window)
        place = shown and program.box(shown)
        return place and (place.width, place.height)
    wait_for(f"{window} as large as the screen", lambda: size() == SIZE)


def play_a_task(program):
    parts = figure(wait_for("a figure", lambda: figure_text(program)))
    holds = ITALIAN.holds(wait_for("a sentence", lambda: program.text("Label1")), parts)
    for index in (0, 1) if holds else (1, 0):
        before = counts(program)
        act(program.await_object(f"Command1({index})"))
        after = wait_for("an answer", lambda: counts(program) != before and counts(program))
        if after[0] == 1:
            break
        if ITALIAN.painted(parts):
            raise Failure(f"a right answer to {parts} was counted as wrong")
    wait_for("the next-task button", lambda: program.enabled(program.find("Command1(2)")))


def told_whose_windows(protocol):
    protocol.seek(0)
    return 'set_app_id("morlenekvt")' in protocol.read().decode(errors="replace")


def wayland(executable, drive, through=""):
    fresh_drive(drive)
    with WaylandDesktop(SIZE, through == "x") as desktop, tempfile.TemporaryFile() as protocol:
        program = Program(desktop, executable, stderr=protocol,
                          env=dict(os.environ, WAYLAND_DEBUG="client"))
        act(await_the_splash(program))
        fills_the_screen(program, "FormMenu")
        act(program.await_object("Image1(0)"))
        fills_the_screen(program, "FormEs1")
        if panel(program, 1) != "0 Esatti":
            raise Failure("the exercise does not begin with empty counters")
        play_a_task(program)
        act(wait_for("Esci", lambda: program.named("Esci", "menu item")))
        act(program.await_object("Command1(8)"))
        if program.ended() != 0:
            raise Failure("the program did not end well")
        if not through and not told_whose_windows(protocol):
            raise Failure("the compositor was not told whose windows these are")


if __name__ == "__main__":
    try:
        wayland(*sys.argv[1:])
    except Failure as failure:
        sys.exit(f"FAILED: {failure}")
