"""One right answer in each exercise, by mouse."""
from child import INSIDE, PARTS, differing, where_it_is
from desktop import Failure, wait_for

TRIES = 30  # where a child can but guess


def true_or_false(child, reader, attempt):
    holds = reader.holds(child.program.text("Label1"), child.wait_shown())
    if holds is None:
        holds = attempt % 2 == 0
    child.click(f"Command1({0 if holds else 1})")


def same_or_different(child, reader, _):
    alike = reader.alike(child.program.text("Label1"), child.wait_shown(),
                         child.wait_shown("ShockwaveFlash2"))
    child.click(f"Command1({0 if alike else 1})")


def repair_by_its_picture(child, *_):
    child.click(f"Image1({differing(child)[0]})")


def repair(child, *_):
    part = differing(child)[0]
    child.program.click_at(*child.spot(where_it_is(child, PARTS[part]), INSIDE[part]))


def lines_of(child):
    return [line for line in child.text("Text1").split("\n") if line]


def paint(child, reader, _):
    for sentence in lines_of(child):
        part = reader.part(sentence)
        for _ in reader.palette:
            before = child.wait_shown()
            child.program.click_at(*child.spot("ShockwaveFlash1", INSIDE[part]))
            painted = wait_for("another colour", lambda: (
                shown := child.wait_shown()) != before and shown)
            if reader.holds(sentence, painted):
                break
    child.click("Command1(0)")


def fitting(child, reader):
    """{number of a figure: whether all lines hold of it}"""
    lines = lines_of(child)
    figures = {index: child.shown(f"ShockwaveFlash1({index})") for index in range(12)}
    return {index: all(reader.holds(line, figure) for line in lines)
            for index, figure in figures.items() if figure is not None}


def choose_a_figure(child, reader, wanted, attempt):
    fits = fitting(child, reader)
    # Where all are alike a child can but guess.
    found = [index for index in fits if fits[index] == wanted] or list(fits)
    child.click(f"ShockwaveFlash1({found[attempt % len(found)]})")


def remove(child, reader, attempt):
    choose_a_figure(child, reader, False, attempt)


def find(child, reader, attempt):
    choose_a_figure(child, reader, True, attempt)


ANSWERS = [true_or_false, same_or_different, repair_by_its_picture, repair, paint, true_or_false,
           remove, find]


def answer_one(child, reader, entry, level):
    """Where a child can but guess, a wrong answer begins the level anew."""
    for attempt in range(TRIES):
        if attempt or level > 1:
            child.fresh_level(level)
        ANSWERS[entry](child, reader, attempt)
        if child.answered():
            return
    raise Failure(f"no right answer came in exercise {entry + 1}, level {level}")
