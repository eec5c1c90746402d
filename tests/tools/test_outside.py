"""The hand that works the program from outside presses again what went lost, and nothing else."""
import pathlib
import sys
import time
import unittest
from unittest import mock

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tools/outside"))
import desktop  # noqa: E402


class LateProgram(desktop.Program):
    """One whose window changes at a press that reached it, and is found a while after."""

    def __init__(self, lost=0, found_after=0.0):
        self.lost = lost  # presses that come before the window has the keyboard
        self.found_after = found_after  # seconds
        self.pressed = 0
        self.came = None

    def windows(self):
        return [("FormAvvio" if self.came is None else "FormMenu", "MorleneKVT")]

    def key(self, name):
        self.pressed += 1
        if self.pressed > self.lost and self.came is None:
            self.came = time.monotonic()

    def found(self):
        return self.came is not None and time.monotonic() - self.came >= self.found_after


@mock.patch.object(desktop, "LOST", 0.05)
class KeyUntil(unittest.TestCase):
    def test_a_key_that_went_lost_is_pressed_again(self):
        program = LateProgram(lost=2)
        program.key_until("Return", "the menu", program.found)
        self.assertEqual(program.pressed, 3)

    def test_a_window_that_came_but_is_not_found_yet_gets_no_second_press(self):
        program = LateProgram(found_after=0.2)
        program.key_until("Return", "the menu", program.found)
        self.assertEqual(program.pressed, 1)

    def test_what_never_comes_is_told(self):
        program = LateProgram(lost=99)
        with self.assertRaisesRegex(desktop.Failure, "the menu never came by Return"):
            program.key_until("Return", "the menu", program.found)


if __name__ == "__main__":
    unittest.main()
