"""An account of what was played, held against the log that the program shows."""
from desktop import Failure

COLUMNS = 5


def letters(text):
    """A caption and the title in the log differ in capitals, line breaks and signs."""
    return "".join(sign for sign in text.casefold() if sign.isalnum())


class Account:
    """One row for each level played: title, level, right and wrong answers."""

    def __init__(self):
        self.clear()

    def clear(self):
        self.rows = {}
        self.now = 0

    def begin(self, title):
        self.now += 1
        self.rows[self.now] = [letters(title), "", "", ""]

    def close_row(self, level, right, wrong):
        row = self.rows.setdefault(self.now, ["", "", "", ""])
        row[1:] = [str(level), str(right), str(wrong)]
        self.now += 1

    def compare(self, cells):
        """The cells of the table from the first row to the last. Returns how many rows there were."""
        shown = [cells[at:at + COLUMNS] for at in range(0, len(cells), COLUMNS)]
        found = {int(row[0]): [letters(row[1]), *row[2:]] for row in shown
                 if row[0].strip().isdigit()}
        wanted = {row: self.rows.get(row, [""] * 4) for row in range(1, self.now + 1)}
        if found != wanted:
            wrong = {row: (found.get(row), wanted.get(row)) for row in {*found, *wanted}
                     if found.get(row) != wanted.get(row)}
            raise Failure(f"the log and what was played, where they differ: {wrong}")
        return self.now
