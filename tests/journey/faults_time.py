"""The machine does what it likes with time: the program is stopped and goes on, the clock is set
forward and back. The light keeps its pace, an answer counts once, a reward plays to its end.

    MOVED_CLOCK_LIBRARY=libmoved_clock.so alone faults_time.py PROGRAM

With FAULTS_WHOLE in the environment it is stopped for a minute, and the clock goes back as well.
"""
import os
import signal
import sys
import time

from Xlib import X, display

from desktop import Desktop, Failure, Program, screen, wait_for
from journey import answer, figure_text
from scanning import LIT, bring_light_to, write_profile
from steps import choose, come_to_the_menu, counts, fresh_drive, press

BUTTONS = ("Command1(0)", "Command1(1)", "Command1(2)")
STEP = 0.25  # seconds, of the light
WHOLE = "FAULTS_WHOLE" in os.environ
DAY = 24 * 60 * 60  # seconds
RIGHT_ANSWERS_TO_A_REWARD = 10
LONGEST_REWARD = 20  # seconds


def stop(program, seconds):
    program.process.send_signal(signal.SIGSTOP)
    time.sleep(seconds)
    program.process.send_signal(signal.SIGCONT)


class Light:
    """Follows the light over the buttons, which stand one below the other, on the screen alone: so
    quickly that no step is missed."""

    def __init__(self, program):
        self.root = display.Display().screen().root
        self.places = []
        for name in BUTTONS:
            box = program.settled_box(program.await_object(name))
            self.places.append(box.y + box.height // 6)
        self.x = box.x + box.width // 6

    def lit(self):
        top = self.places[0]
        line = self.root.get_image(self.x, top, 1, self.places[-1] - top + 1, X.ZPixmap,
                                   0xFFFFFF).data
        for number, place in enumerate(self.places):
            blue, green, red = line[4 * (place - top):][:3]
            if f"{red:02X}{green:02X}{blue:02X}" == LIT:
                return number
        return None

    def steps(self, seconds):
        """How often it moves in that time."""
        end = time.monotonic() + seconds
        moved, last = 0, self.lit()
        while time.monotonic() < end:
            now = self.lit()
            if now is not None and now != last:
                moved, last = moved + 1, now
            time.sleep(0.005)
        return moved

    def expect_the_pace(self, when, seconds=2):
        steps = self.steps(seconds)
        # A busy machine may look too rarely to see each step, but never sees more.
        if not seconds / STEP / 2 <= steps <= seconds / STEP + 1.5:
            raise Failure(f"{when} the light moved {steps} times in {seconds} s")


def come_to_scanning(desktop, executable, drive, **options):
    """The first exercise, by one switch."""
    fresh_drive(drive)
    write_profile(drive, 2, log=True)
    program = Program(desktop, executable, **options)
    program.await_object("Command1")
    program.key_until("Return", "the menu", lambda: program.find("Image1(0)"))
    lit_item_chosen(program)
    return program


def lit_item_chosen(program):
    """The switch is pressed while the light is on the first exercise."""
    bring_light_to(program, 2, "Command1(0)")
    program.key_until("space", "the exercise", lambda: program.find("ShockwaveFlash1"))
    program.await_object("StatusBar1.Panels(1)")


def end(program):
    program.process.kill()
    program.process.wait()


# --- Stopped and continued ---

def stopped_at_the_splash(desktop, executable, drive, seconds):
    fresh_drive(drive)
    program = Program(desktop, executable)
    wait_for("the box of the font", lambda: program.named("OK", "push button"))
    program.key_until("Return", "the splash", lambda: program.find("Command1"))
    stop(program, seconds)
    come_to_the_menu(program, first_time=False)
    end(program)


def stopped_while_scanning(desktop, executable, drive, seconds):
    program = come_to_scanning(desktop, executable, drive)
    light = Light(program)
    light.expect_the_pace("before")
    stop(program, seconds)
    # The ticks that were missed do not come after all.
    light.expect_the_pace("after the stop")
    before = counts(program)
    program.key("space")
    wait_for("an answer", lambda: counts(program) != before)
    if sum(counts(program)) != sum(before) + 1:
        raise Failure("one press was counted otherwise than once")
    end(program)


def stopped_during_a_reward(desktop, executable, drive, seconds):
    fresh_drive(drive)
    program = Program(desktop, executable)
    come_to_the_menu(program, first_time=True)
    press(program, "Image1(0)")
    program.await_object("ShockwaveFlash1")
    for task in range(RIGHT_ANSWERS_TO_A_REWARD):
        if task > 0:
            answer(program, 2)
            wait_for("the next task", lambda: not program.enabled(program.find("Command1(2)")))
        for index in (0, 1):
            before = counts(program)
            answer(program, index)
            wait_for("an answer", lambda: counts(program) != before)
            if counts(program)[0] > before[0]:
                break
    wait_for("the reward", lambda: not figure_text(program))
    box = program.box(program.find("ShockwaveFlash1"))
    place = (box.x, box.y, box.x + box.width, box.y + box.height)

    def moves():
        before = screen(place).tobytes()
        time.sleep(0.3)
        return screen(place).tobytes() != before
    wait_for("a moving reward", moves)
    stop(program, seconds)
    wait_for("the end of the reward", lambda: not moves(), LONGEST_REWARD)
    answer(program, 2)
    wait_for("the figure", lambda: figure_text(program))
    end(program)


# --- The clock ---

def moved_clock(desktop, executable, drive):
    path = os.path.join(os.environ["XDG_RUNTIME_DIR"], "clock")
    program = come_to_scanning(desktop, executable, drive,
                               env=dict(os.environ, MOVED_CLOCK=path,
                                        LD_PRELOAD=os.environ["MOVED_CLOCK_LIBRARY"]))
    light = Light(program)
    for days in (40, -40) if WHOLE else (40,):
        with open(path, "w", encoding="ascii") as file:
            file.write(str(days * DAY))
        light.expect_the_pace(f"with the clock moved by {days} days")
        choose(program, "Esci")
        program.await_object("Image1(0)")
        choose(program, "Esercizi eseguiti")
        moved = time.strftime("%d/%m/%Y", time.localtime(time.time() + days * DAY))
        heading = program.text("Label2")
        if not heading.endswith(moved):
            raise Failure(f"the log is dated '{heading}' and not {moved}")
        choose(program, "Esci")
        program.await_object("Image1(0)")
        lit_item_chosen(program)
    end(program)


def faults_time(executable, drive):
    seconds = 60 if WHOLE else 1.5
    with Desktop() as desktop:
        for fault in (stopped_at_the_splash, stopped_while_scanning, stopped_during_a_reward):
            print(fault.__name__, flush=True)
            fault(desktop, executable, drive, seconds)
        print("moved_clock", flush=True)
        moved_clock(desktop, executable, drive)


if __name__ == "__main__":
    try:
        faults_time(*sys.argv[1:])
    except Failure as failure:
        sys.exit(f"FAILED: {failure}")
