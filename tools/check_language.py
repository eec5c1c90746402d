"""Says what a language file lacks: one line for each fault, and exit status 1. Below, remarks, which
are guesses and no faults, and then every sentence that the file makes, to be read by a person.

    check_language.py FILE.lng [--player FILE.ini] [--faults-only]

The reference is italiano.lng: it has every key there is. Whether a text is too long is an estimate:
widths of a common font, the sizes of the design, which grow with the screen; the program draws a
text smaller rather than cut it. The colours are those of the ready player of the language, unless
another player's file is given.
"""
import argparse
import pathlib
import re
import sys
import unicodedata

ROOT = pathlib.Path(__file__).resolve().parents[1]
REFERENCE = ROOT / "data" / "lngmorlene" / "italiano.lng"
PLAYERS = ROOT / "data" / "giocatori"
DESIGNS = ROOT / "tests" / "expected"

LONGEST_VALUE = 511  # letters that the program reads
LARGEST_FILE = 64000  # bytes; beyond, sections and unquoted values are lost
LETTERLESS = b"\x81\x8d\x8f\x90\x9d"  # bytes of code page 1252 that stand for nothing
NUMBERS = "Strings"
VOICES = "Voci"
WITHOUT_BLANKS = [f"{number:04}" for number in range(4, 41)] + ["0105"]
WITH_A_BLANK_BEHIND = ["0074"] + [f"{number:04}" for number in [*range(82, 91), 92]]

# --- reading ---------------------------------------------------------------------------------


class Language:
    """Sections of keys and values, and what was wrong with the file's form."""

    def __init__(self, path):
        self.sections = {}
        self.faults = []
        content = path.read_bytes()
        if content.startswith(b"\xef\xbb\xbf"):
            self.faults.append("begins with a byte order mark: save it in Windows-1252")
            content = content[3:]
        if len(content) >= LARGEST_FILE:
            self.faults.append(f"{len(content)} bytes: {LARGEST_FILE} or more")
        section = None
        for number, line in enumerate(content.split(b"\n")[:-1] if content.endswith(b"\n")
                                      else content.split(b"\n"), 1):
            if not line.endswith(b"\r"):
                self.faults.append(f"line {number}: does not end in CR LF")
            text = self.decoded(number, line.rstrip(b"\r"))
            if not text or text.startswith(";"):
                continue
            heading = re.fullmatch(r"\[(\w+)\]", text)
            pair = re.fullmatch(r'([^="\s]+)="([^"]*)"', text)
            if heading:
                section = heading[1]
                if section in self.sections:
                    self.faults.append(f"line {number}: section [{section}] stands twice")
                self.sections.setdefault(section, {})
            elif pair and section is not None:
                if pair[1] in self.sections[section]:
                    self.faults.append(f"line {number}: {pair[1]} stands twice in [{section}]")
                self.sections[section].setdefault(pair[1], pair[2])
            else:
                self.faults.append(f'line {number}: is no KEY="text", no [section] and no note')

    def decoded(self, number, line):
        try:
            # Two bytes for an accented letter; by itself such a pair makes no sense in any language.
            if any(byte > 0x7F for byte in line):
                line.decode("utf-8")
                self.faults.append(f"line {number}: is UTF-8, not Windows-1252")
                return line.decode("utf-8")
        except UnicodeDecodeError:
            pass
        for byte in line:
            if byte in LETTERLESS or byte < 0x20 or byte == 0x7F:
                self.faults.append(f"line {number}: byte {byte:02X} is no letter of Windows-1252")
        return line.decode("cp1252", errors="replace")

    def text(self, key):
        return self.sections.get(NUMBERS, {}).get(key, "")


def read_designs():
    """{window: {control: (width, height) in twips, None without a place}}"""
    designs = {}
    for file in sorted(DESIGNS.glob("design_*.txt")):
        controls = {}
        for line in file.read_text(encoding="utf-8").splitlines()[1:]:
            place = re.match(r"\S+ place \S+ \S+ (\d+), (\d+) ", line)
            controls[line.split(" ", 1)[0]] = (int(place[1]), int(place[2])) if place else None
        designs[file.stem.removeprefix("design_")] = controls
    return designs


