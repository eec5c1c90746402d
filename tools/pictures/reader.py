"""Reads what a child is asked, in any language."""
from check_language import CLOUDS, NEGATIVE, POSITIVE, SMOKE, sentences_of
from child import PARTS


class Reader:
    """Knows the words of the language and of the player."""

    def __init__(self, language, player):
        lines = player.read_bytes().decode("cp1252").split("\r\n")
        self.palette = lines[9:29:5]
        made = sentences_of(language, player)
        self.joint = f" {language.text('0020')} ".lower()
        self.statements = {made.statement(part, number, positive).lower(): (part, number, positive)
                           for part, number in made.statements() for positive in (True, False)}
        for key, part, number in (("0012", SMOKE, 1), ("0013", SMOKE, 2), ("0018", CLOUDS, 1),
                                  ("0019", CLOUDS, 2), ("0081", CLOUDS, 2), ("0104", CLOUDS, 2)):
            self.statements[language.text(key).lower()] = (part, number, True)
        likenesses = {True: {**POSITIVE, SMOKE: "0034", CLOUDS: "0036"},
                      False: {**NEGATIVE, SMOKE: "0033", CLOUDS: "0035"}}
        self.openings = {language.text(key).lower(): (part, positive)
                         for positive, keys in likenesses.items() for part, key in keys.items()}

    def part(self, sentence):
        """Its index in PARTS."""
        return self.statements[self.plain(sentence)][0] - 1

    @staticmethod
    def plain(sentence):
        return sentence.lower().rstrip(".").strip()

    def holds(self, sentence, figure):
        """Whether it is true of the figure; nothing where it is not of the kinds known here."""
        text = self.plain(sentence)
        if text in self.statements:
            return self.statement_holds(*self.statements[text], figure)
        for first, second in self.halves(text):
            return (self.statement_holds(*self.statements[first], figure) and
                    self.statement_holds(*self.statements[second], figure))
        return None

    def halves(self, text):
        pieces = text.split(self.joint)
        for cut in range(1, len(pieces)):
            halves = self.joint.join(pieces[:cut]), self.joint.join(pieces[cut:])
            if all(half in self.statements for half in halves):
                yield halves

    def statement_holds(self, part, number, positive, figure):
        shown = figure[PARTS[part - 1]]
        if part in (SMOKE, CLOUDS):
            return (shown == "1") == (number % 2 == 1)
        return (shown == self.palette[number - 1]) == positive

    def alike(self, sentence, one, other):
        """Whether "alike" completes the sentence about two figures."""
        opening = max((words for words in self.openings if self.plain(sentence).startswith(words)),
                      key=len)
        part, positive = self.openings[opening]
        name = PARTS[part - 1]
        return (one[name] == other[name]) == positive
