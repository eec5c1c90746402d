"""What grown-ups do between two exercises: they change the player, the language and the settings, look
at the log and at the little window about the program, and print."""
from account import Account
from child import EXERCISES
from desktop import Failure
from exercises import ARROWS, MOUSE, SWITCH
from plays import Plays
from quick import FOCUSED, LIST_ITEM, MENU_ITEM, PAGE_TAB, SHOWING, TEXT, TICKED, await_that
from scanning import LIT
from sentences import COLOURS, Reader, plain

PLAYERS = {"_predefinito": MOUSE, "Anna": MOUSE, "Bruno": 1, "Carla": SWITCH, "Dario": ARROWS}
LANGUAGES = ["deutsch", "english", "español", "français", "italiano"]
PAGES = {"colours": "Colori morlene", "levels": "Scelte didattiche", "letters": "Font e colori",
         "sounds": "Suoni "}
LETTERS = ["minuscolo", "maiuscolo", "corsivo"]
SQUARES = 216
PREVIEW = ["tetto", "comignolo", "porta", "finestre"]  # a part that shows each of the colours
NAMES = ["bianco bianchi bianca bianche", "nero neri nera nere", "grigio grigi grigia grigie",
         "azzurro azzurri azzurra azzurre", "rosa rosa rosa rosa", "viola viola viola viola",
         "arancione arancioni arancione arancioni", "marrone marroni marrone marroni"]
QUESTIONS = ["0042", "0043", "0044", "0045"]  # after the name of a colour, each of its forms
PRINT_DIALOGS = [("o", "cmdChiudi"), ("v", "cmdChiudi"), ("v", "cmdStampa"), ("p", "Picture1(0)")]


class Settings:
    """What the pupil knows of a player's settings."""

    def __init__(self, mode):
        self.mode = mode
        self.levels = False  # whether they change by themselves
        self.colours = list(COLOURS)