# --- faults ----------------------------------------------------------------------------------


def key_faults(language, reference, designs):
    for section, keys in reference.sections.items():
        for key in keys:
            if not language.sections.get(section, {}).get(key, "").strip():
                yield f"[{section}] {key}: missing"
    for section, keys in language.sections.items():
        if section not in reference.sections:
            yield f"[{section}]: unknown, there is no such window"
            continue
        for key in keys:
            if key not in reference.sections[section]:
                yield f"[{section}] {key}: unknown, {why_unknown(section, key, designs)}"


def why_unknown(section, key, designs):
    if section == NUMBERS:
        return "there is no such text"
    window, name = section, key.rpartition(".")[0]
    if section == VOICES:
        window, _, name = key.partition(".")
    if window not in designs:
        return f"there is no window {window}"
    controls = {window, *designs[window], *(name.split("(")[0] for name in designs[window])}
    return "it has no such text" if name in controls else f"there is no control {name}"


def value_faults(language):
    for section, keys in language.sections.items():
        for key, value in keys.items():
            if len(value) > LONGEST_VALUE:
                yield f"[{section}] {key}: {len(value)} letters, {LONGEST_VALUE} are read"
    for key in WITHOUT_BLANKS:
        if language.text(key) != " ".join(language.text(key).split(" ")).strip(" "):
            yield f"[{NUMBERS}] {key}: has a blank too many, the program adds them"
    for key in WITH_A_BLANK_BEHIND:
        if language.text(key) != language.text(key).strip(" ") + " ":
            yield f"[{NUMBERS}] {key}: must end in one blank"
    if language.text("0103") != "TestoColore.QualeColore":
        yield f"[{NUMBERS}] 0103: is a technical name and must stay TestoColore.QualeColore"


def title_faults(language):
    """A title stands in the menu, on its item in pieces, and in the log."""
    menu = language.sections.get("FormMenu", {})
    titles = [menu.get(f"Command1({item}).Caption", "") for item in range(8)]
    text = language.text
    for item, pieces in ((2, f"{text('0059')} {text('0060')} 1°"),
                         (3, f"{text('0061')} {text('0062')} 2°"),
                         (6, f"{text('0063')} {text('0064')}")):
        if titles[item] != pieces:
            yield f"[FormMenu] Command1({item}).Caption: not made of its pieces, \"{pieces}\""
    for item, title in enumerate(titles):
        if title != text(f"00{65 + item}"):
            yield f"[FormMenu] Command1({item}).Caption: not the title {65 + item:04} of the log"


# --- remarks ---------------------------------------------------------------------------------

# Widths in thousandths of the size, from the blank to the tilde, of a common sans serif.
WIDTHS = [278, 278, 355, 556, 556, 889, 667, 191, 333, 333, 389, 584, 278, 333, 278, 278] + \
    [556] * 10 + [278, 278, 584, 584, 584, 556, 1015, 667, 667, 722, 722, 667, 611, 778, 722, 278,
                  500, 667, 556, 833, 722, 778, 667, 778, 722, 667, 611, 722, 667, 944, 667, 667,
                  611, 278, 278, 278, 469, 556, 333, 556, 556, 500, 556, 556, 278, 556, 556, 222,
                  222, 500, 222, 833, 556, 556, 556, 556, 333, 500, 278, 556, 500, 722, 500, 500,
                  500, 334, 260, 334, 584]
LINE = 1.2  # height of a line, in sizes
TWIPS_PER_POINT = 20
LARGEST = 40  # points, where the design has no size of its own
# The menu measures its own by a word of ten capitals.
POINTS = {"FormConfigura": 11.5, "frmStampa": 8.25, "FormMenu": 7, "FormEs4": 16, "FormEs6": 16,
          "FormEs7": 16}
