"""One task of each exercise, decided from what the screen shows and says; where the picture does not
tell (after a reward, among twins) one answer is tried and then the other."""
from answers import LATE, Answers
from child import INSIDE, PARTS, spot_in
from desktop import Failure
from exercises import ARROWS, MOUSE, OUTLINE, SWITCH
from quick import await_that
from scanning import CHOOSE, LIT, STEP

SENTENCE = "Label1"
TWO_BUTTONS = (0, 1, 5)  # exercises that ask by one sentence


class Plays(Answers):
    def __init__(self, process, chance):
        super().__init__(process)
        self.chance = chance
        self.reader = None  # of the language and the player's colours
        self.entry = self.level = 0
        self.framed_among = []

    def play(self):
        self.PLAYS[self.entry](self)

    def lines(self):
        return [line for line in self.eyes.text("Text1").replace("\r", "").split("\n") if line]

    # --- A sentence and two answers ---

    def vero_o_falso(self):
        sentence, parts = self.eyes.name_of(SENTENCE), self.shown("ShockwaveFlash1")
        told = self.reader.painted(parts) and "fumo" in parts
        self.either(sentence, self.reader.holds(sentence, parts) if told else None)

    def uguale_diverso(self):
        sentence = self.eyes.name_of(SENTENCE)
        one, other = self.shown("ShockwaveFlash1"), self.shown("ShockwaveFlash2")
        if not (one and other and self.reader.painted(one) and self.reader.painted(other)):
            return self.either(sentence, None)
        part, affirms, _ = self.reader.opening(sentence)
        return self.either(sentence, (one[part] == other[part]) == affirms)

    def insiemi(self):
        sentence = self.eyes.name_of(SENTENCE)
        told = self.reader.tells_all(sentence, self.level)
        while self.eyes.shows("ShockwaveFlash1"):
            parts = self.shown("ShockwaveFlash1")
            self.either(sentence, self.reader.fits(sentence, parts) if told else None)

    # --- Two figures ---

    def differences(self):
        one, other = self.shown("ShockwaveFlash1"), self.shown("ShockwaveFlash2")
        parts = [index for index, part in enumerate(PARTS) if one[part] != other[part]]
        if len(parts) != self.level:
            raise Failure(f"{parts} differ on level {self.level}")
        if self.chance.random() < 0.1 and self.mode != SWITCH:
            self.wrong_on_purpose(next(part for part in range(6) if part not in parts))
        for part in parts:
            if not self.part(part, one):
                raise Failure(f"{PARTS[part]} was judged wrong")
        await_that("equal figures",
                   lambda: self.shown("ShockwaveFlash1") == self.shown("ShockwaveFlash2"))

    def wrong_on_purpose(self, part):
        if self.part(part, self.shown("ShockwaveFlash1"), must=False):
            raise Failure(f"{PARTS[part]} was judged right")

    def part(self, part, one, must=True):
        if self.mode != MOUSE:
            lit = self.frame_lit if self.entry == 2 else self.outline_lit
            return self.choose_at(lit, part, must)
        if self.entry == 2:
            return self.answer_click(f"Image1({part})", must=False)
        # Smoke and clouds can be clicked on the figure that has them only.
        place = "ShockwaveFlash2" if one[PARTS[part]] == "0" else "ShockwaveFlash1"
        return self.judged(lambda: self.point(place, INSIDE[part]))

    def spot(self, name, place):
        return spot_in(self.eyes.box(name), place)

    def point(self, name, place):
        self.note(f"click {name} at {place}")
        self.hands.click(*self.spot(name, place))

    def outline_lit(self):
        return next((index for index, place in enumerate(OUTLINE)
                     if self.hands.colour(*self.spot("ShockwaveFlash2", place)) == LIT), None)

    def frame_lit(self):
        return next((index for index in range(8) if self.eyes.shows(f"Shape1({index})")), None)

    # --- A figure to paint ---

    def colora(self):
        done = 0
        while done < 6:
            sentences = self.lines()
            if self.mode != MOUSE:
                self.paint_by_light(sentences)
                done += 1
                continue
            for sentence in sentences:
                self.paint(sentence)
            if not self.judged(lambda: self.click("Command1(0)"), gain=len(sentences)):
                raise Failure(f"{sentences} was judged wrong")
            done += len(sentences)

    def paint(self, sentence):
        part = self.reader.part(sentence)
        for _ in range(5):
            now = self.shown("ShockwaveFlash1")
            if self.reader.painted_as(sentence, now):
                return
            self.until(lambda: self.point("ShockwaveFlash1", INSIDE[PARTS.index(part)]), "a colour",
                       lambda now=now: self.shown("ShockwaveFlash1") != now)
        raise Failure(f"no colour satisfies {sentence}")

    def paint_by_light(self, sentences):
        before = self.shown("ShockwaveFlash1")
        wanted = {self.reader.part(sentence): sentence for sentence in sentences}
        while True:
            changed = lambda before=before: self.shown("ShockwaveFlash1") != before
            if self.mode == SWITCH:
                await_that("another colour", changed)
            else:
                self.until(lambda: self.key(STEP[self.mode]), "another colour", changed)
            now = self.shown("ShockwaveFlash1")
            part = next(part for part in PARTS if now[part] != before[part])
            if self.reader.painted_as(wanted[part], now):
                if self.judged(lambda: self.key(CHOOSE[self.mode])):
                    return
                if self.mode != SWITCH:
                    raise Failure(f"{wanted[part]} was judged wrong of {now}")
                self.late += 1
            before = now

    # --- Many figures ---

    def grid(self):
        """Figures shown, and those of them that fit the description."""
        lines = self.lines()
        figures = [index for index in range(12) if self.eyes.shows(f"ShockwaveFlash1({index})")]
        fitting = [index for index in figures
                   if all(self.reader.holds(line, self.shown(f"ShockwaveFlash1({index})"))
                          for line in lines)]
        if not fitting:
            raise Failure(f"no figure is the one described by {lines}")
        self.framed_among = figures
        for index in figures:  # each level has places of its own
            self.eyes.boxes.pop(f"ShockwaveFlash1({index})", None)
        return figures, fitting

    def framed(self):
        for index in self.framed_among:
            x, y, _, height = self.eyes.box(f"ShockwaveFlash1({index})")
            if self.hands.colour(x + 3, y + height // 2) == LIT:
                return index
        return None

    def figure(self, index, must=True):
        if self.mode == MOUSE:
            return self.answer_click(f"ShockwaveFlash1({index})", must)
        return self.choose_at(self.framed, index, must)

    def intrusi(self):
        figures, fitting = self.grid()
        twins = len(fitting) > 1
        left = len(figures) - 1
        for index in [one for one in figures if one not in fitting] + fitting * (1 + LATE * twins):
            if not left:
                return
            if index in fitting and not twins:
                return
            if not self.eyes.shows(f"ShockwaveFlash1({index})"):
                continue
            if self.figure(index, must=index not in fitting):
                left -= 1
            else:
                self.untold += 1
        if left:
            raise Failure(f"{left} intruders would not go")

    def indovina(self):
        if self.mode == ARROWS:
            self.intrusi()
            return
        _, fitting = self.grid()
        for index in fitting * (LATE if len(fitting) > 1 else 1):
            if self.figure(index, must=len(fitting) == 1):
                return
            self.untold += 1
        raise Failure("none of the twins was right")

    # In the order of the menu.
    PLAYS = [vero_o_falso, uguale_diverso, differences, differences, colora, insiemi, intrusi,
             indovina]

    def one_answer(self):
        """Right or wrong."""
        if self.entry in TWO_BUTTONS:
            self.button(0, must=False)
        elif self.entry in (2, 3):
            self.part(self.chance.randrange(6), self.shown("ShockwaveFlash1"), must=False)
        elif self.entry in (6, 7):
            self.figure(self.chance.choice(self.grid()[0]), must=False)
