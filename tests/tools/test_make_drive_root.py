"""The shared folder is set up in the system's language, and what is there stays."""
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
SCRIPT = ROOT / "tools" / "make_drive_root.sh"
ITALIAN = b"[Language]\r\nCurrentLanguage=italiano\r\n"
SETTINGS = "ImpostazioniProgrammiTesmi/morlenekvt"


class MakeDriveRoot(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.drive = pathlib.Path(folder.name) / "drive"
        self.program = pathlib.Path(folder.name) / "program"
        shutil.copytree(ROOT / "data/giocatori", self.program / "giocatori")
        (self.program / "lngmorlene").mkdir()
        self.setting = self.program / "lngmorlene/LangSetting.ini"
        self.setting.write_bytes(ITALIAN)
        (self.program / "indis1.ttf").write_bytes(b"font")

    def make(self, *arguments, script=SCRIPT, options=(), **variables):
        environment = {"PATH": os.environ["PATH"], **variables}
        result = subprocess.run([script, *options, self.drive, *arguments], env=environment,
                                capture_output=True, text=True)
        self.assertEqual(result.returncode, 0, result.stderr)

    def set_up(self, **variables):
        self.make(self.program, **variables)

    def players(self):
        return sorted(file.name for file in (self.drive / SETTINGS).glob("*"))

    def mode(self, path):
        return (self.drive / path).stat().st_mode & 0o7777

    def test_without_the_program_only_the_folders_are_made(self):
        self.make(LANG="en_GB.UTF-8")
        self.assertEqual(sorted(p.relative_to(self.drive).as_posix() for p in self.drive.rglob("*")),
                         ["windows", "windows/fonts"])
        self.assertEqual(self.mode("windows/fonts"), 0o1777)

    def test_italian_and_languages_that_the_program_does_not_speak_stay_italian(self):
        for name in ("it_IT.UTF-8", "it", "C", "C.UTF-8", "POSIX", "pl_PL.UTF-8", "est", "eng", ""):
            with self.subTest(name):
                shutil.rmtree(self.drive, ignore_errors=True)
                self.set_up(LANG=name)
                self.assertEqual(self.setting.read_bytes(), ITALIAN)
                # The program's own first run is to find nothing.
                self.assertFalse((self.drive / "ImpostazioniProgrammiTesmi").exists())
                self.assertEqual(list((self.drive / "windows/fonts").iterdir()), [])

    def test_each_language_has_its_file_and_its_player(self):
        for name, language, player in (
                ("en_GB.UTF-8", "english", "English"), ("en", "english", "English"),
                ("fr_CA.ISO-8859-1", "français", "Français"), ("es_MX.UTF-8", "español", "Español"),
                ("de_CH@euro", "deutsch", "Deutsch"), ("de.UTF-8", "deutsch", "Deutsch")):
            with self.subTest(name):
                shutil.rmtree(self.drive, ignore_errors=True)
                self.setting.write_bytes(ITALIAN)
                self.set_up(LANG=name)
                self.assertEqual(self.setting.read_bytes(),
                                 b"[Language]\r\nCurrentLanguage=" + language.encode("cp1252") +
                                 b"\r\n")
                self.assertTrue((ROOT / "data/lngmorlene" / (language + ".lng")).is_file())
                self.assertEqual(self.players(), sorted([player + ".ini", "_predefinito.INI"]))
                ready = (ROOT / "data/giocatori" / (player + ".ini")).read_bytes()
                for file in (self.drive / SETTINGS).iterdir():
                    self.assertEqual(file.read_bytes(), ready)

    def test_the_variables_count_in_their_order(self):
        for variables, player in (
                ({"LC_ALL": "de_DE", "LC_MESSAGES": "fr_FR", "LANG": "es_ES"}, "Deutsch.ini"),
                ({"LC_ALL": "", "LC_MESSAGES": "fr_FR", "LANG": "es_ES"}, "Français.ini"),
                ({"LC_CTYPE": "de_DE", "LANG": "es_ES"}, "Español.ini")):
            with self.subTest(player):
                shutil.rmtree(self.drive, ignore_errors=True)
                self.set_up(**variables)
                self.assertIn(player, self.players())

    def test_italian_before_another_language_holds(self):
        self.set_up(LC_ALL="it_IT.UTF-8", LANG="en_GB.UTF-8")
        self.assertEqual(self.setting.read_bytes(), ITALIAN)
        self.assertFalse((self.drive / SETTINGS).exists())

    def test_what_it_makes_belongs_to_all(self):
        self.set_up(LANG="en_GB.UTF-8")
        self.assertEqual(self.mode(SETTINGS), 0o1777)
        for name in self.players():
            self.assertEqual(self.mode(SETTINGS + "/" + name), 0o666)

    def test_a_drive_given_to_a_group_stays_the_groups(self):
        self.drive.mkdir()
        self.drive.chmod(0o2770)
        self.set_up(LANG="en_GB.UTF-8")
        self.assertEqual(self.mode(SETTINGS), 0o2770)
        self.assertEqual(self.mode(SETTINGS + "/English.ini"), 0o660)

    def test_the_font_is_there_as_after_a_first_run(self):
        self.set_up(LANG="en_GB.UTF-8")
        self.assertEqual((self.drive / "windows/fonts/indis1.ttf").read_bytes(), b"font")

    def test_a_player_that_is_there_stays(self):
        for name in ("Français.ini", "FRANÇAIS.INI", "français.Ini"):
            with self.subTest(name):
                shutil.rmtree(self.drive, ignore_errors=True)
                (self.drive / SETTINGS).mkdir(parents=True)
                (self.drive / SETTINGS / name).write_bytes(b"mine")
                self.set_up(LANG="fr_FR.UTF-8")
                self.assertEqual(self.players(), [name])
                self.assertEqual((self.drive / SETTINGS / name).read_bytes(), b"mine")

    def test_the_default_player_of_a_drive_in_use_stays(self):
        (self.drive / SETTINGS).mkdir(parents=True)
        self.set_up(LANG="de_DE.UTF-8")
        self.assertEqual(self.players(), ["Deutsch.ini"])

    def test_a_language_that_was_chosen_stays(self):
        self.set_up(LANG="en_GB.UTF-8")
        self.setting.write_bytes(ITALIAN)
        self.set_up(LANG="en_GB.UTF-8")
        self.assertEqual(self.setting.read_bytes(), ITALIAN)

    def test_an_installed_program_has_its_setting_on_the_drive(self):
        self.setting.unlink()
        self.setting.symlink_to(self.drive / "LangSetting.ini")
        for name, language in (("", b"italiano"), ("es_ES", b"espa\xf1ol")):
            with self.subTest(name):
                shutil.rmtree(self.drive, ignore_errors=True)
                self.set_up(LANG=name)
                self.assertTrue(self.setting.is_symlink())
                self.assertEqual((self.drive / "LangSetting.ini").read_bytes(),
                                 b"[Language]\r\nCurrentLanguage=" + language + b"\r\n")
                self.assertEqual(self.mode("LangSetting.ini"), 0o666)

    def test_in_use_only_the_folders_are_made_again(self):
        self.set_up(LANG="en_GB.UTF-8")
        (self.drive / SETTINGS / "English.ini").unlink()
        shutil.rmtree(self.drive / "windows/fonts")
        setting = self.setting.read_bytes()
        self.make(self.program, options=["--folders-only"], LANG="fr_FR.UTF-8")
        self.assertEqual(self.players(), ["_predefinito.INI"])
        self.assertEqual(self.setting.read_bytes(), setting)
        self.assertEqual(self.mode("windows/fonts"), 0o1777)

    def test_lying_in_the_programs_folder_it_knows_it(self):
        script = shutil.copy(SCRIPT, self.program)
        self.make(script=script, LANG="en_GB.UTF-8")
        self.assertIn("English.ini", self.players())


if __name__ == "__main__":
    unittest.main()
