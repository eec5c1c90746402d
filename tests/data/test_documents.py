"""The guide in both languages and the page of ideas, as they lie beside the program: they tell every
exercise, every setting and every file, nothing runs off a page, and their links lead somewhere.

    test_documents.py PROGRAM-FOLDER
"""
import itertools
import pathlib
import re
import subprocess
import sys
import unittest
import xml.etree.ElementTree as xml

ROOT = pathlib.Path(__file__).resolve().parents[2]
MADE = pathlib.Path(sys.argv.pop(1) if len(sys.argv) > 1 else ROOT / "build/dev/bin")
GUIDES = {"morlenekvt": "italiano", "morlenekvt-english": "english"}

POINT = 25.4 / 72  # mm
SHEET = (210, 297)  # mm
LEFT, RIGHT, TOP, FOOT = 20, 190, 25, 276  # mm, of what a page holds beside its number and its head
# Round letters reach a little over the edge of their line.
SLACK = 0.4  # mm


def output(*command):
    return subprocess.run(command, check=True, capture_output=True, encoding="utf-8").stdout


def document(name):
    return str(MADE / f"{name}.pdf")


def plain(text):
    """With the signs that a layout may choose told alike."""
    return " ".join(text.replace("’", "'").split())


def text_of(name):
    return plain(output("pdftotext", "-raw", document(name), "-"))


def information(name):
    lines = output("pdfinfo", document(name)).splitlines()
    return {key: value.strip() for key, value in (line.split(":", 1) for line in lines)}


def captions(language, section):
    """What the section of a language file writes on the window."""
    lines = (ROOT / f"data/lngmorlene/{language}.lng").read_text("cp1252")
    lines = lines.split(f"\n[{section}]\n")[1].split("\n[")[0]
    return re.findall(r'^(\S+)\.Caption="(.*)"', lines, re.MULTILINE)


def texts(language, *keys):
    """What the program says under these keys."""
    content = (ROOT / f"data/lngmorlene/{language}.lng").read_text("cp1252")
    return [re.search(rf'^{key}="(.*)"', content, re.MULTILINE)[1] for key in keys]


def pages_of(name):
    """Of each page its words: left, top, right, bottom in mm, and the word."""
    found = xml.fromstring(output("pdftotext", "-bbox", document(name), "-"))
    space = "{http://www.w3.org/1999/xhtml}"
    for page in found.iter(space + "page"):
        yield [tuple(float(word.get(side)) * POINT for side in ("xMin", "yMin", "xMax", "yMax"))
               + (word.text,) for word in page.iter(space + "word")]


def overlap(one, other):
    width = min(one[2], other[2]) - max(one[0], other[0])
    height = min(one[3], other[3]) - max(one[1], other[1])
    smaller = min((word[2] - word[0]) * (word[3] - word[1]) for word in (one, other))
    return width > 0 and height > 0 and width * height > 0.4 * smaller


def files_of_the_program():
    """The names with an extension that the code knows outside the program's own data."""
    known = set()
    for folder in ("core", "language", "configuration", "results", "printing", "platform"):
        for source in (ROOT / "src" / folder).rglob("*.cpp"):
            for path in re.findall(r'"([^"<>]*?\.(?:ini|txt|ttf|rpt|bmp|lock|tmp))"',
                                   source.read_text("utf-8"), re.IGNORECASE):
                known.add(re.split(r"[\\/]", path)[-1].strip("*X"))
    return known - {""}


