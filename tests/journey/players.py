"""An adult makes two players from outside, each with a way to answer, letters and colours of its
own; they are changed in the menu, and both files hold what was chosen, byte for byte, also after
the program was started again.

    alone players.py PROGRAM
"""
import os
import subprocess
import sys

from desktop import Desktop, Failure, Program, wait_for
from steps import SETTINGS, choose_player, come_to_the_menu, fresh_drive, leave, page, press

COMMON = ["True", "False"]
BACKGROUND = ["FFFFCC", "sfondo", "sfondo", "sfondo", "sfondo"]
GREEN = ["00FF00", "verde", "verdi", "verde", "verdi"]
WHITE = ["FFFFFF", "bianco", "bianchi", "bianca", "bianche"]
OTHERS = ["FF0000", "rosso", "rossi", "rossa", "rosse", "0000FF", "blu", "blu", "blu", "blu",
          "FFFF00", "giallo", "gialli", "gialla", "gialle"]
REST = [" 24 ", "-2147483630 ", "-2147483633 ", "True", " 255 ", " 16777215 ", "False", "False",
        "Profilo", "Merlin"]


def profile(mode, speed, first, letters, font, chosen):
    lines = [*COMMON, f" {mode} ", f" {speed} ", *BACKGROUND, *first, *OTHERS, " 16777088 ",
             letters, font, chosen, *REST]
    return "".join(line + "\r\n" for line in lines).encode("cp1252")


ANNA = profile(1, 4, WHITE, "maiuscolo", "arial", "arial")
BRUNO = profile(2, 5, GREEN, "corsivo", "Indis1", "arial")
DEFAULT = profile(0, 4, GREEN, "minuscolo", "arial", "arial")


def open_configuration(program):
    program.click(wait_for("the menu", lambda: program.named("Configurazione", "menu item")))
    program.await_object("OptionUtente(2)")


def new_player(program, name):
    press(program, "OptionUtente(2)")
    program.await_object("TextNuovoUtente")
    program.write(name)
    wait_for("the new name", lambda: program.text("Label4") == name)


def name_a_colour(program, row, square, names):
    page(program, "Colori morlene")
    press(program, f"Option2({row})")
    press(program, f"CasellaColorata({square})")
    for number, name in enumerate(names):
        field = wait_for("a question", lambda: asked(program, number))
        program.click(field)
        program.write(name)
        program.key("Return")
    wait_for("the names", lambda: program.text(f"Option2({row})") == " - ".join(names))


def asked(program, number):
    """The field of the question that is asked now, told by the example in it."""
    example = ["rosso", "rossi", "rossa", "rosse"][number]
    return program.any(lambda item: item.getRoleName() == "text" and question_of(item, example))


def question_of(item, example):
    window = item.parent
    return any(example in (window.getChildAtIndex(index).name or "")
               for index in range(window.childCount))


def expect_files(drive, files):
    for name, content in files.items():
        path = os.path.join(drive, SETTINGS, name)
        wait_for(name, lambda: os.path.exists(path))
        with open(path, "rb") as file:
            found = file.read()
        if found != content:
            raise Failure(f"{name} is not what was chosen:\n{found}\n{content}")


def first_visit(executable, drive):
    fresh_drive(drive)
    with Desktop("1024x768") as desktop:
        program = Program(desktop, executable)
        come_to_the_menu(program, first_time=True)

        open_configuration(program)
        new_player(program, "Anna")
        name_a_colour(program, 1, 0, WHITE[1:])
        page(program, "Font e colori")
        press(program, "maiuscolo")
        page(program, "Modalità di input")
        press(program, "Option4(1)")
        leave(program)
        expect_files(drive, {"Anna.ini": ANNA, "_predefinito.INI": DEFAULT})

        open_configuration(program)
        new_player(program, "Bruno")
        page(program, "Colori morlene")
        press(program, "Command4")
        page(program, "Font e colori")
        press(program, "corsivo")
        page(program, "Modalità di input")
        press(program, "Option4(2)")
        slower = program.await_object("HScroll3")
        slower.queryComponent().grabFocus()
        program.key("Right")
        wait_for("the speed", lambda: "1.25" in program.text("Label7"))
        leave(program)
        expect_files(drive, {"Anna.ini": ANNA, "Bruno.ini": BRUNO})

        choose_player(program, "Anna")
        choose_player(program, "_predefinito")
        press(program, "Command1(8)")
        if program.ended() != 0:
            raise Failure("the first visit did not end well")


def second_visit(executable, drive):
    with Desktop("1024x768") as desktop:
        program = Program(desktop, executable)
        come_to_the_menu(program, first_time=False)
        choose_player(program, "Bruno")
        choose_player(program, "Anna")
        choose_player(program, "_predefinito")
        press(program, "Command1(8)")
        if program.ended() != 0:
            raise Failure("the second visit did not end well")
    expect_files(drive, {"Anna.ini": ANNA, "Bruno.ini": BRUNO, "_predefinito.INI": DEFAULT})
    here = sorted(os.listdir(os.path.join(drive, SETTINGS)))
    if here != ["Anna.ini", "Bruno.ini", "_predefinito.INI", "dati"]:
        raise Failure(f"the settings folder holds {here}")


if __name__ == "__main__":
    try:
        if sys.argv[3:] == ["again"]:
            second_visit(*sys.argv[1:3])
        else:
            first_visit(*sys.argv[1:])
            # By a reader of its own: one that has seen a program go may miss the next.
            sys.exit(subprocess.run([sys.executable, __file__, *sys.argv[1:], "again"]).returncode)
    except Failure as failure:
        sys.exit(f"FAILED: {failure}")
