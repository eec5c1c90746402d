"""All eight exercises on all their levels, one task each, by mouse and by the three ways without
one: from outside, by real events, with nothing known but what the screen shows.

    alone exercises.py PROGRAM MODE [FIRST LAST]

The exercises are numbered from 1 in the order of the menu.
"""
import sys
import time

from child import EXERCISES, FORMS, INSIDE, PARTS, Child, differing, where_it_is
from desktop import Desktop, Failure, Program, screen, wait_for
from scanning import CHOOSE, LIT, STEP, is_lit, write_profile
from sentences import ITALIAN, PALETTE
from steps import fresh_drive, leave

MOUSE, SWITCH, ARROWS = 0, 2, 3
# In the figure's own 700 by 900: a spot on the outline of each part.
OUTLINE = [(478, 340), (350, 230), (100, 700), (140, 700), (288, 760), (350, 798), (614, 38),
           (246, 98)]
LATE = 15  # tries, where the light goes on while a key is on its way


class AnyChild(Child):
    """Plays one running program in one input mode."""

    def __init__(self, program, mode):
        super().__init__(program)
        self.mode = mode
        self.late = 0

    def lit(self, picture, x, y):
        return "%02X%02X%02X" % picture.getpixel((x, y)) == LIT

    # The highlight.

    def bring(self, position, wanted):
        """Brings the highlight to the place, wherever it is now."""
        if self.mode == SWITCH:
            wait_for("a step", lambda: position() != wanted)
            wait_for(f"the light on {wanted}", lambda: position() == wanted, 40)
            return
        for _ in range(30):
            before = position()
            if before == wanted:
                return
            self.program.key_until(STEP[self.mode], "a step", lambda: position() != before)
        raise Failure(f"the light never came to {wanted}")

    def choose(self):
        self.program.key(CHOOSE[self.mode])

    def choose_at(self, position, wanted, right=True):
        """Chooses there and expects that outcome; a late key is tried again."""
        for _ in range(LATE if self.mode == SWITCH else 1):
            self.bring(position, wanted)
            self.choose()
            if self.answered() == right:
                return
            self.late += 1
        raise Failure(f"{wanted} was judged otherwise")

    def lit_button(self, buttons=(0, 1, 2)):
        places = [(index, self.place(f"Command1({index})")) for index in buttons]
        picture = screen()
        return next((index for index, box in places if box is not None and
                     self.lit(picture, box.x + box.width // 6, box.y + box.height // 6)), None)

    def next_by_scanning(self, button, done):
        wait_for("the light on the next task",
                 lambda: is_lit(self.program, f"Command1({button})"))
        self.program.key_until(CHOOSE[self.mode], "the next task", done)


# --- The exercises ---

def answer_button(child, index):
    """True when the button was the right one."""
    if child.mode == MOUSE:
        child.click(f"Command1({index})")
        return child.answered()
    child.bring(child.lit_button, index)
    child.choose()
    return child.answered()


def vero_o_falso(child, _):
    holds = ITALIAN.holds(child.program.text("Label1"), child.wait_shown())
    two_buttons(child, 0 if holds else 1)


def uguale_diverso(child, _):
    sentence = child.program.text("Label1").lower().split()
    one, other = child.wait_shown(), child.wait_shown("ShockwaveFlash2")
    part = next(word for word in sentence if word in one)
    alike = one[part] == other[part]
    two_buttons(child, 0 if alike != ("non" in sentence) else 1)


def two_buttons(child, right):
    for _ in range(LATE):
        if answer_button(child, right):
            break
        if child.mode != SWITCH:
            raise Failure("the right button was judged wrong")
        child.late += 1
    next_task(child, 2)


def next_task(child, button):
    if child.mode == MOUSE:
        wait_for("the next-task button",
                 lambda: child.program.enabled(child.program.find(f"Command1({button})")))
        child.click(f"Command1({button})")
        wait_for("the next task",
                 lambda: not child.program.enabled(child.program.find(f"Command1({button})")))
    else:
        child.next_by_scanning(button,
                               lambda: not is_lit(child.program, f"Command1({button})"))


def outline_lit(child):
    picture = screen()
    return next((index for index, place in enumerate(OUTLINE)
                 if child.lit(picture, *child.spot("ShockwaveFlash2", place))), None)


def frame_lit(child):
    shown = child.program.names("Shape1(")
    return next((index for index in range(8) if f"Shape1({index})" in shown), None)


def uguali_2(child, level):
    differences(child, level, lambda: outline_lit(child),
                lambda part: child.program.click_at(
                    *child.spot(where_it_is(child, PARTS[part]), INSIDE[part])))


def uguali_1(child, level):
    differences(child, level, lambda: frame_lit(child),
                lambda part: child.click(f"Image1({part})"))


def differences(child, level, position, point):
    parts = differing(child)
    if len(parts) != level:
        raise Failure(f"{parts} differ on level {level}")
    for part in parts:
        if child.mode == MOUSE:
            point(part)
            if not child.answered():
                raise Failure(f"{PARTS[part]} was judged wrong")
        else:
            child.choose_at(position, part)
    if differing(child):
        raise Failure("a difference is left")
    next_task(child, 0)


def colora(child, level):
    done = 0
    clicks = 0  # each moves on to the next of the four colours, from whatever part to whatever part
    while done < 6:
        sentences = [line for line in child.text("Text1").split("\n") if line]
        if child.mode == MOUSE:
            for sentence in sentences:
                part = next(p for p in PARTS if p in sentence.lower())
                for _ in PALETTE:
                    child.program.click_at(*child.spot("ShockwaveFlash1",
                                                       INSIDE[PARTS.index(part)]))
                    colour = PALETTE[clicks % len(PALETTE)]
                    clicks += 1
                    parts = wait_for(f"{colour} on {part}", lambda: (
                        shown := child.shown("ShockwaveFlash1"))[part] == colour and shown)
                    if ITALIAN.painted_as(sentence, parts):
                        break
                else:
                    raise Failure(f"no colour satisfies {sentence}")
            child.click("Command1(0)")
            if not child.answered():
                raise Failure(f"{sentences} was judged wrong")
            done += len(sentences)
        else:
            paint_by_scanning(child, sentences)
            done += 1
    next_task(child, 1)


def paint_by_scanning(child, sentences):
    """The part that changes is the one that is marked; its sentence is among those shown."""
    before = child.wait_shown()
    while True:
        look = lambda: child.shown("ShockwaveFlash1") != before and child.shown("ShockwaveFlash1")
        now = (wait_for("another colour", look) if child.mode == SWITCH else
               child.program.key_until(STEP[child.mode], "another colour", look))
        part = next(p for p in PARTS if now[p] != before[p])
        sentence = next(line for line in sentences if part in line.lower())
        if ITALIAN.painted_as(sentence, now):
            child.choose()
            if child.answered():
                return
            if child.mode != SWITCH:
                raise Failure(f"{sentence} was judged wrong")
            child.late += 1
        before = child.wait_shown()


def sentence_that_tells_all(child, level):
    while True:
        sentence = child.text("Label1")
        if ITALIAN.tells_all(sentence, level):
            return sentence
        child.program.key_until(f"F{level}", "another sentence",
                                lambda: child.text("Label1") != sentence)


def insiemi(child, level):
    sentence = sentence_that_tells_all(child, level)
    late = 0
    while not child.program.enabled(child.program.await_object("Command1(2)")):
        if child.mode != MOUSE and is_lit(child.program, "Command1(2)"):
            break
        parts = child.wait_shown()
        if answer_button(child, 0 if ITALIAN.fits(sentence, parts) else 1):
            late = 0
            continue
        late += 1
        child.late += 1
        if child.mode != SWITCH or late == LATE:
            raise Failure(f"{sentence} was judged wrong of {parts}")
    next_task(child, 2)


def described(child):
    """Indexes of the figures shown, and those of them that fit the description."""
    lines = [line for line in child.text("Text1").split("\n") if line]
    seen = {}
    for index in range(12):
        parts = child.shown(f"ShockwaveFlash1({index})")
        if parts is not None:
            child.place(f"ShockwaveFlash1({index})")
            seen[index] = all(ITALIAN.holds(line, parts) for line in lines)
    return list(seen), [index for index, fit in seen.items() if fit]


def framed(child):
    """By the colour of the frame, in the middle of its left side."""
    picture = screen()
    for index in range(12):
        box = child.places.get(f"ShockwaveFlash1({index})")
        if box is not None and child.lit(picture, box.x + 3, box.y + box.height // 2):
            return index
    return None


def remove_intruders(child):
    figures, fitting = described(child)
    if len(fitting) != 1:
        return  # twins: the index tells which is meant, and no child could
    for index in figures:
        if index == fitting[0]:
            continue
        if child.mode == MOUSE:
            child.click(f"ShockwaveFlash1({index})")
            if not child.answered():
                raise Failure(f"figure {index} was judged wrong")
        else:
            child.choose_at(lambda: framed(child), index)
    next_task(child, 0)


def trova_gli_intrusi(child, _):
    remove_intruders(child)


def indovina_chi(child, _):
    if child.mode == ARROWS:
        return remove_intruders(child)
    fitting = described(child)[1]
    if len(fitting) != 1:
        return None
    if child.mode == MOUSE:
        child.click(f"ShockwaveFlash1({fitting[0]})")
        if not child.answered():
            raise Failure("the figure described was judged wrong")
    else:
        child.choose_at(lambda: framed(child), fitting[0])
    return next_task(child, 0)


PLAYS = [vero_o_falso, uguale_diverso, uguali_1, uguali_2, colora, insiemi, trova_gli_intrusi,
         indovina_chi]  # in the order of the menu


def open_exercise(child, entry, shows):
    if child.mode == MOUSE:
        child.program.click(child.program.await_object(f"Image1({entry})"))
    else:
        open_by_light(child, entry)
    child.program.await_object(shows)


def open_by_light(child, entry):
    """A late key opens the exercise to which the light has gone on, or leaves the program."""
    program = child.program
    for _ in range(LATE):
        child.places.clear()
        child.bring(lambda: lit_entry(child), entry)
        child.choose()
        try:
            opened = wait_for("an exercise", lambda: exercises_shown(program) or program.gone(), 3)
        except Failure:
            continue
        if opened == [entry]:
            return
        if child.mode != SWITCH:
            raise Failure(f"exercise {entry} was chosen and {opened} came")
        child.late += 1
        if program.gone():
            program.start()
            begin(program)
        else:
            leave(program)
    raise Failure(f"exercise {entry} never came")


def lit_entry(child):
    """Where nothing is lit the menu was still moving when its buttons were asked for their places."""
    entry = child.lit_button(range(9))
    if entry is None:
        child.places.clear()
    return entry


def exercises_shown(program):
    """Numbers from 0 in the order of the menu; none in the menu itself."""
    return [entry for entry, form in enumerate(FORMS) if program.find(form)]


def begin(program):
    program.await_object("Command1")
    program.key_until("Return", "the menu", lambda: program.find("Image1(0)"))


def play_all(desktop, executable, drive, mode, first=1, last=len(EXERCISES)):
    fresh_drive(drive)
    write_profile(drive, mode)
    child = AnyChild(Program(desktop, executable), mode)
    program = child.program
    begin(program)
    for entry in range(first - 1, last):
        play, (levels, shows) = PLAYS[entry], EXERCISES[entry]
        begun = time.monotonic()
        child.late = 0
        open_exercise(child, entry, shows)
        for level in range(1, levels + 1):
            child.fresh_level(level)
            play(child, level)
        print(f"mode {mode}: {play.__name__}, {levels} levels, {child.late} late keys, "
              f"{time.monotonic() - begun:.0f} s", flush=True)
        leave(program)
    program.process.terminate()
    program.process.wait()


if __name__ == "__main__":
    try:
        with Desktop() as shared:
            play_all(shared, *sys.argv[1:3], *map(int, sys.argv[3:]))
    except Failure as failure:
        sys.exit(f"FAILED: {failure}")
