"""Reads the sentences as a child does."""
PALETTE = ["00FF00", "FF0000", "0000FF", "FFFF00"]  # a new player's colours, in their order
COLOURS = {
    "verde": "00FF00", "verdi": "00FF00", "rosso": "FF0000", "rossi": "FF0000", "rossa": "FF0000",
    "rosse": "FF0000", "blu": "0000FF", "giallo": "FFFF00", "gialli": "FFFF00",
    "gialla": "FFFF00", "gialle": "FFFF00",
}


def painted(parts):
    """True when the six parts show colours of the player and not those of the file."""
    return all(colour in COLOURS.values() for colour in list(parts.values())[:6])


def statement_holds(statement, parts):
    words = statement.replace("'", " ").split()
    denied = "non" in words
    for word in words:
        if word in ("fumo", "nuvole"):
            return (parts[word] == "1") != denied
        if word in parts:
            return (parts[word] == COLOURS[words[-1]]) != denied
    raise AssertionError("cannot read: " + statement)


def sentence_holds(sentence, parts):
    """Whether the whole sentence is true of the figure."""
    statements = sentence.lower().rstrip(".").replace(",", "").split(" e ")
    return all(statement_holds(statement, parts) for statement in statements)
