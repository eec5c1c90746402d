"""Puts pictures of one icon in several sizes into the one file that Windows reads.

    make_icon.py ICON.ico PICTURE.png...
"""
import struct
import sys

SIZE_AT = 16  # in a PNG: width and height, four bytes each, the first numbers of its first chunk
ENTRY = 16    # bytes


def make(pictures):
    entries, bodies = b"", b""
    begin = 6 + ENTRY * len(pictures)
    for picture in pictures:
        width, height = struct.unpack_from(">II", picture, SIZE_AT)
        # A byte each; 256 is written as 0.
        entries += struct.pack("<BBBBHHII", width % 256, height % 256, 0, 0, 1, 32, len(picture),
                               begin + len(bodies))
        bodies += picture
    return struct.pack("<HHH", 0, 1, len(pictures)) + entries + bodies


def main(icon, *names):
    pictures = []
    for name in names:
        with open(name, "rb") as file:
            pictures.append(file.read())
    with open(icon, "wb") as file:
        file.write(make(pictures))


if __name__ == "__main__":
    main(*sys.argv[1:])
