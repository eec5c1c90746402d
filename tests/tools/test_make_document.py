"""A document is made from what lies beside its source, always the same, and not at all when
something in it is missing."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
MAKER = ROOT / "tools" / "make_document.py"
FIGURE = ROOT / "data" / "swf" / "morlene1.svg"


class MakeDocument(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.target = self.folder / "made.pdf"

    def make(self, body, style=""):
        source = self.folder / "source.html"
        source.write_text(f"<html lang=it><style>{style}</style><title>Prova</title>{body}")
        return subprocess.run([sys.executable, MAKER, source, self.target], capture_output=True,
                              encoding="utf-8")

    def assert_refused(self, reason, body, style=""):
        result = self.make(body, style)
        self.assertIn(reason, result.stderr)
        self.assertNotEqual(result.returncode, 0)
        self.assertFalse(self.target.exists())

    def test_the_same_source_gives_the_same_bytes(self):
        body = f"<p style='font-family: Lato'>Una casetta<img src='{FIGURE}?tetto=ff0000'>"
        self.assertEqual(self.make(body).returncode, 0)
        first = self.target.read_bytes()
        self.assertTrue(first.startswith(b"%PDF-"))
        self.make(body)
        self.assertEqual(self.target.read_bytes(), first)

    def test_a_figure_is_painted_as_asked(self):
        self.make(f"<img src='{FIGURE}'>")
        plain = self.target.read_bytes()
        self.make(f"<img src='{FIGURE}?tetto=ff0000&fumo=none'>")
        self.assertNotEqual(self.target.read_bytes(), plain)
        self.target.unlink()
        self.assert_refused("the drawing has no part camino", f"<img src='{FIGURE}?camino=ff0000'>")

    def test_a_picture_that_is_missing_makes_no_document(self):
        self.assert_refused("nowhere.png", "<img src='nowhere.png'>")

    def test_nothing_is_taken_from_a_network(self):
        self.assert_refused("not beside the source", "<img src='http://127.0.0.1:9/house.png'>")

    def test_a_link_that_leads_nowhere_makes_no_document(self):
        self.assert_refused("No anchor #porta", "<a href='#porta'>la porta</a>")
        self.assert_refused("no such document: other.pdf", "<a href='other.pdf'>altro</a>")

    def test_a_word_of_the_style_that_is_not_understood_makes_no_document(self):
        self.assert_refused("colour", "<p>Una casetta", "p { colour: red }")


if __name__ == "__main__":
    unittest.main()
