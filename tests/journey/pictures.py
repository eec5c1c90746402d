"""The pictures of all windows: each is there and shows something of its own, and in the exercises a
right answer is counted.

    alone pictures.py PROGRAM
"""
import pathlib
import subprocess
import sys
import tempfile

from PIL import Image, ImageChops

from desktop import Failure

TOOL = pathlib.Path(__file__).resolve().parents[2] / "tools" / "pictures" / "take.py"
SIZE = (1024, 768)
SHEET = (662, 936)  # A4 at 80 dots an inch, upright
PLAYED = (1, 5)
NAMES = ["first-start", "splash", "menu", "menu-players", "menu-languages", "about",
         "settings-players", "settings-colours", "settings-teaching", "settings-letters",
         "settings-sounds", "settings-input", "exercise-levels", "exercise-print-menu", "reward",
         "log", "settings-scanning", "menu-scanning", "exercise-scanning", "print-dialog",
         "printed-window", "figures-to-colour", "printed-figure", "all",
         *(f"exercise-{number}-{level}" for number in PLAYED for level in ("first", "last"))]
SMALLER = {"first-start"}
LARGER = {"all"}
PANEL = (0, 740, 300, 768)  # of the right answers
CLEARLY = 80  # steps of grey


def read(path):
    with Image.open(path) as picture:
        if picture.mode != "P":
            raise Failure(f"{path.name} has no palette")
        return picture.convert("RGB")


def expect_the_pictures(folder):
    found = sorted(path.name for path in folder.iterdir())
    if found != sorted(f"{name}.png" for name in NAMES):
        raise Failure(f"the pictures are {found}")
    pictures = {name: read(folder / f"{name}.png") for name in NAMES}
    seen = {}
    for name, picture in pictures.items():
        if len(picture.getcolors(picture.width * picture.height)) == 1:
            raise Failure(f"{name} has one colour")
        other = seen.setdefault(picture.tobytes(), name)
        if other != name:
            raise Failure(f"{name} shows what {other} shows")
        wanted = SHEET if name.startswith("printed") else SIZE
        if name not in SMALLER | LARGER and picture.size != wanted:
            raise Failure(f"{name} has the size {picture.size}")
    return pictures


def expect_a_right_answer(pictures):
    """The panel of each answered task shows the same, and not what it shows before an answer."""
    def alike(one, other):
        panels = [pictures[name].crop(PANEL).convert("L") for name in (one, other)]
        # Each picture has its own palette.
        return ImageChops.difference(*panels).getextrema()[1] < CLEARLY
    if not (alike("exercise-1-first", "exercise-1-last") and
            alike("exercise-1-first", "exercise-5-first")):
        raise Failure("not the same number of right answers stands in all pictures")
    # At the last level six parts are painted before they are judged.
    for name in ("exercise-1-first", "exercise-5-last"):
        if alike(name, "print-dialog"):
            raise Failure(f"no right answer is counted in {name}")
    if alike("exercise-1-first", "exercise-5-last"):
        raise Failure("one part is counted where six were painted")


def pictures_of(executable, drive):
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name) / "pictures"
        subprocess.run([sys.executable, TOOL, executable, drive, folder, "x".join(map(str, SIZE)),
                        "english", "capitals", *map(str, PLAYED)], check=True)
        expect_a_right_answer(expect_the_pictures(folder))


if __name__ == "__main__":
    try:
        pictures_of(*sys.argv[1:])
    except Failure as failure:
        sys.exit(f"FAILED: {failure}")
