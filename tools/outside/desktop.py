"""A desktop of its own for a test: display, window manager and accessibility bus on this machine
only, and the program on it, read and worked from outside as a person does."""
import os
import re
import shutil
import subprocess
import tempfile
import time

from PIL import ImageGrab

LOST = 1.5  # seconds after which a key that did nothing is pressed again
BESIDE = "PictureScansione"  # these only take the keyboard, and stand beside what shows


class Failure(Exception):
    """What a person at the machine would report."""


def wait_for(what, look, seconds=15):
    """The first true answer of `look`, asked again and again for so many seconds."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        found = look()
        if found:
            return found
        time.sleep(0.02)
    raise Failure(f"{what} never came")


def screen(box=None):
    """The screen, or a part of it, as a picture."""
    return ImageGrab.grab(bbox=box, xdisplay=os.environ["DISPLAY"]).convert("RGB")


class Desktop:
    """Started by `with`; everything it started is gone at the end."""

    def __init__(self, size="1366x768", with_manager=True):
        self.size = size
        self.with_manager = with_manager  # of windows
        self.manager = None
        self.processes = []

    def __enter__(self):
        os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        os.environ["QT_QPA_PLATFORM"] = "xcb"
        os.environ["LC_ALL"] = "C.UTF-8"
        if not self.with_manager:
            self.open_display()
            return self
        # A display that ends at this moment can take away the door of one that has just taken its
        # number: then once more, by another number.
        for left in reversed(range(3)):
            self.open_display()
            self.manager = self.start(["openbox", "--sm-disable"])
            # A window that is older than its manager gets neither the keyboard nor a first click.
            try:
                wait_for("the window manager", lambda: self.manager.poll() is not None or self.managed())
                if self.manager.poll() is None:
                    return self
                raise Failure("the window manager ended")
            except Failure:
                self.end()
                if not left:
                    raise

    def open_display(self):
        reader, writer = os.pipe()
        self.start(["Xvfb", "-displayfd", str(writer), "-screen", "0", self.size + "x24",
                    "-nolisten", "tcp"], pass_fds=[writer])
        os.close(writer)
        with os.fdopen(reader) as pipe:
            os.environ["DISPLAY"] = ":" + pipe.readline().strip()

    def managed(self):
        return subprocess.run(["xdotool", "get_desktop"], stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL, check=False).returncode == 0

    def __exit__(self, kind, *_):
        if kind is not None:
            seen = os.path.abspath(f"seen-at-the-failure-{os.getpid()}.png")
            self.picture(seen)
            print("the screen then:", seen, flush=True)
        self.end()

    def end(self):
        for process in reversed(self.processes):
            if process.poll() is None:
                process.terminate()
        for process in self.processes:
            try:
                process.wait(5)
            except subprocess.TimeoutExpired:
                process.kill()
        self.processes.clear()

    def start(self, command, **options):
        process = subprocess.Popen(command, stdin=subprocess.DEVNULL, **options)
        self.processes.append(process)
        return process

    def picture(self, path):
        screen().save(path)


class WaylandDesktop(Desktop):
    """The same without an X server: a compositor that shows its screen to nobody."""

    def __init__(self, size=(1366, 768), lends_to_x=False):
        super().__init__()
        self.width, self.height = size
        self.lends_to_x = lends_to_x  # to programs that know X alone

    def __enter__(self):
        os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        os.environ["QT_QPA_PLATFORM"] = "xcb" if self.lends_to_x else "wayland"
        os.environ["LC_ALL"] = "C.UTF-8"
        os.environ["WAYLAND_DISPLAY"] = "journey"
        os.environ.pop("DISPLAY", None)
        log = os.path.join(os.environ["XDG_RUNTIME_DIR"], "weston.log")
        self.start(["weston", "--backend=headless-backend.so", "--use-pixman", "--debug",
                    f"--width={self.width}", f"--height={self.height}",
                    "--socket=journey", "--idle-time=0", "--no-config", f"--log={log}",
                    *(["--xwayland"] if self.lends_to_x else [])],
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        socket = os.path.join(os.environ["XDG_RUNTIME_DIR"], "journey")
        wait_for("the compositor", lambda: os.path.exists(socket))
        if self.lends_to_x:
            def number():
                with open(log, encoding="utf-8", errors="replace") as lines:
                    return re.search(r"listening on display (:\d+)", lines.read())
            os.environ["DISPLAY"] = wait_for("a display for X", number).group(1)
        return self

    def picture(self, path):
        """The compositor's own tool names its picture itself."""
        folder = tempfile.mkdtemp()
        subprocess.run(["weston-screenshooter"], cwd=folder, check=False)
        for name in os.listdir(folder):
            shutil.move(os.path.join(folder, name), path)
        os.rmdir(folder)


