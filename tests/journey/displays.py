"""Displays that are not the one screen on a desk: two side by side, one turned upright, one on which
all is drawn twice as large. The program fills one screen and no more, its dialogs come up there, all
of a window is to be seen, and a task is played by the mouse.

    alone displays.py PROGRAM [FOLDER-FOR-PICTURES]
"""
import os
import socket
import struct
import subprocess
import sys
import time

from desktop import Desktop, Failure, Program, wait_for
from printing_system import PrintingSystem
from steps import choose, counts, fresh_drive, press, press_ok


class TwoScreens(Desktop):
    """A server of X whose viewer asks it for a second screen to the right of the first."""

    def __init__(self, first, second):
        super().__init__(f"{first[0]}x{first[1]}")
        self.screens = [(0, 0, *first), (first[0], 0, *second)]
        self.viewer = None

    def open_display(self):
        door = os.path.join(os.environ["XDG_RUNTIME_DIR"], "viewer")
        reader, writer = os.pipe()
        self.start(["Xtigervnc", "-displayfd", str(writer), "-geometry", self.size, "-depth", "24",
                    "-SecurityTypes", "None", "-rfbunixpath", door, "-nolisten", "tcp"],
                   pass_fds=[writer], stderr=subprocess.DEVNULL)
        os.close(writer)
        with os.fdopen(reader) as pipe:
            os.environ["DISPLAY"] = ":" + pipe.readline().strip()
        wait_for("the door for viewers", lambda: os.path.exists(door))
        self.ask(door)
        wait_for("two screens", lambda: self.connected() == len(self.screens))

    @staticmethod
    def connected():
        told = subprocess.run(["xrandr"], capture_output=True, text=True).stdout
        return told.count(" connected")

    def ask(self, door):
        """As the protocol of remote frame buffers 3.8 has it, without a password."""
        self.viewer = socket.socket(socket.AF_UNIX)
        self.viewer.connect(door)
        self.hear(12)
        self.viewer.sendall(b"RFB 003.008\n")
        self.hear(self.hear(1)[0])  # the kinds of passwords
        self.viewer.sendall(b"\1")
        self.hear(4)
        self.viewer.sendall(b"\1")  # others may look on
        self.hear(struct.unpack(">20xI", self.hear(24))[0])  # the name
        extended_size = -308
        self.viewer.sendall(struct.pack(">BxHi", 2, 1, extended_size))
        self.viewer.sendall(struct.pack(">BBHHHH", 3, 0, 0, 0, 1, 1))
        self.hear(4)  # the server knows now what this viewer can do
        width = max(x + w for x, _, w, _ in self.screens)
        height = max(y + h for _, y, _, h in self.screens)
        wish = struct.pack(">BxHHBx", 251, width, height, len(self.screens))
        for number, place in enumerate(self.screens, 1):
            wish += struct.pack(">IHHHHI", number, *place, 0)
        self.viewer.sendall(wish)

    def hear(self, count):
        heard = b""
        while len(heard) < count:
            more = self.viewer.recv(count - len(heard))
            if not more:
                raise Failure("the server hung up on its viewer")
            heard += more
        return heard


class Tour:
    """`room`: what the program has of the screen; `larger`: the pixels of one of its own."""

    def __init__(self, desktop, executable, name, room, larger=1, pictures=None):
        self.desktop, self.name, self.room, self.pictures = desktop, name, room, pictures
        self.program = Program(desktop, executable)
        at = self.program.click_at
        self.program.click_at = lambda x, y: at(round(x * larger), round(y * larger))

    def see(self, what):
        """Nothing of the window lies beyond the room."""
        try:
            wait_for("a whole window", lambda: not self.program.beyond(*self.room), 5)
        except Failure:
            raise Failure(f"{self.name}, {what}: beyond {self.room} lie "
                          f"{self.program.beyond(*self.room)}") from None
        if self.pictures:
            time.sleep(0.5)
            self.desktop.picture(os.path.join(self.pictures, f"{self.name}-{what}.png"))

    def fills(self, form):
        def place():
            box = self.program.box(self.program.await_object(form))
            return (box.x, box.y, box.width, box.height) == (0, 0, *self.room)
        wait_for(f"{form} over the whole room", place)

    def go(self, with_print_dialog):
        program = self.program
        wait_for("the box of the first run", lambda: program.named("OK", "push button"))
        wait_for("the splash", lambda: program.find("Command1") or press_ok(program))
        self.see("splash")
        press(program, "Command1")
        program.await_object("Command1(8)")
        self.fills("FormMenu")
        self.see("menu")
        press(program, "Image1(0)")
        program.await_object("ShockwaveFlash1")
        self.fills("FormEs1")
        before = counts(program)
        press(program, "Command1(0)")
        wait_for("an answer", lambda: counts(program) != before)
        self.see("exercise")
        if with_print_dialog:
            program.key("ctrl+v")
            program.await_object("cmdStampa")
            self.see("print")
            press(program, "cmdChiudi")
            wait_for("the end of the dialog", lambda: program.find("cmdStampa") is None)
        choose(program, "Esci")
        press(program, "Command1(8)")
        if program.ended() != 0:
            raise Failure(f"{self.name}: the program did not end well")


def displays(executable, drive, pictures=None):
    kinds = {
        "two": (TwoScreens((1366, 768), (1024, 768)), (1366, 768), 1),
        "upright": (Desktop("768x1366"), (768, 1366), 1),
        "double": (Desktop("1366x768"), (683, 384), 2),
    }
    with PrintingSystem() as system:
        system.add_printer("Stampante")
        os.environ["CUPS_SERVER"] = system.environment["CUPS_SERVER"]
        for name, (desktop, room, larger) in kinds.items():
            fresh_drive(drive)
            os.environ["QT_SCALE_FACTOR"] = str(larger)
            with desktop:
                # The print dialog keeps its size, which is more than half a small screen has.
                Tour(desktop, executable, name, room, larger, pictures).go(larger == 1)


if __name__ == "__main__":
    try:
        displays(*sys.argv[1:])
    except Failure as failure:
        sys.exit(f"FAILED: {failure}")