class GrownUps(Plays):
    def __init__(self, process, chance, system):
        super().__init__(process, chance)
        self.system = system  # that prints
        self.printed = self.came_out = 0  # sheets
        self.settings = {name: Settings(mode) for name, mode in PLAYERS.items()}
        self.player = next(iter(PLAYERS))
        self.language = "italiano"
        self.account = Account()
        self.rows_checked = 0
        self.learn()

    @property
    def own(self):
        return self.settings[self.player]

    def learn(self):
        """What the child needs for the next exercise: how it answers, and the words it reads."""
        self.mode = self.own.mode
        self.reader = Reader(self.language, self.own.colours)

    # --- The menu ---

    def point_menu(self, index, what):
        self.click_path(self.eyes.menu_items()[index], what)

    def change_language(self, language):
        if language == self.language:
            return
        self.note(f"language {language}")

        def act():
            bar = self.eyes.menu_items()[-1]
            self.click_path(bar, "Lingua")
            item = await_that(language, lambda: self.eyes.search(
                lambda one: self.eyes.role(one) == MENU_ITEM and
                self.eyes.told(one, "Name") == language, bar))
            self.click_path(item, language)
        before = self.eyes.name_of("Command1(7)")
        self.until(act, language, lambda: self.eyes.name_of("Command1(7)") != before)
        self.language = language
        self.learn()

    def change_player(self, name):
        if name == self.player:
            return
        self.note(f"player {name}")
        self.check_log()

        def act():
            if not self.eyes.named(name, LIST_ITEM):
                self.click("Combo1")
            self.click_path(await_that(name, lambda: self.eyes.named(name, LIST_ITEM)), name)

        self.until(act, name, lambda: self.eyes.name_of("Combo1").casefold() == name.casefold()
                   and self.eyes.named(name, LIST_ITEM) is None)
        self.player = name
        self.account.clear()
        self.learn()

    def check_log(self):
        self.open(lambda: self.point_menu(1, "Esercizi eseguiti"), "MSFlexGrid1")
        if self.eyes.name_of("Label1").casefold() != self.player.casefold():
            raise Failure(f"the log is {self.eyes.name_of('Label1')}'s and not {self.player}'s")
        self.rows_checked += self.account.compare(
            [self.eyes.told(cell, "Name")
             for cell in self.eyes.children(self.eyes.paths["MSFlexGrid1"])])
        self.expect_windows()
        self.leave("Image1(8)")

    def look_at_the_contact(self):
        """The little window about the program, by the keyboard."""
        def act():
            bar = self.eyes.menu_items()[-2]
            self.click_path(bar, "Informazioni")
            item = await_that("about", lambda: [one for one in self.eyes.children(
                self.eyes.children(bar)[0]) if self.eyes.has(one, SHOWING)][-1:])
            self.click_path(item[0], "about")
        self.open(act, "Label4", "Command1")
        self.expect_windows()
        self.open(lambda: self.click("Command1"), "Image1(8)")

    # --- Settings ---

    def configure(self, what=None):
        """A teacher changes something, or goes without."""
        self.open(lambda: self.point_menu(0, "Configurazione"), "OptionUtente(2)")
        what = what or self.chance.choice([*PAGES, "nothing"])
        self.note(f"settings: {what}")
        if what == "levels":
            self.tick(PAGES[what], "Check1")
            self.own.levels = not self.own.levels
        elif what == "sounds":
            self.tick(PAGES[what], "CheckSuoni")
        elif what == "letters":
            self.option(PAGES[what], self.chance.choice(LETTERS))
        elif what == "colours":
            self.change_colour()
        elif what == "all":
            self.look_at_all_settings()
        self.expect_windows()
        self.leave("Image1(8)")
        self.learn()

    def look_at_all_settings(self):
        """One by one, and small letters and the first colours at the end."""
        for _ in range(2):
            self.tick(PAGES["levels"], "Check1")
            self.tick(PAGES["sounds"], "CheckSuoni")
        for letters in reversed(LETTERS):
            self.option(PAGES["letters"], letters)
        self.choose_colour(1)
        self.first_colours()

    def page(self, name, control):
        tab = await_that(name, lambda: self.eyes.named(name, PAGE_TAB))
        self.open(lambda: self.click_path(tab, name), control)

    def ticked(self, name):
        return self.eyes.has(self.eyes.paths[name], TICKED)

    def tick(self, page, control):
        self.page(page, control)
        before = self.ticked(control)
        self.until(lambda: self.click(control), control, lambda: self.ticked(control) != before)

    def option(self, page, control):
        self.page(page, control)
        self.until(lambda: self.click(control), control, lambda: self.ticked(control))

    def change_colour(self):
        """One of the four, or the background, which has no name; now and then all as they were."""
        if self.own.colours != COLOURS and self.chance.random() < 0.3:
            self.first_colours()
        else:
            self.choose_colour(self.chance.randrange(5))

    def first_colours(self):
        self.page(PAGES["colours"], "Command4")
        self.own.colours[:] = COLOURS
        self.until(lambda: self.click("Command4"), "the first colours",
                   lambda: all(self.row_names(row) == list(names)
                               for row, (_, names) in enumerate(COLOURS, 1)))

    def choose_colour(self, row):
        self.option(PAGES["colours"], f"Option2({row})")
        square = await_that("another colour", self.square_of_another_colour)
        self.note(f"colour {row}: square {square}")
        self.click(f"CasellaColorata({square})")
        if row == 0:
            return
        used = [words for _, words in self.own.colours]
        names = self.chance.choice([tuple(one.split()) for one in NAMES
                                    if tuple(one.split()) not in used])
        for question, name in zip(QUESTIONS, names):
            self.answer_question(self.reader.texts[question], name)
        await_that("the names", lambda: self.row_names(row) == list(names))
        before = self.own.colours[row - 1][0]
        await_that("the colour", lambda: self.preview(row) != before)
        self.own.colours[row - 1] = (self.preview(row), names)

    def preview(self, row):
        return self.shown("ShockwaveFlash1")[PREVIEW[row - 1]]

    def row_names(self, row):
        return self.eyes.name_of(f"Option2({row})").split(" - ")

    def square_of_another_colour(self):
        """None that a figure has already, and not the light's."""
        square = self.chance.randrange(SQUARES)
        x, y, width, height = self.eyes.box(f"CasellaColorata({square})")
        colour = self.hands.colour(x + width // 2, y + height // 2)
        taken = [LIT, *(one for one, _ in [*self.own.colours, *COLOURS])]
        return None if colour in taken else f"{square}"

    def answer_question(self, question, answer):
        await_that(question, lambda: self.eyes.search(
            lambda item: plain(self.eyes.told(item, "Name")) == question))
        self.expect_windows(2)
        field = await_that("a field", lambda: self.eyes.search(
            lambda item: self.eyes.role(item) == TEXT and self.eyes.has(item, FOCUSED)))

        def write():
            self.key("Control_L", "a")
            for letter in answer:
                self.hands.key(letter)
        self.until(write, answer, lambda: self.eyes.text_of(field) == answer)
        self.key("Return")

    # --- Printing ---

    def print_at_once(self):
        """The window on paper, and the task goes on."""
        before = self.seen()
        self.key("Control_L", "s")
        self.printed += 1
        await_that("a sheet", lambda: self.system.handed_over() == self.printed, 30)
        self.expect_windows()
        if self.seen() != before:
            raise Failure(f"printing made {before} to {self.seen()}")

    def look_at_printing(self, entry, dialog=None):
        """A dialog opened and closed, now and then by printing: the exercise begins anew, without a
        row."""
        keys, shows = dialog or self.chance.choice(PRINT_DIALOGS)
        self.note(f"print dialog by ctrl+{keys}, then {shows}")
        self.open(lambda: self.key("Control_L", keys), shows)
        self.expect_windows(2)
        if shows == "Picture1(0)":
            front = next(index for index, window in enumerate(self.eyes.windows())
                         if self.eyes.told(window, "Name") != "MorleneKVT")

            def close():
                self.click_path(self.eyes.menu_items(front)[-1], "Esci")
        else:
            self.printed += shows == "cmdStampa"

            def close():
                self.click(shows)
        self.until(close, "the end of the dialog", lambda: self.hands.windows() == 1)
        self.eyes.comes("StatusBar1.Panels(3)", EXERCISES[entry][1])
        await_that("a fresh start", lambda: self.seen() == (1, 0, 0))

    def check_prints(self):
        """What was printed came out, each sheet once."""
        self.came_out += len(self.system.await_documents(self.printed - self.came_out))
        if (self.system.handed_over(), self.came_out) != (self.printed, self.printed):
            raise Failure(f"{self.printed} sheets were printed and {self.came_out} came out")
        self.system.clear()