class Program:
    """The running program, seen through the accessibility bus."""

    def __init__(self, desktop, path, arguments=(), **options):
        import pyatspi
        self.bus = pyatspi
        self._launch = lambda: desktop.start([path, *arguments], **options)
        self.start()

    def start(self):
        """Once more, after its end."""
        self.process = self._launch()

    def gone(self):
        return self.process.poll() is not None

    def application(self):
        desktop = self.bus.Registry.getDesktop(0)
        # What came since is not told while nobody waits for events.
        desktop.clear_cache()
        for index in range(desktop.childCount):
            try:
                child = desktop.getChildAtIndex(index)
                if child is not None and child.get_process_id() == self.process.pid:
                    return child
            except Exception:  # one that has ended and is not struck off yet
                continue
        return None

    def find(self, described):
        """The object whose description begins with the design name, nothing when there is none."""
        def matches(item):
            text = item.description or ""
            return text == described or text.startswith(described + ":")
        return self.any(matches)

    def any(self, matches):
        """The first object that shows and matches, nothing when there is none."""
        try:
            application = self.application()
            return application and self._search(application, matches)
        except Exception:  # a window that is just going gives errors of the bus
            return None

    def names(self, beginning):
        """The design names with that beginning of all that shows."""
        def collect(item):
            name = (item.description or "").split(":")[0]
            if name.startswith(beginning) and self._showing(item):
                yield name
            for index in range(item.childCount):
                child = item.getChildAtIndex(index)
                if child is not None:
                    yield from collect(child)
        try:
            application = self.application()
            return set(collect(application)) if application else set()
        except Exception:
            return set()

    def named(self, name, role):
        return self.any(lambda item: item.name == name and item.getRoleName() == role)

    def _search(self, item, matches):
        if matches(item) and self._showing(item):
            return item
        for index in range(item.childCount):
            child = item.getChildAtIndex(index)
            found = child is not None and self._search(child, matches)
            if found:
                return found
        return None

    def _showing(self, item):
        return item.getState().contains(self.bus.STATE_SHOWING)

    def enabled(self, item):
        return item.getState().contains(self.bus.STATE_ENABLED)

    def await_object(self, described):
        return wait_for(described, lambda: self.find(described))

    def text(self, described):
        return self.await_object(described).name

    def text_of(self, item):
        """What a box of text holds, or the name of anything else."""
        try:
            text = item.queryText()
            return text.getText(0, text.characterCount)
        except NotImplementedError:
            return item.name

    def box(self, item):
        return item.queryComponent().getExtents(self.bus.DESKTOP_COORDS)

    def beyond(self, width, height):
        """What shows and does not lie as a whole in a room of that size: places by design name."""
        names = sorted(self.names(""))
        found = {} if names else {"": "nothing shows"}
        for name in names:
            item = name and not name.startswith(BESIDE) and self.find(name)
            try:
                box = item and self.box(item)
            except NotImplementedError:
                continue  # nothing that can be seen
            if box and (box.x < 0 or box.y < 0 or box.x + box.width > width
                        or box.y + box.height > height):
                found[name] = tuple(box)
        return found

    def click_at(self, x, y):
        subprocess.run(["xdotool", "mousemove", str(x), str(y), "click", "1"], check=True)

    def settled_box(self, item):
        """A window that is just opening still moves its controls."""
        def same_twice():
            before = self.box(item)
            time.sleep(0.05)
            after = self.box(item)
            sides = [(box.x, box.y, box.width, box.height) for box in (before, after)]
            return sides[0] == sides[1] and after
        return wait_for("a place that stays", same_twice)

    def await_front(self, item):
        """A window that was just made is told before it stands on the screen; a press that comes
        earlier goes to what stood there."""
        window = item
        while window is not None and window.getRoleName() not in ("frame", "dialog", "alert"):
            window = window.parent
        if window is None:
            return
        try:
            wait_for("the window", lambda: window.getState().contains(self.bus.STATE_ACTIVE), 3)
        except Failure:
            pass  # the press itself will tell

    def click(self, item):
        self.await_front(item)
        place = self.settled_box(item)
        self.click_at(place.x + place.width // 2, place.y + place.height // 2)

    def colour(self, item):
        """RRGGBB of the item's face, seen on the screen near its corner, clear of what is on it."""
        place = self.box(item)
        x, y = place.x + place.width // 6, place.y + place.height // 6
        return "%02X%02X%02X" % screen((x, y, x + 1, y + 1)).getpixel((0, 0))

    def key(self, name):
        subprocess.run(["xdotool", "key", name], check=True)

    def write(self, text):
        subprocess.run(["xdotool", "type", text], check=True)

    def windows(self):
        """The program's windows, by design name and title; nothing while they change."""
        try:
            application = self.application()
            return [(window.description, window.name) for window in
                    map(application.getChildAtIndex, range(application.childCount))]
        except Exception:  # a window that is just going gives errors of the bus
            return None

    def key_until(self, name, what, look):
        """Presses the key, and again where it got lost before the window had the keyboard; never
        into a window that came of it and only was not found in time."""
        before = wait_for("a window", self.windows)
        for _ in range(10):
            self.key(name)
            try:
                return wait_for(what, look, LOST)
            except Failure:
                # A first answer may overtake the key on its way into the program.
                if any(self.windows() != before for _ in range(2)):
                    return wait_for(what, look)
        raise Failure(f"{what} never came by {name}")

    def ended(self):
        return wait_for("the end of the program", self.gone) and self.process.returncode


def figure(description):
    """Parts of a figure as shown: {"tetto": "00FF00", ..., "fumo": "1"}."""
    return dict(re.findall(r"(\w+) ([0-9A-F]+)(?:,|$)", description.split(": ", 1)[1]))
