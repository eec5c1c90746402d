#!/usr/bin/python3
"""Tries the tests: makes one small fault at a time in C++ sources, builds, runs the tests and says
which of them saw it. A fault that none saw is a test that is missing, or a line that does nothing.

    mutate.py --count 20 --seed 1 --build "ninja -C build/dev menu" \\
              --test "build/dev/tests/menu" src/menu/*.cpp

Each source is put back after each fault, also when the run is broken off. One line for each fault;
exit status 1 when one survived, 2 when the tests do not even pass without a fault.
"""
import argparse
import os
import random
import re
import signal
import subprocess
import sys
from dataclasses import dataclass
from pathlib import Path

SWAPPED = {"==": "!=", "!=": "==", "<": "<=", ">": ">=", "<=": "<", ">=": ">", "&&": "||", "||": "&&"}
# Lines that begin so are declarations, or say where to go on: dropping them tells nothing.
NO_STATEMENT = re.compile(r"(using|namespace|constexpr|const|auto|static|class|struct|enum|template|"
                          r"return|case|default|goto|throw|public|private|friend|inline|extern)\b")
STATEMENT = re.compile(r"[\w:.*>()\[\]-]+(\s*(\(|[-+|&]?=[^=]|\+\+|--))|(\+\+|--)\w+|break;")
WORD = r"[\w.]+(?:\(\))?"
LITERAL = re.compile(r'"(?:\\.|[^"\\\n])*"')


@dataclass(frozen=True)
class Fault:
    path: Path
    start: int
    end: int
    text: str  # in the place of what stands there
    kind: str

    def line(self, source):
        return source.count("\n", 0, self.start) + 1

    def applied(self, source):
        return source[:self.start] + self.text + source[self.end:]


def blanked(text):
    """As long as `text`, line ends kept, so that places stay the same."""
    return re.sub(r"[^\n]", " ", text)


def without_comments(source):
    """Comments, includes and the like, compile-time checks and letters in quotes are blanked, and
    what stands inside strings; their quotes stay."""
    token = re.compile(
        r'(?P<comment>//[^\n]*|/\*.*?\*/)|(?P<raw>R"(?P<mark>[^(\s]*)\(.*?\)(?P=mark)")'
        r'|(?P<string>"(?:\\.|[^"\\\n])*")|(?P<letter>(?<![0-9a-fA-F])\'(?:\\.|[^\'\\\n])+\')'
        r"|(?P<hash>^[ \t]*#(?:[^\n]*\\\n)*[^\n]*)|(?P<check>\bstatic_assert\b[^;]*;)",
        re.DOTALL | re.MULTILINE)

    def mask(match):
        if match.lastgroup == "string" or match.group("string"):
            return '"' + " " * (len(match.group()) - 2) + '"'
        return blanked(match.group())

    return token.sub(mask, source)


def constants(source, masked):
    for match in re.finditer(r"(?<![\w.])(0[xX][0-9a-fA-F]+|\d+)(?=[^\w.]|\.\d|\.\B)", masked):
        number = match.group()
        if number[:2] in ("0x", "0X"):
            yield match.start(), match.end(), f"0x{int(number, 16) ^ 1:0{len(number) - 2}X}"
        elif number == "0" or number[0] != "0":
            yield match.start(), match.end(), str(int(number) + 1)
    for match in re.finditer(r"\b(true|false)\b", masked):
        yield match.start(), match.end(), "false" if match.group() == "true" else "true"
    for match in LITERAL.finditer(masked):
        inside = source[match.start() + 1:match.end() - 1]
        # An include in disguise, or an escape at the end, is not worth the trouble.
        if inside and not inside.endswith("\\"):
            yield match.end() - 1, match.end() - 1, "~"


def comparisons(_, masked):
    for match in re.finditer(r" (==|!=|<=|>=|<|>|&&|\|\|) ", masked):
        yield match.start(1), match.end(1), SWAPPED[match.group(1)]
    for match in re.finditer(r"(?<=[(\s])!(?=[\w(])", masked):
        yield match.start(), match.end(), ""
    for match in re.finditer(r"(?<=[\w)]) ([+-]) (?=\d)", masked):
        yield match.start(1), match.end(1), "-" if match.group(1) == "+" else "+"


def dropped_statements(_, masked):
    lines = masked.split("\n")
    starts = [0]
    for line in lines:
        starts.append(starts[-1] + len(line) + 1)
    before = "{"
    for number, line in enumerate(lines):
        text = line.strip()
        follows = before[-1:] in "{};:)" or before.endswith("else")
        if text:
            before = text
        if not follows or not line.startswith("    ") or NO_STATEMENT.match(text):
            continue
        if not STATEMENT.match(text):
            continue
        # Up to the line that ends it, if that comes soon.
        for last in range(number, min(number + 6, len(lines))):
            whole = "\n".join(lines[number:last + 1]).strip()
            if whole.endswith(";") and all(whole.count(a) == whole.count(b)
                                           for a, b in ("()", "{}", "[]")):
                start = starts[number] + len(line) - len(line.lstrip())
                yield start, start + len(whole), ";"
                break


