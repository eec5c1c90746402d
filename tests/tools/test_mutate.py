"""The program that tries the tests makes the faults it says, tells who saw them and puts the source
back."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

TOOL = pathlib.Path(__file__).resolve().parents[2] / "tools" / "mutate.py"

SOURCE = """\
#include "three/3.h"
// A comment: if (a == 4) drop();
static_assert(5 == 5, "never");
int f(int a, int b)
{
    const char *text = "say 1 == 1"; /* and 6 */
    if (a == b)
        g(a, b);
    return 7;
}
"""


class Mutate(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.file = pathlib.Path(folder.name) / "f.cpp"
        self.file.write_text(SOURCE, encoding="utf-8")

    def run_tool(self, *options, build="true", test="true"):
        result = subprocess.run([sys.executable, TOOL, "--build", build, "--test", test, *options,
                                 self.file], capture_output=True, text=True)
        self.assertEqual(self.file.read_text(encoding="utf-8"), SOURCE)
        return result

    def test_faults_are_made_in_code_alone(self):
        listed = self.run_tool("--list").stdout
        lines = sorted(line.split(": ", 1)[1] for line in listed.splitlines())
        self.assertEqual(lines, [
            'comparison: `==` -> `!=` in `if (a == b)`',
            'constant: `7` -> `8` in `return 7;`',
            'constant: `` -> `~` in `const char *text = "say 1 == 1"; /* and 6 */`',
            'dropped: `g(a, b);`',
            'dropped: `if (a == b) g(a, b);`',
            'swapped: `a, b` -> `b, a` in `g(a, b);`',
        ])

    def test_a_fault_that_a_test_sees_is_killed(self):
        result = self.run_tool("--count", "6", test=f"grep -q 'return 7' {self.file}")
        self.assertIn("return 7;`: killed by grep", result.stdout)
        self.assertIn("1 killed, 5 survived, 0 did not compile", result.stdout)
        self.assertEqual(result.returncode, 1)

    def test_the_names_of_tests_are_told(self):
        say = "printf 'FAIL!  : TestX::thatIsSo(row) no\\n'; false"
        result = self.run_tool("--count", "9", test=f"grep -q 'return 7' {self.file} || {{ {say}; }}")
        self.assertIn("killed by TestX::thatIsSo\n", result.stdout)

    def test_what_does_not_compile_counts_apart(self):
        result = self.run_tool("--count", "9", build=f"grep -q 'return 7' {self.file}", test="true")
        self.assertIn("5 survived, 1 did not compile", result.stdout)

    def test_a_test_that_does_not_end_has_seen_the_fault(self):
        result = self.run_tool("--count", "6", "--seconds", "0.5",
                               test=f"grep -q 'return 7' {self.file} || sleep 60")
        self.assertIn("no end", result.stdout)

    def test_the_same_seed_draws_the_same(self):
        draws = [self.run_tool("--list", "--seed", seed).stdout for seed in ("4", "4", "5")]
        self.assertEqual(draws[0], draws[1])
        self.assertNotEqual(draws[0], draws[2])

    def test_tests_that_fail_without_a_fault_end_the_run(self):
        result = self.run_tool(test="false")
        self.assertEqual(result.returncode, 2)
        self.assertEqual(result.stdout, "")


if __name__ == "__main__":
    unittest.main()
