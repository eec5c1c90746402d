"""How a child answers, in whatever way it is let: a click, or the light brought to the place and a
key. With one switch the light goes on by itself, and a key may come late."""
import time

from at_screen import AtScreen
from desktop import Failure, figure
from exercises import MOUSE, SWITCH
from quick import FOCUSED, await_that
from scanning import CHOOSE, LIT, STEP

LATE = 12  # tries, where the light goes on while a key is on its way
AT_ONCE = 0.05  # seconds since the light came, for a key that shall not come late


class Answers(AtScreen):
    def __init__(self, process):
        super().__init__(process)
        self.untold = self.late = 0
        self.mode = MOUSE
        self.counts = (0, 0)
        self.light_came = 0.0  # when the first place was seen to be lit

    # --- What the window says ---

    def panel(self, number):
        return int(self.eyes.name_of(f"StatusBar1.Panels({number})").split()[0])

    def seen(self):
        return self.panel(3), self.panel(1), self.panel(2)

    def shown(self, name):
        told = self.eyes.described(name)
        return figure(told) if ": " in told else {}

    def judged(self, act, gain=1):
        """Answers; True when it was right. Nothing else may have been counted."""
        before = self.counts
        act()
        try:
            await_that("an answer", lambda: (self.panel(1), self.panel(2)) != before, 5)
        except Failure:
            self.again += 1
            self.note("again")
            act()
            await_that("an answer", lambda: (self.panel(1), self.panel(2)) != before)
        self.counts = self.panel(1), self.panel(2)
        right, wrong = self.counts[0] - before[0], self.counts[1] - before[1]
        if (right, wrong) not in ((gain, 0), (0, 1)):
            raise Failure(f"one answer made {before} to {self.counts}")
        return right > 0

    # --- The light ---

    def await_keyboard(self):
        """Where keys are wanted, until the window has them."""
        name = "PictureScansioneAutomatica" if self.mode == SWITCH else "PictureScansioneManuale"
        await_that("the keyboard", lambda: self.mode == MOUSE or
                   self.eyes.has(self.eyes.paths[name], FOCUSED), 8)

    def lit_item(self, names):
        for name in names:
            x, y, width, height = self.eyes.box(name)
            # A letter may stand on one of the two places.
            if LIT in (self.hands.colour(x + width // 6, y + height // 6),
                       self.hands.colour(x + width // 6, y + height * 4 // 5)):
                return name
        return None

    def bring(self, position, wanted):
        if self.mode == SWITCH:
            self.await_light(position, wanted)
            return
        for _ in range(40):
            before = position()
            if before == wanted:
                return
            self.until(lambda: self.key(STEP[self.mode]), "a step",
                       lambda before=before: position() not in (before, None))
        raise Failure(f"the light never came to {wanted}")

    def await_light(self, position, wanted):
        """Until it is seen to come: then the whole interval lies ahead."""
        looked = self.light_came

        def comes():
            nonlocal looked
            before, there = looked, position()
            if there != wanted:
                looked = time.monotonic()
                return False
            return time.monotonic() - before < AT_ONCE
        await_that(f"the light on {wanted}", comes, 40)

    def choose_at(self, position, wanted, must=True):
        """True when it was right; with one switch a late key is tried again."""
        for _ in range(LATE if self.mode == SWITCH and must else 1):
            self.bring(position, wanted)
            if self.judged(lambda: self.key(CHOOSE[self.mode])):
                return True
            if must and self.mode == SWITCH:
                self.late += 1
        if must:
            raise Failure(f"{wanted} was judged wrong")
        return False

    # --- Answers ---

    def answer_click(self, name, must=True):
        right = self.judged(lambda: self.click(name))
        if must and not right:
            raise Failure(f"{name} was judged wrong")
        return right

    def button(self, index, must=True):
        name = f"Command1({index})"
        if self.mode == MOUSE:
            return self.answer_click(name, must)
        return self.choose_at(lambda: self.lit_item(["Command1(0)", "Command1(1)"]), name, must)

    def either(self, asked, told):
        """One of the two buttons: the one that the picture tells, else one and then the other."""
        self.note(f"{asked} {told}")
        if told is not None:
            return self.button(0 if told else 1)
        for index in (0, 1) * LATE:
            if self.button(index, must=False):
                return True
            self.untold += 1
        raise Failure("neither answer was right")
