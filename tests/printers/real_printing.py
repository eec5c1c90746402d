#!/usr/bin/env python3
"""Measures what a teacher gets on paper: a private printing system keeps each document as it goes to
the printer, and its pages are looked at as pictures. Also that no state of the printing system ever
keeps the program waiting.

Usage: real_printing.py PRINT_PROGRAM APPLICATION_FOLDER [TestCase.test ...]
Needs the packages cups-daemon, cups-core-drivers, cups-filters-core-drivers, cups-client,
poppler-utils and python3-pil.
"""
import json
import subprocess
import sys
import unittest

from PIL import Image, ImageChops

from printing_system import PrintingSystem, wait_for
from relay import Relay

PRINT_PROGRAM = ""
APPLICATION_FOLDER = ""
DOTS = 300  # an inch
MM_PER_INCH = 25.4
EXACT = 0.5  # mm
LONGEST_WAIT = 1000  # ms that a person may wait for a printing system that does not answer
MARGINS = (20, 30, 10, 50)  # points: left, bottom, right, top of the upright sheet
LONGEST_START = 6000  # the same for one that may just be starting
MOST_REQUESTS = 12  # of the first print, with all that the dialog asks
LONGEST_HAND_OVER = 31000  # ms until a document is given up
NOT_PRINTED = (" Errore in frmStampaFPB/Print_Form|Il Form non viene stampato.\n"
               "R1 = 1\nR2 = 400\nR3 = 1\nR4 = 0")
DEFAULT_MISSING = " Errore in frmStampaFPB/GetDefPrinterName|Stampante di default non specificata."


def millimetres(points):
    return points * MM_PER_INCH / 72


class Page:
    """A page as a picture, measured in millimetres from its upper left corner."""

    def __init__(self, path):
        target = path.with_suffix("")
        subprocess.run(["pdftoppm", "-r", str(DOTS), "-png", "-singlefile", str(path), str(target)],
                       check=True)
        with Image.open(target.with_suffix(".png")) as picture:
            self.picture = picture.convert("RGB")
        self.width, self.height = (side * MM_PER_INCH / DOTS for side in self.picture.size)

    @staticmethod
    def box(mask):
        """(left, top, right, bottom) of what is not black."""
        found = mask.getbbox()
        return found and tuple(side * MM_PER_INCH / DOTS for side in found)

    def channels(self, *limits):
        """White where each channel lies within its limits."""
        return [channel.point(lambda value, low=low, high=high: 255 if low < value < high else 0)
                for channel, (low, high) in zip(self.picture.split(), limits)]

    def printed(self, lightest=200):
        red, green, blue = self.channels(*[(-1, lightest)] * 3)
        return self.box(ImageChops.lighter(ImageChops.lighter(red, green), blue))

    def longest_lines(self):
        """Millimetres of dark on the darkest row and on the darkest column."""
        dark = self.picture.convert("L").point(lambda value: 255 if value < 128 else 0)
        row = dark.resize((1, dark.height), Image.BOX).getextrema()[1]
        column = dark.resize((dark.width, 1), Image.BOX).getextrema()[1]
        return row / 255 * self.width, column / 255 * self.height

    def green(self):
        red, green, blue = self.channels((-1, 100), (90, 170), (-1, 100))
        return self.box(ImageChops.darker(ImageChops.darker(red, green), blue))


