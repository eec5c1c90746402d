"""The first exercise without a mouse: by two keys, by one switch and by the arrow keys, each by real
key events alone, through a reward.

    alone scanning.py PROGRAM
"""
import os
import sys

from desktop import Desktop, Failure, Program, figure, wait_for
from journey import figure_text
from sentences import ITALIAN
from steps import SETTINGS, counts, fresh_drive

LIT = "FF0000"
RIGHT_ANSWERS = 12  # the tenth is rewarded
STEP = {1: "space", 3: "Right"}
CHOOSE = {1: "Return", 2: "space", 3: "Return"}

PROFILE = """True
False
 {mode} 
 1 
FFFFCC
sfondo
sfondo
sfondo
sfondo
00FF00
verde
verdi
verde
verdi
FF0000
rosso
rossi
rossa
rosse
0000FF
blu
blu
blu
blu
FFFF00
giallo
gialli
gialla
gialle
 16777088 
minuscolo
arial
arial
 24 
-2147483630 
-2147483633 
True
 255 
 16777215 
False
{log}
Profilo
Merlin
"""


def write_profile(drive, mode, log=False, file_name="_predefinito.INI"):
    os.makedirs(os.path.join(drive, SETTINGS, "dati"), exist_ok=True)
    with open(os.path.join(drive, SETTINGS, file_name), "w", newline="\r\n",
              encoding="cp1252") as file:
        file.write(PROFILE.format(mode=mode, log=log))


def is_lit(program, described):
    item = program.find(described)
    return item is not None and program.colour(item) == LIT


def lit_buttons(program):
    return {name for name in program.names("Command1(") if is_lit(program, name)}


def bring_light_to(program, mode, described):
    """Waits for the light to come in mode 2, and asks for it by key in the others."""
    if mode == 2:
        # The step itself: then the keyboard has been taken and the whole interval lies ahead.
        wait_for("a step", lambda: not is_lit(program, described))
        wait_for("the light", lambda: is_lit(program, described))
        return
    for _ in range(12):
        before = lit_buttons(program)
        if described in before:
            return
        program.key(STEP[mode])
        wait_for("a step", lambda: lit_buttons(program) != before)
    raise Failure(f"the light never came to {described}")


def play(program, mode):
    right = wrong = untold = late = 0
    while right < RIGHT_ANSWERS:
        parts = figure(wait_for("a figure", lambda: figure_text(program)))
        sentence = wait_for("a sentence", lambda: program.text("Label1"))
        holds = ITALIAN.holds(sentence, parts)
        choices = [0 if holds else 1] * (3 if mode == 2 else 1) + [1 if holds else 0] * 3
        if not ITALIAN.painted(parts):
            choices = [choices[0], choices[-1]] * 3
        for index in choices:
            bring_light_to(program, mode, f"Command1({index})")
            program.key(CHOOSE[mode])
            told = wait_for("an answer",
                            lambda: counts(program) != (right, wrong) and counts(program))
            if told == (right + 1, wrong):
                if ITALIAN.painted(parts) and index != choices[0]:
                    raise Failure(f"'{sentence}' of {parts} was judged otherwise")
                break
            wrong += 1
            if not ITALIAN.painted(parts):
                untold += 1
            elif mode == 2:
                late += 1  # the light had gone on before the key arrived
            else:
                raise Failure(f"'{sentence}' of {parts} was judged otherwise")
        right += 1
        wait_for("the light on the next task", lambda: is_lit(program, "Command1(2)"))
        program.key(CHOOSE[mode])
        wait_for("the next task", lambda: is_lit(program, "Command1(0)"))
    return wrong, untold, late


def scanning(executable, drive):
    with Desktop() as desktop:
        for mode in (1, 2, 3):
            fresh_drive(drive)
            write_profile(drive, mode)
            program = Program(desktop, executable)
            program.await_object("Command1")
            program.key_until("Return", "the menu", lambda: program.find("Image1(0)"))
            bring_light_to(program, mode, "Command1(0)")
            program.key_until(CHOOSE[mode], "the exercise",
                              lambda: program.find("ShockwaveFlash1"))
            wait_for("the first light", lambda: is_lit(program, "Command1(0)"))
            wrong, untold, late = play(program, mode)
            print(f"mode {mode}: {RIGHT_ANSWERS} right, {wrong} wrong, of which {untold} "
                  f"not told by the picture and {late} by a late key", flush=True)
            program.process.kill()
            program.process.wait()


if __name__ == "__main__":
    try:
        scanning(*sys.argv[1:])
    except Failure as failure:
        sys.exit(f"FAILED: {failure}")
