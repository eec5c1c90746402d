"""Makes the program's cursive font: a copy of an openly licensed web font as a TrueType file with
the family name that the program asks for, and wider blanks. Its notice and licence stay in it.

    make_font.py FONT.woff indis1.ttf
"""
import sys

from fontTools.ttLib import TTFont

FAMILY = "Indis1"
FAMILY_NAMES = (1, 4, 6, 16)  # family, full name, PostScript name, typographic family
# Of the size of a letter. The stroke that ends a word reaches far into the blank, and who learns to
# read has to see where the next one begins.
BLANK = 0.42
BLANKS = (0x20, 0xA0)


def main() -> int:
    source, target = sys.argv[1:]
    # The time of change stays the source's, so that the same font gives the same file.
    font = TTFont(source, recalcTimestamp=False)
    font.flavor = None
    for record in font["name"].names:
        if record.nameID in FAMILY_NAMES:
            record.string = FAMILY
    for name in {font.getBestCmap()[letter] for letter in BLANKS}:
        font["hmtx"][name] = (round(BLANK * font["head"].unitsPerEm), 0)
    font.save(target)
    return 0


if __name__ == "__main__":
    sys.exit(main())
