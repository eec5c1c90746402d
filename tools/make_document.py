#!/usr/bin/python3
"""Makes an A4 document of a page of HTML.

    make_document.py SOURCE.html TARGET.pdf

The same sources give the same bytes. Nothing is taken from a network, and a picture or a link that
is missing, or a word of the style that is not understood, makes no document. A drawing with painted
parts is asked for in colours, as the program shows it: morlene1.svg?tetto=ff0000&fumo=none."""
import hashlib
import logging
import os
import re
import sys
from urllib.parse import parse_qsl, unquote, urlsplit

# The fonts in a document bear the time at which they were cut; it is the same for everybody.
os.environ.setdefault("SOURCE_DATE_EPOCH", "1128211200")

import pydyf  # noqa: E402
from weasyprint import HTML, default_url_fetcher  # noqa: E402

# Complains of that time.
logging.getLogger("fontTools").setLevel(logging.ERROR)


class Complaints(logging.Handler):
    """What the layout would pass over."""

    def __init__(self):
        super().__init__(logging.WARNING)
        self.texts = []

    def emit(self, record):
        self.texts.append(record.getMessage())


def painted(drawing, part, colour):
    """The drawing with a part in the colour, or without it."""
    if colour == "none":
        found = re.subn(rf'<g id="{part}">', f'<g id="{part}" style="display:none">', drawing)
    else:
        found = re.subn(rf'(id="{part}\.interno" style="fill:)#\w+', rf"\1#{colour}", drawing)
    if found[1] != 1:
        raise ValueError(f"the drawing has no part {part}")
    return found[0]


def only_files(url, *arguments, **options):
    parts = urlsplit(url)
    if parts.scheme != "file":
        raise ValueError(f"not beside the source: {url}")
    if not parts.query:
        return default_url_fetcher(url, *arguments, **options)
    with open(unquote(parts.path), encoding="utf-8") as file:
        drawing = file.read()
    for part, colour in parse_qsl(parts.query):
        drawing = painted(drawing, part, colour)
    return {"string": drawing.encode(), "mime_type": "image/svg+xml"}


def lead_beside(pdf, folder):
    """A link to another document leads to the one that lies beside this one, wherever that is."""
    for item in pdf.objects:
        if not isinstance(item, pydyf.Dictionary) or "A" not in item:
            continue
        name = os.path.basename(unquote(urlsplit(item["A"]["URI"].string).path))
        source = os.path.join(folder, os.path.splitext(name)[0] + ".html")
        if not os.path.exists(source):
            raise ValueError(f"no such document: {name}")
        item["A"] = pydyf.Dictionary({"S": "/GoToR", "F": pydyf.String(name),
                                      "D": pydyf.Array([0, "/Fit"]), "NewWindow": "true"})


def make(source, target):
    complaints = Complaints()
    log = logging.getLogger("weasyprint")
    log.handlers = [complaints]
    # A document keeps its mark as long as its source stays the same.
    with open(source, "rb") as file:
        mark = hashlib.md5(file.read()).hexdigest().encode()
    folder = os.path.dirname(os.path.abspath(source))
    try:
        pdf = HTML(filename=source, url_fetcher=only_files).write_pdf(
            identifier=mark, optimize_size=("fonts", "images"),
            finisher=lambda _, pdf: lead_beside(pdf, folder))
    except ValueError as fault:
        complaints.texts.append(str(fault))
    if complaints.texts:
        return complaints.texts
    # A half-written document would count as made.
    with open(target + ".new", "wb") as file:
        file.write(pdf)
    os.replace(target + ".new", target)
    return []


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit("make_document.py SOURCE.html TARGET.pdf")
    sys.exit("\n".join(make(*sys.argv[1:])) or 0)
