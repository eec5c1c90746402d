"""Lays what two visits showed side by side, and compares what they wrote, byte for byte.

    compare.py FOLDER OTHER PAGE.png

Exit status 1 when a file differs or one visit saw a window that the other did not see.
"""
import pathlib
import sys

from PIL import Image

WIDTH = 512  # of each picture on the page
GAP = 8


def names(folder, pictures):
    return sorted(str(path.relative_to(folder)) for path in folder.rglob("*")
                  if path.is_file() and (path.suffix == ".png") == pictures)


def differing(one, other):
    """Names of what was not written alike."""
    return sorted(name for name in {*names(one, False), *names(other, False)}
                  if not ((one / name).exists() and (other / name).exists())
                  or (one / name).read_bytes() != (other / name).read_bytes())


def lay_out(one, other, page):
    rows = [[Image.open(folder / name).convert("RGB") for folder in (one, other)]
            for name in names(one, True)]
    heights = [max(picture.height * WIDTH // picture.width for picture in row) for row in rows]
    sheet = Image.new("RGB", (2 * WIDTH + GAP, sum(heights) + GAP * len(rows)), "black")
    top = 0
    for row, height in zip(rows, heights):
        for column, picture in enumerate(row):
            sheet.paste(picture.resize((WIDTH, picture.height * WIDTH // picture.width)),
                        (column * (WIDTH + GAP), top))
        top += height + GAP
    sheet.save(page)


def main(one, other, page):
    one, other = pathlib.Path(one), pathlib.Path(other)
    faults = [f"written otherwise: {name}" for name in differing(one, other)]
    if names(one, True) != names(other, True):
        faults.append(f"seen: {names(one, True)} and {names(other, True)}")
    else:
        lay_out(one, other, page)
    print(f"{len(names(one, True))} windows, {len(names(one, False))} files, {len(faults)} faults")
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
