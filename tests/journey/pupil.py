"""A pupil that plays on and on: all eight exercises in all four ways to answer, with whatever
children and teachers do in between. Levels, languages, players, colours and settings change, windows
are printed, print dialogs opened and closed, exercises left in the middle.

    alone pupil.py PROGRAM TASKS [SEED]

It keeps an account of its own of what it played, and holds the log of the exercises against it
before it changes player. Now and then it rests, and what the program holds is compared: after a first
thousand tasks memory may grow by 2 MB, descriptors and what is kept in the display by nothing. The
same seed makes the same plan.
"""
import collections
import os
import random
import sys
import tempfile
import time

import rest
from child import EXERCISES, FORMS
from desktop import Desktop, Failure
from exercises import MOUSE, SWITCH
from grown_ups import LANGUAGES, PLAYERS, PRINT_DIALOGS, GrownUps
from plays import SENTENCE, TWO_BUTTONS
from printing_system import PrintingSystem
from quick import await_that
from scanning import CHOOSE, write_profile
from steps import fresh_drive

SWITCH_PLAYER = "Carla"
SWITCH_SHARE = 0.1  # of the tasks at least
TURNS = ["_predefinito", *["Anna", "Bruno", "Dario"] * 3]
FULL = 440  # rows of the log; a visit makes fewer than forty
LONGEST = 12  # tasks of a visit
SHORT_RUN, SHORT_VISIT = 100, 3  # tasks
FIRST_TASKS = 1000
NEXT = [2, 2, 0, 0, 1, 2, 0, 0]  # in the order of the menu: which button leads to the next task
# One switch waits for the light: mostly where an answer is one choice of two.
SWITCH_ENTRIES = [0, 1] * 3 + list(range(2, 8))
SWITCH_TASKS = [12, 12, 3, 3, 1, 1, 1, 2]  # of a visit, at most
SWITCH_LEVELS = 2
LATE_VISITS = 8


