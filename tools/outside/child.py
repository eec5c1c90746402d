"""A child at the eight exercises with the mouse, who knows nothing but what the screen shows."""
from desktop import figure, wait_for
from steps import counts, panel

PARTS = ["comignolo", "tetto", "pareti", "finestre", "porta", "gradino", "fumo", "nuvole"]
# A spot inside each of them, in the figure's own 700 by 900.
INSIDE = [(525, 275), (350, 420), (350, 592), (215, 640), (320, 700), (350, 830), (560, 150),
          (150, 130)]
EXERCISES = [  # in the order of the menu: levels, a figure of it
    (6, "ShockwaveFlash1"), (3, "ShockwaveFlash1"), (4, "ShockwaveFlash1"), (4, "ShockwaveFlash1"),
    (6, "ShockwaveFlash1"), (4, "ShockwaveFlash1"), (5, "ShockwaveFlash1(0)"),
    (5, "ShockwaveFlash1(0)"),
]
FORMS = [f"FormEs{number}" for number in (1, 2, 8, 3, 4, 5, 6, 7)]  # in the order of the menu


def spot_in(box, place):
    """Where a place of the figure's own 700 by 900 lies on the screen, in a box of the figure."""
    x, y, width, height = box
    scale = min(width / 700, height / 900)
    return (round(x + (width - 700 * scale) / 2 + place[0] * scale),
            round(y + (height - 900 * scale) / 2 + place[1] * scale))


class Child:
    """Plays one running program."""

    def __init__(self, program):
        self.program = program
        self.right = self.wrong = 0
        self.places = {}  # of what stays where it is for a whole level

    def place(self, name):
        """Where it lies on the screen; nothing while it does not show. Asked of the program once:
        the light moves on in less time than asking for every place takes."""
        if name not in self.places:
            item = self.program.find(name)
            if item is None:
                return None
            self.places[name] = self.program.box(item)
        return self.places[name]

    def shown(self, name):
        item = self.program.find(name)
        if item is None or ": " not in item.description:
            return None
        return figure(item.description)

    def wait_shown(self, name="ShockwaveFlash1"):
        return wait_for(name, lambda: self.shown(name))

    def text(self, name):
        return self.program.text_of(self.program.await_object(name))

    def spot(self, name, place):
        """Where a place of the figure's own 700 by 900 lies on the screen."""
        box = self.place(name)
        return spot_in((box.x, box.y, box.width, box.height), place)

    def click(self, name):
        self.program.click(self.program.await_object(name))

    # What an answer did.

    def answered(self):
        """True for a right answer, False for a wrong one, once the counters tell."""
        now = wait_for("an answer", lambda: counts(self.program) != (self.right, self.wrong)
                       and counts(self.program))
        better = now[0] > self.right
        self.right, self.wrong = now
        return better

    def fresh_level(self, level):
        self.program.key_until(f"F{level}", f"level {level}",
                               lambda: panel(self.program, 3).startswith(f"{level} ")
                               and counts(self.program) == (0, 0))
        self.right = self.wrong = 0
        self.places.clear()


def differing(child):
    one, other = child.wait_shown(), child.wait_shown("ShockwaveFlash2")
    return [index for index, part in enumerate(PARTS) if one[part] != other[part]]


def where_it_is(child, part):
    """Smoke and clouds can be clicked on the figure that has them only."""
    return "ShockwaveFlash2" if child.shown("ShockwaveFlash1")[part] == "0" else "ShockwaveFlash1"
