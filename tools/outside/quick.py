"""The running program read and worked fast: by messages of the accessibility bus that carry one
question each, by single pixels, and by events that the display makes itself. For whoever plays
thousands of tasks; everybody else finds `desktop.Program` more forgiving."""
import collections
import os
import time

from gi.repository import Gio, GLib
from Xlib import X, XK, display
from Xlib.ext import res, xtest

from desktop import Failure

TICKED, ENABLED, FOCUSED, SHOWING = 4, 8, 12, 25  # states, as the accessibility bus numbers them
MENU_BAR, PAGE_TAB, LIST_ITEM, MENU_ITEM, TEXT = 34, 37, 32, 35, 61  # roles, as it numbers them
ACCESSIBLE = "org.a11y.atspi.Accessible"


def await_that(what, look, seconds=15.0):
    """As wait_for, but looks a thousand times a second at first."""
    begun = time.monotonic()
    while True:
        try:
            found = look()
        except GLib.Error:  # of a window that is just going
            found = None
        if found:
            return found
        waited = time.monotonic() - begun
        if waited > seconds:
            raise Failure(f"{what} never came")
        time.sleep(0.001 if waited < 0.2 else 0.01)


class Hands:
    """Keyboard, mouse and eyes on the display."""

    def __init__(self):
        self.display = display.Display()
        self.root = self.display.screen().root
        self.clients = self.display.intern_atom("_NET_CLIENT_LIST")

    def click(self, x, y):
        self.move(x, y)
        xtest.fake_input(self.display, X.ButtonPress, 1)
        xtest.fake_input(self.display, X.ButtonRelease, 1)
        self.display.sync()

    def move(self, x, y):
        xtest.fake_input(self.display, X.MotionNotify, x=x, y=y)
        self.display.sync()

    def key(self, *names):
        """The last one, with those before it held."""
        codes = [self.display.keysym_to_keycode(XK.string_to_keysym(name)) for name in names]
        for code in codes:
            xtest.fake_input(self.display, X.KeyPress, code)
        for code in reversed(codes):
            xtest.fake_input(self.display, X.KeyRelease, code)
        self.display.sync()

    def colour(self, x, y):
        """RRGGBB of one point of the screen."""
        data = self.root.get_image(x, y, 1, 1, X.ZPixmap, 0xFFFFFFFF).data
        return "%02X%02X%02X" % (data[2], data[1], data[0])

    def windows(self):
        """How many windows the window manager looks after."""
        held = self.root.get_full_property(self.clients, X.AnyPropertyType)
        return len(held.value) if held else 0

    def resources(self, pid):
        """What the program keeps in the display, by kind: {"WINDOW": 12, ...}."""
        kept = collections.Counter()
        for client in self.display.res_query_clients().clients:
            owner = self.display.res_query_client_ids(
                [{"client": client.resource_base, "mask": res.LocalClientPIDMask}]).ids
            if not owner or list(owner[0].value) != [pid]:
                continue
            for kind in self.display.res_query_client_resources(client.resource_base).types:
                kept[self.display.get_atom_name(kind.resource_type)] += kind.count
        return dict(kept)