class Pupil(GrownUps):
    def __init__(self, process, system, seed, longest):
        super().__init__(process, random.Random(seed), system)
        self.longest = longest  # tasks of a visit
        self.decks = {}
        self.played = collections.Counter()

    # --- Into an exercise ---

    def open_exercise(self, entry):
        title = self.eyes.name_of(f"Command1({entry})")
        if self.mode == MOUSE:
            self.open(lambda: self.click(f"Image1({entry})"), EXERCISES[entry][1],
                      "StatusBar1.Panels(3)")
        else:
            self.open_by_light(entry)
        self.entry, self.counts, self.level = entry, (0, 0), 1
        self.account.begin(title)
        self.wait_for_task()

    def open_by_light(self, entry):
        items = [f"Command1({item})" for item in range(9)]
        for _ in range(LATE_VISITS):
            self.await_keyboard()
            titles = [self.eyes.name_of(item) for item in items]
            self.bring(lambda: self.lit_item(items), items[entry])
            self.until(lambda: self.key(CHOOSE[self.mode]), "an exercise", self.exercise_shown)
            opened = FORMS.index(self.exercise_shown())
            if opened == entry:
                return
            if self.mode != SWITCH:
                raise Failure(f"{titles[entry]} was chosen and {titles[opened]} came")
            # The light had gone on: a look at this one, and back.
            self.late += 1
            self.account.begin(titles[opened])
            self.account.close_row(1, 0, 0)
            self.leave("Image1(8)")
        raise Failure(f"exercise {entry} never came")

    def exercise_shown(self):
        self.eyes.look_round()
        return next((form for form in FORMS if self.eyes.shows(form) and
                     self.eyes.shows("StatusBar1.Panels(3)")), None)

    def wait_for_task(self):
        if self.entry in TWO_BUTTONS:
            await_that("a sentence", lambda: self.eyes.name_of(SENTENCE))
        elif self.entry in (4, 6, 7):
            await_that("sentences", lambda: self.eyes.text("Text1").strip())
        await_that("a figure", lambda: self.shown(EXERCISES[self.entry][1]))
        self.await_keyboard()
        if self.seen() != (1, 0, 0):
            raise Failure(f"the exercise begins at {self.seen()}")

    # --- From task to task ---

    def next_task(self):
        before = self.level, *self.counts
        name = f"Command1({NEXT[self.entry]})"
        text = self.eyes.text("Text1") if self.entry in (6, 7) else None
        if self.mode == MOUSE:
            await_that("the way to the next task", lambda: self.eyes.enabled(name))
            self.until(lambda: self.click(name), "the next task",
                       lambda: not self.eyes.enabled(name))
        else:
            await_that("the light on the way to the next task", lambda: self.lit_item([name]))
            self.until(lambda: self.key(CHOOSE[self.mode]), "the next task",
                       lambda: not self.lit_item([name]) and
                       (text is None or self.eyes.text("Text1") != text))
            self.light_came = time.monotonic()
        if self.entry in TWO_BUTTONS:
            await_that("a sentence", lambda: self.eyes.name_of(SENTENCE))
        self.note_level(before)

    def note_level(self, before):
        """The level may have changed by itself; then the log has a row of the level before."""
        now = self.seen()
        if now == before:
            return
        if not self.own.levels or now[1:] != (0, 0) or abs(now[0] - before[0]) != 1:
            raise Failure(f"the next task made {before} to {now}")
        self.note(f"level {now[0]} came by itself")
        self.account.close_row(*before)
        self.level, self.counts = now[0], now[1:]

    def choose_level(self, level):
        if self.own.levels:
            return
        if (level, 0, 0) == (self.level, *self.counts):
            return  # nothing would tell that it was done
        self.note(f"level {level}")
        self.until(lambda: self.key(f"F{level}"), f"level {level}",
                   lambda: self.seen() == (level, 0, 0))
        self.account.close_row(self.level, *self.counts)
        self.level, self.counts = level, (0, 0)

    def visit(self, entry, tasks, levels):
        self.note(f"exercise {entry} in {self.language}, mode {self.mode}")
        self.open_exercise(entry)
        for _ in range(tasks):
            self.expect_windows()
            if self.chance.random() < 0.25:
                self.choose_level(self.chance.randint(1, levels))
            self.perhaps_print()
            self.play()
            self.tasks += 1
            self.played[self.mode, entry] += 1
            self.next_task()
        if self.chance.random() < 0.4 and self.mode != SWITCH:
            self.note("one answer more")
            self.one_answer()
        self.leave_exercise()

    def leave_exercise(self):
        self.account.close_row(self.level, *self.counts)
        self.leave("Image1(8)")
        self.expect_windows()

    def perhaps_print(self):
        if self.chance.random() < 0.02:
            self.print_at_once()
        # After it, only what was counted tells that the exercise began anew.
        if self.chance.random() < 0.04 and (self.level, *self.counts) != (1, 0, 0):
            self.look_at_printing(self.entry)
            self.level, self.counts = 1, (0, 0)
            self.wait_for_task()

    # --- The plan ---

    def deal(self, what, cards):
        """By chance, but each of them before one comes again."""
        left = self.decks.setdefault(what, [])
        if not left:
            left += cards
            self.chance.shuffle(left)
        return left.pop()

    def by_mode(self, mode):
        return sum(count for (one, _), count in self.played.items() if one == mode)

    def change_places(self):
        if self.by_mode(SWITCH) < SWITCH_SHARE * self.tasks:
            self.change_player(SWITCH_PLAYER)
        elif self.player == SWITCH_PLAYER or self.chance.random() < 0.5:
            self.change_player(self.deal("players", TURNS))
        if self.account.now > FULL:
            self.change_player(next(name for name in PLAYERS
                                    if name not in (self.player, SWITCH_PLAYER)))

    def one_round(self, tasks):
        self.change_places()
        if self.chance.random() < 0.15:
            self.change_language(self.chance.choice(LANGUAGES))
        if self.chance.random() < 0.12:
            self.configure()
        if self.chance.random() < 0.03:
            self.look_at_the_contact()
        if self.mode == SWITCH:
            self.visit_by_switch(tasks)
            return
        entry = self.deal(self.mode, range(8))
        self.visit(entry, min(tasks, self.chance.randint(1, self.longest)), EXERCISES[entry][0])

    def visit_by_switch(self, tasks):
        # Behind the last exercise stands the way out, which a late key on a busy machine would take.
        entry = self.deal(self.mode, [one for one in SWITCH_ENTRIES
                                      if one != 7 or self.longest == LONGEST])
        longest = min(tasks, SWITCH_TASKS[entry], self.longest)
        self.visit(entry, self.chance.randint(1, longest), min(EXERCISES[entry][0], SWITCH_LEVELS))

    def rest(self, whole):
        """In the same place; in a whole run after the same windows, too."""
        self.change_language("italiano")
        # An empty log to begin with.
        if self.player == rest.PLAYER:
            self.change_player(SWITCH_PLAYER)
        self.change_player(rest.PLAYER)
        if whole:
            self.see_every_window()
        self.check_prints()
        self.check_log()
        return rest.held(self)


    def see_every_window(self):
        self.configure("all")
        self.look_at_the_contact()
        for entry in range(8):
            self.open_exercise(entry)
            if "Text1" in self.eyes.paths:  # with a pointer of its own
                self.hover("Text1")
            if entry == 0:
                self.print_at_once()
                for dialog in PRINT_DIALOGS:
                    self.look_at_printing(entry, dialog)
                    self.wait_for_task()
            self.leave_exercise()