class RealPrinting(unittest.TestCase):
    def setUp(self):
        system = PrintingSystem()
        self.system = system.__enter__()
        self.addCleanup(system.__exit__)
        self.relay = None
        self.program = None
        self.addCleanup(self.stop_program)

    def stop_program(self):
        if self.program:
            self.program.stdin.close()
            self.assertEqual(self.program.wait(20), 0)
            self.program.stdout.close()

    def start_program(self):
        environment = {**self.system.environment, "QT_QPA_PLATFORM": "offscreen"}
        if self.relay:
            environment["CUPS_SERVER"] = f"127.0.0.1:{self.relay.port}"
        self.program = subprocess.Popen(
            [PRINT_PROGRAM, APPLICATION_FOLDER], env=environment, text=True, encoding="utf-8",
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)

    def do(self, line):
        """The program's answer; nobody waits too long for it."""
        if not self.program:
            self.start_program()
        self.program.stdin.write(line + "\n")
        self.program.stdin.flush()
        return json.loads(self.program.stdout.readline())

    def do_at_once(self, line):
        said = self.do(line)
        self.assertLess(said["milliseconds"], LONGEST_WAIT, line)
        return said

    def assert_box(self, found, expected):
        self.assertIsNotNone(found)
        for side, wanted in zip(found, expected):
            self.assertAlmostEqual(side, wanted, delta=EXACT, msg=f"{found} for {expected}")

    def message(self, key):
        """A text of the program's own language, in the letters of its file."""
        with open(APPLICATION_FOLDER + "lngmorlene/italiano.lng", encoding="cp1252") as file:
            for line in file:
                if line.startswith(key + "="):
                    return line.strip().split("=", 1)[1].strip('"')
        return ""

    # --- Place and size ---

    def test_an_upright_window_lies_where_it_was_put(self):
        self.system.add_printer("Stampante", MARGINS)
        self.assertEqual(self.do("window 1 1 no go Età e colori")["boxes"], [])
        (path, title), = self.system.await_documents(1)
        self.assertEqual(title, "Età e colori")
        page = Page(path)
        left, top = millimetres(MARGINS[0]) + 10, millimetres(MARGINS[3]) + 10
        self.assert_box(page.printed(), (left, top, left + 100, top + 100))
        # The picture in the window begins at a quarter of it and is a quarter wide.
        self.assert_box(page.green(), (left + 25, top + 25, left + 50, top + 50))

    def test_a_window_across_lies_where_it_was_put_on_the_turned_sheet(self):
        self.system.add_printer("Stampante", MARGINS)
        self.do("window 2 1 no go")
        (path, _), = self.system.await_documents(1)
        page = Page(path)
        # The sheet comes out upright, turned to the left: its left side is the page's top.
        left, bottom = millimetres(MARGINS[0]) + 10, page.height - millimetres(MARGINS[1]) - 10
        self.assert_box(page.printed(), (left, bottom - 100, left + 100, bottom))
        self.assert_box(page.green(), (left + 25, bottom - 50, left + 50, bottom - 25))

    def test_a_picture_and_a_sheet_without_margins(self):
        self.system.add_printer("Stampante")
        self.assertEqual(self.do("sheet 1")["sheet"], [210, 297])
        self.assertEqual(self.do("sheet 2")["sheet"], [297, 210])
        self.do("picture 1 1 no go")
        (path, title), = self.system.await_documents(1)
        self.assertEqual(title, "")
        self.assert_box(Page(path).green(), (10, 10, 110, 110))

    def test_three_copies_are_three_documents(self):
        self.system.add_printer("Stampante")
        self.do("window 1 3 no go Tre")
        documents = self.system.await_documents(3)
        self.assertEqual([title for _, title in documents], ["Tre"] * 3)
        for path, _ in documents:
            said = subprocess.run(["pdfinfo", path], capture_output=True, text=True, check=True)
            self.assertRegex(said.stdout, r"Pages: +1\n")
            self.assert_box(Page(path).printed(), (10, 10, 110, 110))

    def test_a_quick_print_begins_at_the_corner_at_the_screens_size(self):
        self.system.add_printer("Stampante", MARGINS)
        self.assertEqual(self.do("quick")["boxes"], [])
        (path, _), = self.system.await_documents(1)
        left, top = millimetres(MARGINS[0]), millimetres(MARGINS[3])
        side = 400 * MM_PER_INCH / 96
        self.assert_box(Page(path).printed(), (left, top, left + side, top + side))

    def test_a_long_report_goes_on_over_its_pages(self):
        self.system.add_printer("Stampante", MARGINS)
        self.assertEqual(len(self.do("report 500")["boxes"]), 2)
        (path, title), = self.system.await_documents(1)
        self.assertIn("Niccolò", title)
        text = subprocess.run(["pdftotext", "-layout", path, "-"], capture_output=True, check=True,
                              encoding="utf-8").stdout
        pages = text.strip("\f\n").split("\f")
        self.assertGreater(len(pages), 10)
        self.assertIn("perché così è più bello", pages[0])
        for page in pages:
            self.assertIn("Esercizio", page)
        self.assertIn("Trova l'intrusa: età, città", pages[0])
        self.assertIn("499", pages[-1])
        # The frame of the table runs across and down the first page.
        page = Page(path)
        row, column = page.longest_lines()
        self.assertGreater(row, page.width * 0.7)
        self.assertGreater(column, page.height * 0.6)

    def test_a_document_that_is_not_ended_never_comes(self):
        self.system.add_printer("Stampante")
        self.do_at_once("abandon")
        self.do("window 1 1 no go Dopo")
        self.stop_program()
        self.program = None
        self.assertEqual([title for _, title in self.system.await_documents(1)], ["Dopo"])

    # --- Printing systems that fail ---

    def test_without_a_printer_there_is_a_box(self):
        self.assertEqual(self.do_at_once("printers")["printers"], [])
        self.assertEqual(self.do_at_once("window 1 1 no go")["boxes"], [DEFAULT_MISSING])
        self.assertEqual(self.do_at_once("quick")["boxes"], ["|" + self.message("0098")])
        self.assertEqual(self.do_at_once("report 3")["boxes"][-1],
                         "Morlenekvt|" + self.message("0098"))

    def test_without_the_printing_system_there_is_a_box(self):
        self.system.add_printer("Stampante")
        self.system.stop()
        self.assertEqual(self.do_at_once("window 1 1 no go")["boxes"], [DEFAULT_MISSING])

    def test_a_frozen_printing_system_keeps_nobody_waiting_and_is_found_again(self):
        self.system.add_printer("Stampante")
        self.assertEqual(self.do("printers")["printers"], ["Stampante"])
        self.system.freeze()
        self.assertEqual(self.do_at_once("window 1 1 no go")["boxes"], [DEFAULT_MISSING])
        self.do_at_once("printers")
        self.assertEqual(self.do_at_once("quick")["boxes"], ["|" + self.message("0098")])
        self.system.thaw()
        wait_for("the printers", lambda: self.do("printers")["printers"], 20)
        self.assertEqual(self.do("window 1 1 no go Dopo")["boxes"], [])
        (_, title), = self.system.await_documents(1)
        self.assertEqual(title, "Dopo")

    def hold(self):
        """The dialog is open."""
        self.assertTrue(self.do("window 1 1 no hold Sospesa")["open"])

    def test_a_system_that_freezes_behind_the_dialog_is_told_and_nothing_comes_later(self):
        self.system.add_printer("Stampante")
        self.hold()
        self.system.freeze()
        said = self.do("")
        self.assertEqual(said["boxes"], [NOT_PRINTED])
        self.assertLess(said["milliseconds"], LONGEST_HAND_OVER)
        self.system.thaw()
        wait_for("the printers", lambda: self.do("printers")["printers"], 20)
        wait_for("an empty queue", lambda: not self.system.jobs_left())
        self.assertEqual(self.system.documents(), [])
        # The next one is a print like any other.
        self.assertEqual(self.do("window 1 1 no go Dopo")["boxes"], [])
        (_, title), = self.system.await_documents(1)
        self.assertEqual(title, "Dopo")

    def test_a_printer_removed_behind_the_dialog_is_told(self):
        self.system.add_printer("Stampante")
        self.hold()
        self.system.remove_printer("Stampante")
        self.assertEqual(self.do_at_once("")["boxes"], [NOT_PRINTED])

    def test_a_printer_that_takes_no_documents_is_told(self):
        self.system.add_printer("Stampante")
        self.system.tool("cupsreject", "Stampante")
        self.assertEqual(self.do_at_once("window 1 2 no go")["boxes"], [NOT_PRINTED])

    # --- Printing systems that are slow ---

    def slow(self, **late):
        """The printing system is behind a relay from now on."""
        self.system.add_printer("Stampante", MARGINS)
        self.relay = Relay(self.system.port)
        for name, seconds in late.items():
            setattr(self.relay, name, seconds)
        self.relay.__enter__()
        self.addCleanup(self.relay.__exit__)

    def assert_printed(self, title):
        self.assertEqual(self.do(f"window 1 1 no go {title}")["boxes"], [])
        self.assertEqual([found for _, found in self.system.await_documents(1)], [title])

    def test_with_every_answer_late_all_is_printed_as_ever(self):
        self.slow(answers_late=0.1)
        self.assert_printed("Lenta")
        (path, _), = self.system.documents()
        left, top = millimetres(MARGINS[0]) + 10, millimetres(MARGINS[3]) + 10
        self.assert_box(Page(path).printed(), (left, top, left + 100, top + 100))
        self.assertEqual(self.do("printers")["printers"], ["Stampante"])
        self.assertEqual(self.do("sheet 1")["sheet"],
                         [round(210 - millimetres(MARGINS[0] + MARGINS[2])),
                          round(297 - millimetres(MARGINS[1] + MARGINS[3]))])
        self.assertEqual(self.do("quick")["boxes"], [])
        self.assertEqual(len(self.do("report 3")["boxes"]), 2)
        self.system.await_documents(3)

    def test_a_print_asks_few_times(self):
        self.slow()
        self.assert_printed("Prima")
        self.assertLess(self.relay.requests, MOST_REQUESTS)

    def test_a_first_answer_that_is_late_fails_no_print(self):
        self.slow(first_answer_late=1.5)
        self.assert_printed("Prima")

    def test_a_late_answer_to_the_document_fails_no_print(self):
        for late in (1.5, 5):
            with self.subTest(late):
                self.system.clear()
                if not self.relay:
                    self.slow()
                self.relay.document_answer_late = late
                said = self.do(f"window 1 1 no go Lenta {late}")
                self.assertEqual(said["boxes"], [])
                self.assertGreater(said["milliseconds"], 1000 * late)
                self.assertEqual([title for _, title in self.system.await_documents(1)],
                                 [f"Lenta {late}"])

    def test_a_document_that_is_given_up_is_cancelled(self):
        self.slow(document_answer_late=1000)
        self.system.tool("cupsdisable", "Stampante")
        said = self.do("window 1 1 no go Persa")
        self.assertEqual(said["boxes"], [NOT_PRINTED])
        self.assertLess(said["milliseconds"], LONGEST_HAND_OVER)
        wait_for("an empty queue", lambda: not self.system.jobs_left())
        self.system.tool("cupsenable", "Stampante")
        self.assert_printed("Dopo")

    def test_what_is_frozen_from_the_start_is_told_once_and_then_at_once(self):
        self.slow()
        self.relay.freeze()
        said = self.do("window 1 1 no go Persa")
        self.assertEqual(said["boxes"], [DEFAULT_MISSING])
        self.assertLess(said["milliseconds"], LONGEST_START)
        self.assertEqual(self.do_at_once("window 1 1 no go Persa")["boxes"], [DEFAULT_MISSING])
        self.relay.thaw()
        wait_for("the printers", lambda: self.do("printers")["printers"], 20)
        self.assert_printed("Dopo")


if __name__ == "__main__":
    PRINT_PROGRAM, APPLICATION_FOLDER = sys.argv[1:3]
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]], verbosity=2)
