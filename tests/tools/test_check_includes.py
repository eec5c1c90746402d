"""The check of the layers finds what it must, and the sources pass it."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
CHECK = ROOT / "tools" / "check_includes.py"


def check(folder):
    return subprocess.run([sys.executable, CHECK, folder], capture_output=True, text=True)


class CheckIncludes(unittest.TestCase):
    def fault(self, path, line):
        with tempfile.TemporaryDirectory() as folder:
            file = pathlib.Path(folder) / path
            file.parent.mkdir(parents=True)
            file.write_text(line + "\n", encoding="utf-8")
            result = check(folder)
            self.assertEqual(bool(result.stdout), result.returncode == 1)
            return result.stdout

    def test_the_sources_pass(self):
        result = check(ROOT / "src")
        self.assertEqual(result.stdout, "")
        self.assertEqual(result.returncode, 0)

    def test_a_layer_above_is_found(self):
        self.assertIn("core/x.cpp", self.fault("core/x.cpp", '#include "frame/levels.h"'))

    def test_the_small_windows_stand_above_the_exercises(self):
        self.assertIn("frame/x.h", self.fault("frame/x.h", '#include "support/windows/form_avvio.h"'))
        self.assertEqual(self.fault("frame/x.h", '#include "support/cls_resize.h"'), "")

    def test_main_windows_do_not_include_each_other(self):
        self.assertIn("menu/x.cpp", self.fault("menu/x.cpp", '#include "results/form.h"'))

    def test_the_toolkit_stays_in_the_platform(self):
        for line in ("#include <QWidget>", "#include <QtWidgets/QWidget>", '#include "QtWidgets"',
                     "#  include <qwidget.h>", "#include <QtCore>"):
            self.assertIn("toolkit", self.fault("menu/x.cpp", line), line)
            self.assertEqual(self.fault("platform/base/x.cpp", line), "", line)

    def test_value_types_may_pass(self):
        for name in ("QString", "QStringList", "QList", "QByteArray"):
            self.assertEqual(self.fault("core/x.h", f"#include <{name}>"), "")

    def test_a_room_above_is_found(self):
        above = '#include "platform/controls/form.h"'
        self.assertIn("files/x.cpp", self.fault("platform/files/x.cpp", above))
        self.assertIn("sound/x.cpp",
                      self.fault("platform/sound/x.cpp", '#include "platform/files/ini.h"'))
        self.assertEqual(self.fault("platform/printing/x.cpp", above), "")

    def test_files_that_know_each_other_are_found(self):
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name) / "core"
            folder.mkdir()
            for one, other in (("a.h", "b.h"), ("b.cpp", "c.h"), ("c.cpp", "a.h")):
                (folder / one).write_text(f'#include "core/{other}"\n', encoding="utf-8")
            for header in ("b.h", "c.h"):
                (folder / header).write_text("", encoding="utf-8")
            self.assertEqual(check(name).stdout,
                             "know each other in a circle: core/a, core/b, core/c\n")

    def test_a_file_outside_the_layers_is_found(self):
        self.assertIn("no layer", self.fault("misc/x.cpp", ""))


if __name__ == "__main__":
    unittest.main()