def write_players(drive):
    """The log is kept; the light goes on each 250 ms, as quickly as it can."""
    for name, mode in PLAYERS.items():
        ending = ".INI" if name == "_predefinito" else ".ini"
        write_profile(drive, mode, log=True, file_name=name + ending)


def play(pupil, tasks):
    pupil.start()
    begun = time.monotonic()
    whole = tasks > FIRST_TASKS
    warm = min(FIRST_TASKS, tasks // 3)
    rests = 0
    first = None
    while pupil.tasks < tasks:
        pupil.one_round(tasks - pupil.tasks)
        if first is None and pupil.tasks >= warm:
            first = pupil.rest(whole)
        if pupil.tasks // FIRST_TASKS > rests:
            rests = pupil.tasks // FIRST_TASKS
            print(f"{pupil.tasks} tasks, {time.monotonic() - begun:.0f} s, "
                  f"{rest.told(pupil.rest(whole))}", flush=True)
    last = pupil.rest(whole)
    spent = time.monotonic() - begun
    print(f"{pupil.tasks} tasks in {spent:.0f} s ({pupil.tasks / spent:.1f} a second); "
          f"{pupil.untold} misses not told by the picture, {pupil.late} by late keys, "
          f"{pupil.again} actions repeated; {pupil.rows_checked} rows of the log compared, "
          f"{pupil.came_out} sheets printed\n{table(pupil.played)}\n"
          f"after {warm} tasks {rest.told(first)}\nat the end {rest.told(last)}", flush=True)
    rest.check_growth(first, last, whole)
    pupil.click("Image1(8)")
    await_that("the end", lambda: pupil.process.poll() is not None)
    if pupil.process.returncode != 0:
        raise Failure(f"the program ended with {pupil.process.returncode}")


def table(played):
    """Tasks by exercise, in the order of the menu, and by way to answer."""
    names = ["mouse", "two keys", "one switch", "arrows"]
    lines = ["tasks     " + "".join(f"{form:>9}" for form in FORMS) + "      all"]
    for mode, name in enumerate(names):
        counts = [played[mode, entry] for entry in range(8)]
        lines.append(f"{name:10}" + "".join(f"{count:9}" for count in [*counts, sum(counts)]))
    return "\n".join(lines)


def main(executable, drive, tasks, seed=None):
    seed = int(seed) if seed else int(time.strftime("%Y%m%d"))
    print(f"seed {seed}", flush=True)
    fresh_drive(drive)
    write_players(drive)
    with tempfile.TemporaryFile() as errors, PrintingSystem() as system, Desktop() as desktop:
        system.add_printer("Stampante")
        os.environ["CUPS_SERVER"] = system.environment["CUPS_SERVER"]
        pupil = Pupil(desktop.start([executable], stderr=errors), system, seed,
                      LONGEST if int(tasks) > SHORT_RUN else SHORT_VISIT)
        try:
            play(pupil, int(tasks))
        except Exception as fault:
            print(f"seed {seed}; the last actions, each after so many tasks:", *pupil.actions,
                  sep="\n", flush=True)
            if pupil.process.poll() is not None:
                raise Failure(f"the program ended with {pupil.process.returncode}") from fault
            if pupil.hands.windows() > 1:
                raise Failure(f"{fault}; more windows than one: {pupil.boxes()}") from fault
            raise
        errors.seek(0)
        said = errors.read().decode(errors="replace")
        if said:
            raise Failure(f"the program wrote on standard error:\n{said}")


if __name__ == "__main__":
    try:
        main(*sys.argv[1:])
    except Failure as failure:
        sys.exit(f"FAILED: {failure}")