class Guide(unittest.TestCase):
    def assert_told(self, words, text):
        """Without the whole text in the report of a failure."""
        self.assertTrue(words in text, f"not told: {words}")

    def test_a_guide_has_twelve_to_twenty_upright_a4_pages(self):
        for name in GUIDES:
            with self.subTest(guide=name):
                told = information(name)
                self.assertTrue(12 <= int(told["Pages"]) <= 20, told["Pages"])
                self.assertIn("(A4)", told["Page size"])

    def test_a_reader_is_told_title_and_language_and_finds_the_chapters_by_bookmarks(self):
        for name, language, title in zip(GUIDES, (b"/Lang (it)", b"/Lang (en-GB)"),
                                         ("guida per insegnanti", "a guide for teachers")):
            content = pathlib.Path(document(name)).read_bytes()
            self.assertIn(language, content)
            self.assertIn(title, information(name)["Title"])
            self.assertGreaterEqual(len(re.findall(rb"/Title \(?", content)), 11)
            self.assertIn(b"/Outlines", content)

    def test_a_guide_names_every_exercise(self):
        for name, language in GUIDES.items():
            with self.subTest(guide=name):
                text = text_of(name)
                exercises = [caption for control, caption in captions(language, "FormMenu")
                             if re.fullmatch(r"Command1\([0-7]\)", control)]
                self.assertEqual(len(exercises), 8)
                for exercise in exercises:
                    self.assert_told(plain(exercise), text)

    def test_a_guide_tells_every_setting_by_what_stands_on_the_window(self):
        for name, language in GUIDES.items():
            with self.subTest(guide=name):
                text = text_of(name)
                found = captions(language, "FormConfigura")
                self.assertGreater(len(found), 35)
                for _, caption in found:
                    self.assert_told(plain(caption.replace("&", "").strip(" :")), text)

    def test_a_guide_tells_what_stands_in_the_print_dialog_and_in_the_menus(self):
        hidden = {"lblLblScala", "lblPScala", "Label5", "Label6", "cmdOK", "lblStampaInCorso"}
        for name, language in GUIDES.items():
            with self.subTest(guide=name):
                text = text_of(name)
                for section in ("frmStampa", "FormEs1", "FormMenu", "FormEserciziEseguiti"):
                    for control, caption in captions(language, section):
                        if control in hidden:
                            continue
                        caption = caption.replace("&", "").replace("M a x", "Max")
                        caption = caption.removesuffix("[mm]").replace("'", "").strip(" :")
                        self.assert_told(plain(caption), text.replace("Proprietà", "Proprieta"))

    def test_a_guide_quotes_the_boxes_as_they_are(self):
        for name, language in GUIDES.items():
            with self.subTest(guide=name):
                text = text_of(name)
                for box in texts(language, "0001", "0077", "0078"):
                    self.assert_told(plain(box), text)

    def test_a_guide_names_every_file_that_the_program_writes(self):
        names = files_of_the_program()
        self.assertGreater(len(names), 5)
        self.assertIn("leggimi.txt", names)
        for guide in GUIDES:
            with self.subTest(guide=guide):
                text = text_of(guide).lower()
                for name in names | {"Fra", "dati", "/var/lib/morlenekvt", "/usr/lib/morlenekvt"}:
                    self.assert_told(name.lower(), text)

    def test_a_guide_shows_the_windows(self):
        for name in GUIDES:
            with self.subTest(guide=name):
                source = (ROOT / f"data/documents/{name}.html").read_text("utf-8")
                wanted = set(re.findall(r'docs/pictures/(\S+?)"', source))
                self.assertGreater(len(wanted), 15)
                self.assertEqual({path.split("/")[0] for path in wanted}, {GUIDES[name]})
                drawn = output("pdfimages", "-list", document(name)).splitlines()[2:]
                self.assertGreaterEqual(len(drawn), len(wanted))

    def test_each_guide_leads_to_the_other_that_lies_beside_it(self):
        for name in GUIDES:
            with self.subTest(guide=name):
                (other,) = set(GUIDES) - {name}
                content = pathlib.Path(document(name)).read_bytes()
                self.assertEqual(re.findall(rb"/F \((.*?)\)", content), [f"{other}.pdf".encode()])
                self.assertNotIn(b"file://", content)
                self.assertTrue((MADE / f"{other}.pdf").exists())


class Layout(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.pages = {(name, number): words for name in [*GUIDES, "documento"]
                     for number, words in enumerate(pages_of(name), 1)
                     # The cover is a picture to its edges.
                     if number > 1 or name == "documento"}

    def each_page(self, check):
        for page, words in self.pages.items():
            with self.subTest(page=page):
                check(words)

    def test_no_word_leaves_the_page_and_nothing_but_its_number_stands_at_the_foot(self):
        def check(words):
            for left, _, right, bottom, word in words:
                self.assertGreaterEqual(left, LEFT - SLACK, word)
                self.assertLessEqual(right, RIGHT + SLACK, word)
                if bottom > FOOT + SLACK:
                    self.assertTrue(word.isdigit() and bottom < SHEET[1] - 5, word)
        self.each_page(check)

    def test_no_word_is_printed_over_another(self):
        def check(words):
            for one, other in itertools.combinations(words, 2):
                self.assertFalse(overlap(one, other), (one, other))
        self.each_page(check)

    def test_no_page_holds_only_what_was_left_over(self):
        def check(words):
            lowest = max(bottom for *_, bottom, _ in words if bottom < FOOT)
            self.assertGreater(lowest, TOP + (FOOT - TOP) / 2)
            self.assertGreater(len(words), 120)
        self.each_page(check)

    def test_the_fonts_are_in_the_document(self):
        for name in [*GUIDES, "documento"]:
            fonts = output("pdffonts", document(name)).splitlines()[2:]
            self.assertGreater(len(fonts), 3)
            for font in fonts:
                self.assertRegex(font, r"^[A-Z]{6}\+(Lato|Comic-Neue|DejaVu-Sans-Mono)")
                self.assertEqual(font.split()[-5:-2], ["yes", "yes", "yes"], font)


class Ideas(unittest.TestCase):
    def test_the_page_of_ideas_is_one_page(self):
        self.assertEqual(information("documento")["Pages"], "1")
        text = text_of("documento")
        for idea in ("Perché una casetta", "La negazione", "I connettivi", "Il confronto",
                     "La classificazione", "La descrizione", "Qualche consiglio", "Il corsivo"):
            self.assertTrue(idea in text, idea)


if __name__ == "__main__":
    unittest.main()