# What stands beside the text of these, in twips: the mark of an option, the edge of a button.
BESIDE = (("Check", 330), ("chk", 330), ("Option", 330), ("minuscolo", 330), ("maiuscolo", 330),
          ("corsivo", 330), ("Frame", 240), ("Command", 120), ("cmd", 120))
NOTABLY = 0.8  # smaller than the Italian text by so much


def width(text):
    total = 0
    for letter in text:
        base = unicodedata.normalize("NFD", letter)[0]
        total += WIDTHS[ord(base) - 32] if 32 <= ord(base) < 127 else 556
    return total / 1000


def fits(text, points, place):
    size = points * TWIPS_PER_POINT
    lines = 0
    for line in text.split("\n"):
        used = 0.0
        lines += 1
        for word in line.split(" "):
            here = width(word) * size
            if here > place[0]:
                return False
            if used and used + width(" ") * size + here > place[0]:
                lines += 1
                used = here
            else:
                used += (width(" ") * size if used else 0) + here
    return lines == 1 or lines * LINE * size <= place[1]


def largest_size(text, place, limit):
    """The largest size in points, up to the limit, in which the text fits its place."""
    points = limit
    while points > 1 and not fits(text, points, place):
        points -= 0.25
    return points


def placed_texts(language):
    """Texts and where they stand: (name, window, control, text)."""
    for section, keys in language.sections.items():
        for key, value in keys.items():
            if section not in (NUMBERS, VOICES) and key.endswith(".Caption"):
                control = key.removesuffix(".Caption")
                if section == "FormMenu" and control in ("Command1(2)", "Command1(3)",
                                                         "Command1(6)"):
                    continue
                yield f"[{section}] {key}", section, control, value.replace("&", "")
    text = language.text
    for item, first, last in ((2, "0059", "\n1°"), (3, "0061", "\n2°"), (6, "0063", "")):
        pieces = f"{text(first)}\n{text(f'{int(first) + 1:04}')}{last}"
        yield f"[{NUMBERS}] {first}", "FormMenu", f"Command1({item})", pieces
    for key in ("0014", "0015", "0023", "0024", "0025"):
        yield f"[{NUMBERS}] {key}", "FormEs2", "Command1(0)", text(key)


def size_remarks(language, reference, designs):
    italian = {name: text for name, _, _, text in placed_texts(reference)}
    for name, window, control, text in placed_texts(language):
        place = designs.get(window, {}).get(control)
        if place is None or name not in italian or not text:
            continue
        beside = next((twips for begin, twips in BESIDE if control.startswith(begin)), 0)
        place = (place[0] - beside, place[1])
        limit = POINTS.get(window, LARGEST)
        usual = largest_size(italian[name], place, limit)
        size = largest_size(text, place, limit)
        if size < NOTABLY * usual:
            yield (f"{name}: perhaps too long, would be drawn at about "
                   f"{round(100 * size / usual)}% of the Italian text's size")


def key_remarks(language):
    for window, keys in language.sections.items():
        if window in (NUMBERS, VOICES):
            continue
        seen = {}
        for key, value in keys.items():
            letter = re.search("&(.)", value)
            if not letter or not key.endswith(".Caption"):
                continue
            first = seen.setdefault(letter[1].lower(), key)
            if first != key:
                yield f"[{window}] {key}: Alt+{letter[1].upper()} is also that of {first}"


# --- sentences -------------------------------------------------------------------------------

POSITIVE = {1: "0026", 2: "0007", 3: "0008", 4: "0009", 5: "0010", 6: "0011"}
NEGATIVE = {1: "0027", 2: "0028", 3: "0029", 4: "0031", 5: "0030", 6: "0032"}
COLUMN = {1: 1, 2: 1, 3: 4, 4: 4, 5: 3, 6: 1}
SMOKE, CLOUDS = 7, 8
NEW_PLAYER = [["verde", "verdi"] * 2, ["rosso", "rossi", "rossa", "rosse"], ["blu"] * 4,
              ["giallo", "gialli", "gialla", "gialle"]]


