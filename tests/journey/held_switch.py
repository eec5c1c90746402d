"""One switch that is held down while somebody leaves the exercise by mouse: its repeats and its
release start nothing in the menu, and the next press of it chooses there.

    alone held_switch.py PROGRAM
"""
import subprocess
import sys

from desktop import Desktop, Failure, Program
from scanning import bring_light_to, write_profile
from steps import fresh_drive, leave

ROUNDS_HELD = 2  # of the light over nine items, 250 ms each: repeats come after 0.66 s


def switch(what):
    subprocess.run(["xdotool", what, "space"], check=True)


def rounds(program, count):
    """Waits while the light of the menu comes to the first item so many times."""
    for _ in range(count):
        bring_light_to(program, 2, "Command1(0)")


def held_switch(executable, drive):
    with Desktop() as desktop:
        fresh_drive(drive)
        write_profile(drive, 2)
        program = Program(desktop, executable)
        program.await_object("Command1")
        program.key_until("Return", "the menu", lambda: program.find("Image1(0)"))
        for _ in range(3):
            bring_light_to(program, 2, "Command1(0)")
            program.key_until("space", "the exercise", lambda: program.find("ShockwaveFlash1"))
            bring_light_to(program, 2, "Command1(0)")
            switch("keydown")
            leave(program)
            rounds(program, ROUNDS_HELD)
            switch("keyup")
            rounds(program, 1)
            if program.find("Image1(0)") is None or program.find("ShockwaveFlash1"):
                raise Failure("the switch held in the exercise acted in the menu")


if __name__ == "__main__":
    try:
        held_switch(*sys.argv[1:])
    except Failure as failure:
        sys.exit(f"FAILED: {failure}")