class Controls:
    """The controls of the program, by their design names. Where a control is is asked once for each
    window; what it says is asked each time."""

    def __init__(self, pid):
        session = Gio.bus_get_sync(Gio.BusType.SESSION)
        address = session.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress",
                                    None, None, 0, -1, None).unpack()[0]
        self.bus = Gio.DBusConnection.new_for_address_sync(
            address, Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT |
            Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
        self.name = await_that("the program on the bus", lambda: self._name_of(pid))
        self.paths = {}
        self.boxes = {}

    def _ask(self, name, path, interface, method, arguments=None):
        return self.bus.call_sync(name, path, interface, method, arguments, None,
                                  Gio.DBusCallFlags.NONE, 60000, None).unpack()

    def _name_of(self, pid):
        root = "/org/a11y/atspi/accessible/root"
        for name, _ in self._ask("org.a11y.atspi.Registry", root, ACCESSIBLE, "GetChildren")[0]:
            try:
                owner = self._ask("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                  "org.freedesktop.DBus", "GetConnectionUnixProcessID",
                                  GLib.Variant("(s)", (name,)))[0]
            except GLib.Error:
                continue
            if owner == pid:
                return name
        return None

    def ask(self, path, method, interface=ACCESSIBLE, arguments=None):
        return self._ask(self.name, path, interface, method, arguments)

    def told(self, path, what):
        return self.ask(path, "Get", "org.freedesktop.DBus.Properties",
                        GLib.Variant("(ss)", (ACCESSIBLE, what)))[0]

    def has(self, path, state):
        words = self.ask(path, "GetState")[0]
        return bool(words[state // 32] >> (state % 32) & 1)

    def children(self, path):
        return [child for _, child in self.ask(path, "GetChildren")[0]
                if not child.endswith("/null")]

    def role(self, path):
        return self.ask(path, "GetRole")[0]

    # --- By design name ---

    def forget(self):
        self.paths.clear()
        self.boxes.clear()

    def _walk(self, path):
        name = self.told(path, "Description").split(":")[0]
        if name:
            self.paths.setdefault(name, path)
        if self.role(path) != MENU_BAR and self.has(path, SHOWING):
            for child in self.children(path):
                self._walk(child)

    def look_round(self):
        """Notes where everything in the windows is."""
        self.forget()
        try:
            for window in self.windows():
                self._walk(window)
        except GLib.Error:  # a window that is just going
            self.forget()

    def windows(self):
        return [window for window in self.children("/org/a11y/atspi/accessible/root")
                if self.has(window, SHOWING)]

    def shows(self, name):
        try:
            return name in self.paths and self.has(self.paths[name], SHOWING)
        except GLib.Error:
            return False

    def comes(self, *names):
        """Looks round until all of them show."""
        def all_there():
            self.look_round()
            return all(self.shows(name) for name in names)
        await_that(" and ".join(names), all_there)

    def name_of(self, name):
        return self.told(self.paths[name], "Name")

    def described(self, name):
        return self.told(self.paths[name], "Description")

    def text(self, name):
        return self.text_of(self.paths[name])

    def text_of(self, path):
        return self.ask(path, "GetText", "org.a11y.atspi.Text", GLib.Variant("(ii)", (0, -1)))[0]

    def enabled(self, name):
        return self.has(self.paths[name], ENABLED)

    def box_of(self, path):
        return self.ask(path, "GetExtents", "org.a11y.atspi.Component",
                        GLib.Variant("(u)", (0,)))[0]

    def box(self, name):
        if name not in self.boxes:
            self.boxes[name] = self.box_of(self.paths[name])
        return self.boxes[name]

    # --- Without a design name ---

    def search(self, matches, path=None):
        """The first item that shows and matches."""
        for item in self.children(path) if path else self.windows():
            try:
                if not self.has(item, SHOWING):
                    continue
                if matches(item):
                    return item
                found = self.search(matches, item)
                if found:
                    return found
            except GLib.Error:
                continue
        return None

    def named(self, name, role):
        return self.search(lambda item: self.role(item) == role and
                           self.told(item, "Name").casefold() == name.casefold())

    def menu_items(self, window=0):
        """The items of the menu bar that show, from left to right."""
        bar = self.search(lambda item: self.role(item) == MENU_BAR, self.windows()[window])
        return [item for item in self.children(bar) if self.has(item, SHOWING)] if bar else []


def memory(pid):
    """Kilobytes of its own that are in memory. Pages of files come beside them: the system reads
    those in when they are touched for the first time, shares them and takes them away at will."""
    with open(f"/proc/{pid}/status", encoding="ascii") as file:
        sizes = dict(line.split(":") for line in file)
    return sum(int(sizes[kind].split()[0]) for kind in ("RssAnon", "RssShmem"))


def descriptors(pid):
    return len(os.listdir(f"/proc/{pid}/fd"))
