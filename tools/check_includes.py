"""Holds the order of the layers and keeps the toolkit inside platform/: scans the includes of every
source below a folder, also those that the linker would let through. One line for each fault, and
exit status 1.

    check_includes.py src
"""
import pathlib
import re
import sys

# From the bottom to the top; a layer includes only itself and what stands before it. Those of one
# row do not include each other.
LAYERS = [
    ["platform"], ["language"], ["core"], ["support"], ["printing"], ["frame"], ["exercises"],
    ["menu", "configuration", "results", "support/windows"],
    ["program.h"], ["program.cpp", "main.cpp"],
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
            if own[0] != "platform" and included not in VALUE_TYPES:
                yield f"{path}: includes <{included}> of the toolkit"
            continue
        other = layer_of(included)
        if other is None or other[0] == own[0]:
            continue
        if other[1] >= own[1]:
            yield f"{path}: includes {included} of a layer that is not below"


def main():
    root = pathlib.Path(sys.argv[1])
    faults = []
    for file in sorted([*root.rglob("*.cpp"), *root.rglob("*.h")]):
        path = file.relative_to(root).as_posix()
        faults += faults_of(path, file.read_text(encoding="utf-8"))
    print("\n".join(faults), end="\n" if faults else "")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