def upper(text):
    """Letter for letter, as the program does: some letters have no capital."""
    return "".join(letter.upper() if len(letter.upper()) == 1 else letter for letter in text)


class Sentences:
    """All that the exercises write, by the tables in which they glue the pieces."""

    def __init__(self, language, colours, capitals):
        self.text = language.text
        self.instructions = [language.sections.get(window, {}).get("Label1.Caption", "")
                             for window in ("FormEs6", "FormEs7")]
        self.colours = colours
        self.capitals = capitals

    def styled(self, sentence):
        if self.capitals:
            return upper(sentence)
        return upper(sentence[:1].lower()) + sentence[1:].lower()

    def opening(self, part, positive):
        return self.text((POSITIVE if positive else NEGATIVE)[part]) + " "

    def colour(self, number, column):
        return self.colours[number - 1][column - 1]

    def statement(self, part, number, positive=True):
        """With the number of a colour; smoke and clouds are there when it is odd."""
        if part == SMOKE:
            return self.text("0016" if number % 2 else "0017")
        if part == CLOUDS:
            return self.text("0022" if number % 2 else "0021")
        return self.opening(part, positive) + self.colour(number, COLUMN[part])

    def statements(self):
        for part in range(1, 9):
            for number in range(1, 5 if part < SMOKE else 3):
                yield part, number

    def true_or_false(self):
        joint = f" {self.text('0020')} "
        for level in range(1, 4):
            yield f"# level {level}"
            for part, number in self.statements():
                for positive in (True, False):
                    if level == 3 or positive == (level == 1):
                        yield self.styled(self.statement(part, number, positive)) + "."
            yield ""
        for level in range(4, 7):
            yield f"# level {level}"
            for first in range(1, 9):
                for second in range(1, 9):
                    if first == second:
                        continue
                    number, other = (first + second) % 4 + 1, (first + 2 * second) % 4 + 1
                    for positive in (True, False):
                        if level == 6 or positive == (level == 4):
                            yield self.styled(self.statement(first, number, level == 4) + joint +
                                              self.statement(second, other, positive)) + "."
            yield ""
        yield "# clauses"
        for part, number in self.statements():
            for positive in (True, False):
                clause = self.statement(part, number, positive)
                yield self.styled(f"{clause} |{joint}{clause}")

    def same_or_different(self):
        answers = {3: ("0023", "0024"), 4: ("0023", "0024"), 5: ("0014", "0025")}
        openings = {True: {**POSITIVE, SMOKE: "0034", CLOUDS: "0036"},
                    False: {**NEGATIVE, SMOKE: "0033", CLOUDS: "0035"}}
        for level, forms in ((1, [True]), (2, [False]), (3, [True, False])):
            yield f"level {level}"
            seen = set()
            for positive in forms:
                for part, key in openings[positive].items():
                    for answer in answers.get(part, ("0014", "0015")):
                        word = self.text(answer)
                        seen.add(self.styled(self.text(key) + " ") + " " +
                                 (upper(word) if self.capitals else word))
            yield from sorted(seen)

    def painting(self):
        for level in range(1, 7):
            yield f"level {level}"
            forms = {0: [True, False], 1: [True], 2: [False]}[level % 3]
            seen = {self.statement(part, number, positive) + "." for part in range(1, 7)
                    for number in range(1, 5) for positive in forms}
            yield from sorted(upper(line) if self.capitals else line for line in seen)

    def sorting(self):
        text = self.text
        first = [self.statement(part, number) for part in range(1, 7) for number in range(1, 5)]
        first += [text("0016"), text("0017"), text("0018"), text("0019")]
        alone = "(the first clause alone)"

        def second(openings, column_of_step, presences):
            columns = {**COLUMN, 6: column_of_step}
            for part in range(1, 7):
                for number in range(1, 5):
                    yield openings[part] + self.colour(number, columns[part])
            yield from presences

        plain = {part: self.opening(part, True) for part in range(1, 7)}
        yield "level 1"
        yield from sorted(self.styled(clause) + "." for clause in first)

        yield "level 2"
        lines = {alone}
        lines |= {self.styled(clause) + " ..." for clause in first}
        lines |= {"..." + self.shown(f" {text('0020')} " + clause) + "." for clause in second(
            {part: text(f"00{83 + part}") for part in range(1, 7)}, 2,
            [text("0016"), text("0017"), text("0018"), text("0019")])}
        yield from sorted(lines)

        yield "level 3"
        lines = {self.styled(text("0082") + clause) + " ..." for clause in first}
        lines |= {"..." + self.shown(f" {text('0038')} {text('0039')} " + clause) + "."
                  for clause in second({**plain, 1: text("0090")}, 1,
                                       [text("0012"), text("0013"), text("0018"), text("0091")])}
        yield from sorted(lines)

        yield "level 4"
        lines = {alone}
        lines |= {self.styled(text("0083") + clause) + " ..." for clause in first}
        ends = {text("0012"): ", " + text("0037"), text("0013"): ", " + text("0040")}
        lines |= {"..." + self.shown(f" {text('0038')} " + clause +
                                     ends.get(clause, ",  " + text("0037"))) + "."
                  for clause in second({**plain, 1: text("0092")}, 3,
                                       [text("0012"), text("0013")])}
        yield from sorted(lines)

    def shown(self, clause):
        return upper(clause) if self.capitals else clause.lower()

    def searching(self):
        for exercise, absent in ((6, "0104"), (7, "0081")):
            yield f"exercise {exercise}"
            yield self.instructions[exercise - 6]
            lines = [self.statement(part, number) for part in range(1, 7) for number in range(1, 5)]
            lines += [self.text(key) for key in ("0012", "0013", "0018", absent)]
            yield from sorted({self.styled(line) + "." for line in lines})

    def all(self):
        """The texts by the names under which they are kept as read."""
        return {"es1": self.true_or_false(), "es2": self.same_or_different(),
                "es4": self.painting(), "es5": self.sorting(), "es6_es7": self.searching()}


