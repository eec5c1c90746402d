"""Reads the sentences as a child does who can read: in the language of a language file, from which
it knows how a sentence may begin, and with the words that the player has for the colours."""
import pathlib
import re

from desktop import Failure

LANGUAGES = pathlib.Path(__file__).resolve().parents[2] / "data/lngmorlene"
# A new player's colours, in their order: masculine and feminine, each of one thing and of several.
COLOURS = [("00FF00", ("verde", "verdi", "verde", "verdi")),
           ("FF0000", ("rosso", "rossi", "rossa", "rosse")),
           ("0000FF", ("blu", "blu", "blu", "blu")),
           ("FFFF00", ("giallo", "gialli", "gialla", "gialle"))]
PALETTE = [colour for colour, _ in COLOURS]
# Texts of the language files. What the sentence is about; those before the bar affirm.
OPENINGS = {"comignolo": "0026 0084 0090 0092 | 0027", "tetto": "0007 0085 | 0028",
            "pareti": "0008 0086 | 0029", "finestre": "0009 0087 | 0031",
            "porta": "0010 0088 | 0030", "gradino": "0011 0089 | 0032",
            "fumo": "0034 | 0033", "nuvole": "0036 | 0035"}
# Whole clauses: that it is there, and that it is not.
PRESENCE = {"fumo": "0012 0016 | 0013 0017", "nuvole": "0018 0022 | 0019 0021 0081 0091 0104"}
AND, OR, THAT, AT_LEAST_ONE, ONE_ONLY = "0020", "0038", "0039", "0082", "0083"


def plain(text):
    return " ".join(text.casefold().rstrip(".").split())


def texts(language):
    """{"0007": "il tetto è", ...}"""
    content = (LANGUAGES / f"{language}.lng").read_text(encoding="cp1252")
    return {key: plain(text) for key, text in re.findall(r'^(\d{4})="(.*)"', content, re.M)}


def by_part(table, texts_of):
    """(text, part, whether it affirms), the longest first: one may begin as another does."""
    found = [(texts_of[key], part, affirms) for part, keys in table.items()
             for side, affirms in zip(keys.split("|"), (True, False)) for key in side.split()]
    return sorted(found, key=lambda one: -len(one[0]))


class Reader:
    """In a program that was started in one language, and shall speak another since: the pieces of
    sentences stay as they are until the next start."""

    def __init__(self, language="italiano", colours=COLOURS, started="italiano"):
        pieces = {key: text for key, text in texts(started).items() if "0007" <= key <= "0040"}
        self.texts = {**texts(language), **pieces}
        self.openings = by_part(OPENINGS, self.texts)
        self.presence = by_part(PRESENCE, self.texts)
        self.palette = [colour for colour, _ in colours]
        self.words = {plain(word): colour for colour, words in colours for word in words}

    def painted(self, parts):
        """True when the six parts show colours of the player and not those of the file."""
        return all(colour in self.palette for colour in list(parts.values())[:6])

    def opening(self, sentence):
        """Part, whether it affirms, and what is said of the part."""
        sentence = plain(sentence)
        for text, part, affirms in self.openings:
            if sentence == text or sentence.startswith(text + " "):
                return part, affirms, sentence[len(text) + 1:]
        raise Failure(f"cannot read: {sentence}")

    def shown_or_not(self, statement):
        """Smoke or clouds and whether they are there; nothing of other statements."""
        return next(((part, affirms) for text, part, affirms in self.presence
                     if text == plain(statement)), None)

    def part(self, statement):
        found = self.shown_or_not(statement)
        return found[0] if found else self.opening(statement)[0]

    def statement_holds(self, statement, parts):
        found = self.shown_or_not(statement)
        if found:
            return (parts[found[0]] == "1") == found[1]
        part, affirms, word = self.opening(statement)
        if word not in self.words:
            raise Failure(f"no colour is called {word}: {statement}")
        return (parts[part] == self.words[word]) == affirms

    def statements(self, sentence):
        return plain(sentence).split(f" {self.texts[AND]} ")

    def holds(self, sentence, parts):
        """Whether the whole sentence is true of the figure."""
        return all(self.statement_holds(one, parts) for one in self.statements(sentence))

    def painted_as(self, sentence, parts):
        """Grey is no colour, whatever the sentence denies."""
        found = self.shown_or_not(sentence)
        return (found is not None or parts[self.part(sentence)] in self.palette) and \
            self.statement_holds(sentence, parts)

    # --- "Insiemi" ---

    def fits(self, sentence, parts):
        text = plain(sentence)
        at_least, only = self.texts[AT_LEAST_ONE] + " ", self.texts[ONE_ONLY] + " "
        if text.startswith(at_least):
            either = f" {self.texts[OR]} {self.texts[THAT]} "
            return any(self.statement_holds(one, parts)
                       for one in text[len(at_least):].split(either))
        if text.startswith(only):
            both = text[len(only):].split(",")[0].split(f" {self.texts[OR]} ")
            return sum(self.statement_holds(one, parts) for one in both) == 1
        return self.holds(text, parts)

    def tells_all(self, sentence, level):
        """On levels 2 and 4 some sentences leave their second clause out, or deny a smoke that the
        houses have all the same: by those no child can judge."""
        if level == 2:
            statements = self.statements(sentence)
            return len(statements) == 2 and self.shown_or_not(statements[1]) != ("fumo", False)
        return level != 4 or f" {self.texts[OR]} " in plain(sentence)


ITALIAN = Reader()
