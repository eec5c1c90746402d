"""Holds the order of the layers and of the platform's rooms, keeps the toolkit inside platform/, and
finds files that know each other in a circle: scans the includes of every source below a folder, also
those that the linker would let through. One line for each fault, and exit status 1.

    check_includes.py src
"""
import pathlib
import re
import sys

# From the bottom to the top; a layer includes only itself and what stands before it. Those of one
# row do not include each other.
LAYERS = [
    ["platform/base"], ["platform/host"], ["platform/files", "platform/sound"], ["platform/movies"],
    ["platform/controls"], ["platform/printing"], ["platform/machine"],
    ["language"], ["core"], ["support"], ["printing"], ["frame"], ["exercises"],
    ["menu", "configuration", "results", "support/windows"],
    ["program.h"], ["program.cpp", "main.cpp"],
]
# A source and its header are one. These are one thing in several files: a form, its widget and the
# base of its controls; a class that is too large for one file.
ONE_THING = [
    {"platform/controls/form", "platform/controls/form_window", "platform/controls/control"},
]
VALUE_TYPES = {"QString", "QStringList", "QList", "QByteArray"}
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)


def layer_of(path):
    """The layer's name and its height, nothing for a path that is no layer of ours."""
    for height, row in enumerate(LAYERS):
        for name in row:
            if path == name or path.startswith(name + "/"):
                # support/windows is a layer of its own above support.
                if name == "support" and path.startswith("support/windows/"):
                    continue
                return name, height
    return None


def is_toolkit(path):
    return bool(re.match(r"Q[A-Za-z0-9_]*$|Qt[A-Za-z0-9]*/|q[a-z0-9]+\.h$|Qt", path))


def faults_of(path, text):
    own = layer_of(path)
    if own is None:
        yield f"{path}: stands in no layer"
        return
    for _, included in INCLUDE.findall(text):
        if is_toolkit(included):
            if not own[0].startswith("platform/") and included not in VALUE_TYPES:
                yield f"{path}: includes <{included}> of the toolkit"
            continue
        other = layer_of(included)
        if other is None or other[0] == own[0]:
            continue
        if other[1] >= own[1]:
            yield f"{path}: includes {included} of a layer that is not below"


def circles_of(texts):
    """Each set of files that know each other in a circle, once, as one line."""
    def unit(path):
        stem = path.rsplit(".", 1)[0]
        return next((min(one) for one in ONE_THING if stem in one), stem)

    knows = {}
    for path, text in texts.items():
        knows.setdefault(unit(path), set()).update(
            unit(included) for _, included in INCLUDE.findall(text) if included in texts)

    def reached(start):
        found, new = set(), [start]
        while new:
            new = [other for name in new for other in knows[name] if other not in found]
            found.update(new)
        return found

    reach = {name: reached(name) - {name} for name in knows}
    circles = {frozenset({name} | {other for other in reach[name] if name in reach[other]})
               for name in knows}
    for circle in sorted(sorted(circle) for circle in circles if len(circle) > 1):
        yield "know each other in a circle: " + ", ".join(circle)


def main():
    root = pathlib.Path(sys.argv[1])
    texts = {file.relative_to(root).as_posix(): file.read_text(encoding="utf-8")
             for file in sorted([*root.rglob("*.cpp"), *root.rglob("*.h")])}
    faults = [fault for path, text in texts.items() for fault in faults_of(path, text)]
    faults += circles_of(texts)
    print("\n".join(faults), end="\n" if faults else "")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
