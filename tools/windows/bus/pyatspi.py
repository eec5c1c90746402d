"""What the scripts that work the program from outside ask of the accessibility bus, asked of the
program for Windows, whose windows no bus sees. As much of pyatspi as they use, by its names."""
import collections
import json
import os
import socket

STATE_SHOWING, STATE_ENABLED, STATE_FOCUSED, STATE_ACTIVE, STATE_CHECKED, STATE_SELECTED = (
    "showing", "enabled", "focused", "active", "checked", "selected")
DESKTOP_COORDS = 0

# The toolkit's numbers of what windows are made of, and what the bus calls them.
ROLES = {
    0x2: "menu bar", 0x3: "scroll bar", 0x8: "alert", 0x9: "frame", 0xA: "filler",
    0xB: "popup menu", 0xC: "menu item", 0xE: "application", 0x10: "panel", 0x12: "dialog",
    0x14: "panel", 0x15: "separator", 0x17: "status bar", 0x18: "table", 0x19: "table column header",
    0x1D: "table cell", 0x21: "list", 0x22: "list item", 0x23: "tree", 0x24: "table cell",
    0x25: "page tab", 0x28: "image", 0x29: "label", 0x2A: "text", 0x2B: "push button",
    0x2C: "check box", 0x2D: "radio button", 0x2E: "combo box", 0x33: "slider",
    0x34: "spin button", 0x3C: "page tab list",
}

Box = collections.namedtuple("Box", "x y width height")


class Gone(Exception):
    """What is asked about stands no more."""


class Line:
    """To one running program; it may end at any moment."""

    def __init__(self, port):
        self.socket = socket.create_connection(("127.0.0.1", port), 10)
        self.answers = self.socket.makefile("r", encoding="utf-8")

    def ask(self, number):
        self.socket.sendall(b"item %d\n" % number)
        answer = self.answers.readline()
        told = json.loads(answer) if answer else None
        if told is None:
            raise Gone(number)
        return told


class Item:
    def __init__(self, line, number, pid):
        self.line, self.number, self.pid = line, number, pid

    def _told(self):
        return self.line.ask(self.number)

    name = property(lambda self: self._told()["name"])
    description = property(lambda self: self._told()["description"])
    childCount = property(lambda self: len(self._told()["children"]))

    @property
    def parent(self):
        number = self._told().get("parent")
        return None if number is None else Item(self.line, number, self.pid)

    def getChildAtIndex(self, index):
        """Nothing for one that is told and does not stand, as some cells of a list."""
        children = self._told()["children"]
        if index >= len(children):
            return None
        child = Item(self.line, children[index], self.pid)
        try:
            child._told()
        except Gone:
            return None
        return child

    def getRoleName(self):
        return ROLES.get(self._told()["role"], "unknown")

    def getState(self):
        return _States(self._told()["states"])

    def get_process_id(self):
        return self.pid

    def queryText(self):
        told = self._told()
        if "text" not in told:
            raise NotImplementedError
        return _Text(told["text"])

    def queryComponent(self):
        return self

    def getExtents(self, _):
        return Box(*self._told()["box"])


class _States(list):
    def contains(self, state):
        return state in self


class _Text:
    def __init__(self, text):
        self.text = text
        self.characterCount = len(text)

    def getText(self, begin, end):
        return self.text[begin:end]


class _Desktop:
    """All programs that run: each has left a file named after its process, with its door in it."""

    def __init__(self):
        self.lines = {}

    def clear_cache(self):
        pass

    def _programs(self):
        folder = os.environ["XDG_RUNTIME_DIR"]
        programs = []
        for name in sorted(os.listdir(folder)):
            if not name.startswith("told-") or name.endswith(".part"):
                continue
            pid = int(name.split("-")[1])
            if pid not in self.lines:
                with open(os.path.join(folder, name), encoding="ascii") as file:
                    self.lines[pid] = Line(int(file.read()))
            programs.append(Item(self.lines[pid], 0, pid))
        return programs

    @property
    def childCount(self):
        return len(self._programs())

    def getChildAtIndex(self, index):
        return self._programs()[index]


class Registry:
    _desktop = _Desktop()

    @staticmethod
    def getDesktop(_):
        return Registry._desktop