def player_of(language_file):
    name = unicodedata.normalize("NFC", language_file.stem).lower()
    for file in PLAYERS.glob("*.ini"):
        if unicodedata.normalize("NFC", file.stem).lower() == name:
            return file
    return None


def sentences_of(language, player):
    """With the colours and the style of a player's file, or of a new player."""
    if player is None:
        return Sentences(language, NEW_PLAYER, False)
    lines = player.read_bytes().decode("cp1252").split("\r\n")
    colours = [lines[10 + 5 * row:14 + 5 * row] for row in range(4)]
    return Sentences(language, colours, lines[30] == "maiuscolo")


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n", 1)[0])
    parser.add_argument("file", type=pathlib.Path)
    parser.add_argument("--player", type=pathlib.Path)
    parser.add_argument("--faults-only", action="store_true")
    arguments = parser.parse_args()
    sys.stdout.reconfigure(encoding="utf-8")

    language, reference, designs = Language(arguments.file), Language(REFERENCE), read_designs()
    faults = [*language.faults, *key_faults(language, reference, designs), *value_faults(language),
              *title_faults(language)]
    for fault in faults:
        print(f"{arguments.file.name}: {fault}")
    if not arguments.faults_only:
        remarks = [*size_remarks(language, reference, designs), *key_remarks(language)]
        for remark in remarks:
            print(f"{arguments.file.name}: remark: {remark}")
        player = arguments.player or player_of(arguments.file)
        print(f"\nSentences, with the colours of {player.name if player else 'a new player'}:")
        for name, lines in sentences_of(language, player).all().items():
            print(f"\n== {name}")
            print("\n".join(lines))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
