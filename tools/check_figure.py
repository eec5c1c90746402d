#!/usr/bin/env python3
"""Tells an artist what a drawing of the house figure lacks before the program can paint it.

Usage: check_figure.py DRAWING.svg...
One line for each fault; exit status 1 when there is one, 0 when every drawing will do.
"""

import re
import sys
import xml.etree.ElementTree as ET

PARTS = ["comignolo", "tetto", "pareti", "finestre", "porta", "gradino", "fumo", "nuvole"]
SHAPES = {"path", "rect", "circle", "ellipse", "line", "polyline", "polygon"}
CLOSED = {"path", "rect", "circle", "ellipse", "polygon"}
# The program ignores the first seven, so the picture would differ from the artist's.
FORBIDDEN = {
    "clipPath": "is ignored by the program",
    "mask": "is ignored by the program",
    "filter": "is ignored by the program",
    "pattern": "is ignored by the program",
    "foreignObject": "is ignored by the program",
    "use": "is a clone, which the program leaves out; unlink it",
    "image": "is a picture, which the program leaves out; trace it",
    "style": "is a style sheet; each object needs a style of its own, which the program replaces",
    "text": "is text; turn it into a path, or leave it out",
    "script": "is a script",
    "animate": "moves; the figure stands still",
    "animateTransform": "moves; the figure stands still",
    "set": "moves; the figure stands still",
}
NOT_DRAWN = {"defs", "metadata", "title", "desc", "namedview"}


def local(name):
    """Name of an element or attribute without its namespace; comments have none."""
    return name.rsplit("}", 1)[-1] if isinstance(name, str) else ""


def style_of(element):
    """The inline style as a dictionary; attributes are left out on purpose."""
    style = {}
    for declaration in element.get("style", "").split(";"):
        key, colon, value = declaration.partition(":")
        if colon:
            style[key.strip()] = value.strip()
    return style


def described(element):
    name = f"<{local(element.tag)}>"
    return f'{name} "{element.get("id")}"' if element.get("id") else name


def number(text, default):
    try:
        return float(re.sub(r"(px|%)$", "", text.strip())) if text else default
    except ValueError:
        return default


def check_view_box(root):
    box = re.split(r"[\s,]+", root.get("viewBox", "").strip())
    if box == [""]:
        yield "the drawing has no viewBox"
        return
    values = [number(text, None) for text in box]
    if len(values) != 4 or None in values or values[2] <= 0 or values[3] <= 0:
        yield "the viewBox is not four numbers with a width and a height above 0"


def check_elements(root):
    seen = set()
    for element in root.iter():
        tag = local(element.tag)
        if tag in FORBIDDEN:
            yield f"{described(element)} {FORBIDDEN[tag]}"
        if element.get("transform"):
            yield f"{described(element)} has a transform; flatten it, so that parts stay in place"
        name = element.get("id")
        if name and name in seen:
            yield f'the id "{name}" stands there twice'
        seen.add(name)
        if any(re.search(r"url\(\s*['\"]?(?!\s*['\"]?#)", v) for v in element.attrib.values()):
            yield f"{described(element)} needs another file; the figure must stand alone"


def check_background(root):
    """What belongs to no part can be neither painted nor hidden."""
    for element in root:
        tag = local(element.tag)
        if tag in NOT_DRAWN or element.get("id") in PARTS:
            continue
        if tag in SHAPES:
            yield f"{described(element)} belongs to no part; the program paints the background"
        elif tag in ("g", "a", "switch"):
            yield from check_background(element)


def check_shown(element):
    for holder in (style_of(element), element.attrib):
        if holder.get("display") == "none" or holder.get("visibility") == "hidden":
            yield "is hidden; every object starts visible"
        if number(holder.get("opacity"), 1) < 1:
            yield "is half transparent"


def check_inside(element):
    style = style_of(element)
    fill = style.get("fill")
    if fill is None:
        yield 'has no fill in its style (style="fill:#rrggbb")'
    elif not re.fullmatch(r"#[0-9a-fA-F]{6}", fill):
        yield f'has the fill "{fill}" in the place of a colour like #ffcc00, so it takes no paint'
    if number(style.get("fill-opacity", element.get("fill-opacity")), 1) < 1:
        yield "is half transparent"
    inner = [child for child in element.iter() if child is not element]
    if local(element.tag) == "g":
        if not any(local(child.tag) in CLOSED for child in inner):
            yield "is an empty group"
        for child in inner:
            if child.get("fill") or "fill" in style_of(child):
                yield f"holds {described(child)} with a fill of its own, which takes no paint"
    elif local(element.tag) not in CLOSED:
        yield f"is a <{local(element.tag)}>, which cannot be painted; use a path"
    yield from check_shown(element)


def check_outline(element):
    style = style_of(element)
    if style.get("stroke", "").lower() not in ("#000000", "#000", "black"):
        yield "has no black stroke in its style (stroke:#000000)"
    if style.get("fill") != "none":
        yield "is filled and hides the inside (fill:none)"
    if number(style.get("stroke-width"), 1) <= 0:
        yield "has a stroke without width"
    if number(style.get("stroke-opacity"), 1) < 1:
        yield "is half transparent"
    yield from check_shown(element)


def check_part(root, part):
    group = next((e for e in root.iter() if e.get("id") == part), None)
    if group is None:
        yield f"the part is missing: no group has the id {part}"
        return
    if local(group.tag) != "g":
        yield f"the part is a <{local(group.tag)}>, not a group"
    for fault in check_shown(group):
        yield f"the part {fault}"
    order = [element.get("id") for element in group.iter()]
    for ending, check in (("interno", check_inside), ("contorno", check_outline)):
        name = f"{part}.{ending}"
        if name not in order:
            yield f"{name} is missing from the group"
            continue
        for fault in check(list(group.iter())[order.index(name)]):
            yield f"{name} {fault}"
    inside, outline, shade = (f"{part}.{e}" for e in ("interno", "contorno", "ombra"))
    if inside in order and outline in order and order.index(inside) > order.index(outline):
        yield f"{inside} lies over its outline; lower it"
    if inside in order and shade in order and order.index(inside) > order.index(shade):
        yield f"{shade} lies under the inside and cannot be seen; raise it"


def faults_of(path):
    try:
        root = ET.parse(path).getroot()
    except (OSError, ET.ParseError) as error:
        yield f"cannot be read: {error}"
        return
    if local(root.tag) != "svg":
        yield "is no SVG drawing"
        return
    yield from check_view_box(root)
    yield from check_elements(root)
    yield from check_background(root)
    for part in PARTS:
        for fault in check_part(root, part):
            yield f"{part}: {fault}"


def main(paths):
    if not paths:
        print(__doc__.strip())
        return 2
    found = False
    for path in paths:
        for fault in faults_of(path):
            print(f"{path}: {fault}")
            found = True
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
