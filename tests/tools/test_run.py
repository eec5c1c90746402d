"""What `./run` answers to words behind its name, before it installs or builds anything."""
import pathlib
import subprocess
import unittest

RUN = pathlib.Path(__file__).resolve().parents[2] / "run"


def run(*words):
    return subprocess.run([RUN, *words], capture_output=True, text=True, timeout=20)


class Run(unittest.TestCase):
    def test_what_it_does_not_know_is_named_with_the_usage(self):
        for named, words in (
                ("--nonsense", ["--nonsense"]), ("pictures", ["pictures"]),
                ("--pictures", ["--pictures"]), ("--pictures", ["--pictures", ""]),
                ("--size", ["--pictures", "folder", "--size"]),
                ("800x", ["--pictures", "folder", "--size", "800x"]),
                ("640x480", ["--pictures", "folder", "--size", "640x480"]),
                ("klingon", ["--pictures", "folder", "--language", "klingon"]),
                ("gothic", ["--pictures", "folder", "--lettering", "gothic"]),
                ("--size", ["--size", "800x600"]),
                ("--language", ["--language", "english"]),
                ("--build-only", ["--build-only", "--pictures", "folder"])):
            with self.subTest(words):
                done = run(*words)
                self.assertEqual((done.returncode, done.stdout), (2, ""))
                first, *usage = done.stderr.splitlines()
                self.assertIn(named, first)
                self.assertIn("./run --pictures FOLDER", "\n".join(usage))

    def test_help_names_every_word(self):
        done = run("--help")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        for word in ("--build-only", "--pictures", "--size", "--language", "--lettering", "small",
                     "capitals", "cursive"):
            self.assertIn(word, done.stdout)
        self.assertNotIn("set -eu", done.stdout)


if __name__ == "__main__":
    unittest.main()
