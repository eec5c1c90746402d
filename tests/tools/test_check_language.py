"""The check of language files finds each kind of fault, the shipped files pass it, and it prints the
sentences that the program makes."""
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
CHECK = ROOT / "tools" / "check_language.py"
LANGUAGES = sorted((ROOT / "data/lngmorlene").glob("*.lng"))
READ = ROOT / "tests" / "expected" / "sentences"


def check(file, *arguments):
    return subprocess.run([sys.executable, CHECK, file, *arguments], capture_output=True,
                          encoding="utf-8")


class CheckLanguage(unittest.TestCase):
    def changed(self, *changes, name="english.lng"):
        """What is said of English with pieces of its bytes exchanged."""
        content = (ROOT / "data/lngmorlene/english.lng").read_bytes()
        for old, new in changes:
            self.assertIn(old, content)
            content = content.replace(old, new, 1)
        with tempfile.TemporaryDirectory() as folder:
            file = pathlib.Path(folder) / name
            file.write_bytes(content)
            return check(file)

    def assert_fault(self, fault, *changes):
        result = self.changed(*changes)
        self.assertIn("english.lng: " + fault, result.stdout.split("\nSentences")[0])
        self.assertEqual(result.returncode, 1)

    def test_the_shipped_files_pass(self):
        self.assertEqual(len(LANGUAGES), 5)
        for file in LANGUAGES:
            with self.subTest(file.name):
                result = check(file, "--faults-only")
                self.assertEqual(result.stdout, "")
                self.assertEqual(result.stderr, "")
                self.assertEqual(result.returncode, 0)

    def test_a_missing_text_is_found(self):
        self.assert_fault("[Strings] 0007: missing", (b'0007="The roof is"\r\n', b""))
        self.assert_fault("[Strings] 0007: missing", (b"The roof is", b" "))
        self.assert_fault("[FormEs1] mnuSt.Caption: missing", (b"[FormEs1]", b"[FormEs1x]"))
        self.assert_fault("[Voci] FormInfo.Image1: missing", (b"FormInfo.Image1=", b";"))

    def test_what_is_unknown_is_found(self):
        self.assert_fault("[Strings] 0106: unknown, there is no such text",
                          (b"[Strings]\r\n", b'[Strings]\r\n0106="x"\r\n'))
        self.assert_fault("[FormEs1x]: unknown, there is no such window", (b"[FormEs1]", b"[FormEs1x]"))
        self.assert_fault("[FormMenu] mnuHelp.Caption: unknown, there is no control mnuHelp",
                          (b"mnuInfo.Caption", b"mnuHelp.Caption"))
        self.assert_fault("[FormMenu] mnuInfo.Tag: unknown, it has no such text",
                          (b"mnuInfo.Caption", b"mnuInfo.Tag"))
        self.assert_fault("[Voci] FormAll.Image1: unknown, there is no window FormAll",
                          (b"FormInfo.Image1", b"FormAll.Image1"))
        self.assert_fault("[Voci] FormInfo.Image2: unknown, there is no control Image2",
                          (b"FormInfo.Image1", b"FormInfo.Image2"))

    def test_letters_of_another_code_are_found(self):
        self.assert_fault("line 1: is UTF-8, not Windows-1252", (b"English texts", "é".encode()))
        self.assert_fault("line 1: byte 81 is no letter of Windows-1252", (b"English texts", b"\x81"))
        self.assert_fault("line 1: byte 09 is no letter of Windows-1252", (b"English texts", b"\t"))
        self.assert_fault("begins with a byte order mark", (b"; MorleneKVT", b"\xef\xbb\xbf; M"))

    def test_lines_of_another_form_are_found(self):
        self.assert_fault('line 8: is no KEY="text"', (b'0001="', b'0001 = "'))
        self.assert_fault("line 8: does not end in CR LF", (b'running."\r\n', b'running."\n'))
        self.assert_fault("line 9: 0001 stands twice in [Strings]", (b"0002=", b"0001="))

    def test_a_text_too_long_to_be_read_is_found(self):
        self.assert_fault("[Strings] 0001: 600 letters, 511 are read",
                          (b"MorleneKVT is already running.", b"x" * 600))

    def test_a_file_too_large_is_found(self):
        size = len((ROOT / "data/lngmorlene/english.lng").read_bytes()) + 70002
        self.assert_fault(f"{size} bytes: 64000 or more",
                          (b"[Strings]", b"x" * 70000 + b"\r\n[Strings]"))

    def test_blanks_are_counted(self):
        self.assert_fault("[Strings] 0007: has a blank too many", (b'"The roof is"', b'"The roof is "'))
        self.assert_fault("[Strings] 0082: must end in one blank", (b'true: that "', b'true: that"'))

    def test_the_technical_name_stays(self):
        self.assert_fault("[Strings] 0103: is a technical name", (b"QualeColore", b"QualeColour"))

    def test_the_titles_agree(self):
        self.assert_fault("[FormMenu] Command1(6).Caption: not made of its pieces",
                          (b'0064="out"', b'0064="outs"'))
        self.assert_fault("[FormMenu] Command1(0).Caption: not the title 0065 of the log",
                          (b'0065="True or false"', b'0065="True?"'))

    def test_a_long_text_is_remarked_on_and_no_fault(self):
        result = self.changed((b'CheckSuoni.Caption="Play', b'CheckSuoni.Caption="' + b"Play " * 40))
        self.assertIn("remark: [FormConfigura] CheckSuoni.Caption: perhaps too long", result.stdout)
        self.assertEqual(result.returncode, 0)
        result = self.changed((b'0014="the same"', b'0014="indistinguishable"'))
        self.assertIn("remark: [Strings] 0014: perhaps too long", result.stdout)

    def test_a_key_of_two_menus_is_remarked_on(self):
        result = self.changed((b'mnuSt.Caption="&Print"', b'mnuSt.Caption="P&lay"'))
        self.assertIn("remark: [FormEs1] mnuSt.Caption: Alt+L is also that of mnuLivelli.Caption",
                      result.stdout)
        self.assertEqual(result.returncode, 0)

    def test_the_sentences_are_those_that_the_program_makes(self):
        for file in LANGUAGES:
            parts = re.split(r"\n== (\w+)\n", check(file).stdout)
            printed = dict(zip(parts[1::2], parts[2::2]))
            self.assertEqual(sorted(printed), sorted(kept.stem for kept in READ.glob("italiano/*")))
            for name, text in printed.items():
                with self.subTest(language=file.stem, exercise=name):
                    lines = (READ / file.stem / (name + ".txt")).read_text("utf-8").split("\n")
                    while lines[0].startswith("# ") and lines[0] != "# level 1":
                        lines.pop(0)
                    self.assertEqual(text.strip("\n"), "\n".join(lines).strip("\n"))

    def test_another_players_colours_are_taken(self):
        player = ROOT / "data/giocatori/Deutsch.ini"
        self.assertIn("THE ROOF IS ROT.", check(LANGUAGES[1], "--player", player).stdout)
        self.assertIn("\nThe roof is red.", check(LANGUAGES[1]).stdout)
        self.assertIn("\nThe roof is rosso.", self.changed(name="new.lng").stdout)


if __name__ == "__main__":
    unittest.main()