def swapped_arguments(source, masked):
    one = rf'(?:{WORD}|"[ ]*")'
    for match in re.finditer(rf"\w\(({one}), ({one})\)(?!\s*[:{{])", masked):
        first, second = source[slice(*match.span(1))], source[slice(*match.span(2))]
        if first != second:
            yield match.start(1), match.end(2), f"{second}, {first}"


KINDS = {"constant": constants, "comparison": comparisons, "dropped": dropped_statements,
         "swapped": swapped_arguments}


def faults_in(path, source):
    masked = without_comments(source)
    for kind, find in KINDS.items():
        for start, end, text in find(source, masked):
            yield Fault(path, start, end, text, kind)


def drawn(faults, generator):
    """All of them in a drawn order, each kind as likely as the others, so that constants, of which
    there are most, do not stand for all."""
    by_kind = {kind: [fault for fault in faults if fault.kind == kind] for kind in KINDS}
    for of_kind in by_kind.values():
        generator.shuffle(of_kind)
    while any(by_kind.values()):
        yield by_kind[generator.choice([kind for kind in KINDS if by_kind[kind]])].pop()


def run(command, seconds):
    """Status and output of a shell command; nothing for the status of one that does not end."""
    with subprocess.Popen(command, shell=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          text=True, errors="replace", start_new_session=True,
                          # A crash need not be explained, which may take longer than all tests.
                          env=dict(os.environ, QTEST_DISABLE_STACK_DUMP="1")) as process:
        try:
            output, _ = process.communicate(timeout=seconds)
            return process.returncode, output
        except BaseException as error:
            # The shell's children go with it.
            subprocess.run(["kill", "-KILL", "--", f"-{process.pid}"], check=False)
            process.communicate()
            if isinstance(error, subprocess.TimeoutExpired):
                return None, ""
            raise


def verdict(build, tests, seconds):
    status, _ = run(build, None)
    if status != 0:
        return "did not compile"
    for test in tests:
        status, output = run(test, seconds)
        if status == 0:
            continue
        failed = list(dict.fromkeys(re.findall(r"^FAIL!\s*: ([\w:]+)", output, re.MULTILINE)))
        if failed:
            more = f" and {len(failed) - 3} more" if len(failed) > 3 else ""
            return "killed by " + ", ".join(failed[:3]) + more
        return f"killed by {test}: " + ("no end" if status is None else f"status {status}")
    return "survived"


def described(fault, source):
    where = f"{fault.path}:{fault.line(source)}: {fault.kind}: "
    line = source[source.rfind("\n", 0, fault.start) + 1:]
    line = line[:line.find("\n")].strip()
    old = " ".join(source[fault.start:fault.end].split())
    return where + (f"`{old}`" if fault.kind == "dropped"
                    else f"`{old}` -> `{fault.text}` in `{line}`")


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("files", nargs="+", type=Path, help="C++ sources to make faults in")
    parser.add_argument("--build", required=True, help="command that builds what the tests need")
    parser.add_argument("--test", required=True, action="append",
                        help="command that runs tests; may be given again")
    parser.add_argument("--count", type=int, default=10, help="faults that compile")
    parser.add_argument("--seed", type=int, default=1, help="the same seed draws the same faults")
    parser.add_argument("--seconds", type=float, default=120, help="a test that runs longer fails")
    parser.add_argument("--list", action="store_true", help="only say what could be tried")
    options = parser.parse_args()

    sources = {path: path.read_text(encoding="utf-8") for path in options.files}
    faults = [fault for path, source in sources.items() for fault in faults_in(path, source)]
    order = drawn(faults, random.Random(options.seed))
    if options.list:
        for fault in order:
            print(described(fault, sources[fault.path]))
        return 0
    # A run that is told to end puts its file back first.
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    without = verdict(options.build, options.test, options.seconds)
    if without != "survived":
        print(f"without any fault: {without}", file=sys.stderr)
        return 2
    counts = {"killed": 0, "survived": 0, "did not compile": 0}
    for fault in order:
        if counts["killed"] + counts["survived"] >= options.count:
            break
        source = sources[fault.path]
        fault.path.write_text(fault.applied(source), encoding="utf-8")
        try:
            found = verdict(options.build, options.test, options.seconds)
        finally:
            fault.path.write_text(source, encoding="utf-8")
        counts["killed" if found.startswith("killed") else found] += 1
        print(f"{described(fault, source)}: {found}", flush=True)
    run(options.build, None)
    print(", ".join(f"{number} {what}" for what, number in counts.items()))
    return 1 if counts["survived"] else 0


if __name__ == "__main__":
    sys.exit(main())
