"""The real program where it shows no window: without a screen, and with words behind its name.

    alone command_line.py PROGRAM VERSION
"""
import os
import subprocess
import sys
import tempfile

from desktop import Failure, wait_for
from steps import SETTINGS, fresh_drive

SCREENS = ("DISPLAY", "WAYLAND_DISPLAY", "WAYLAND_SOCKET", "QT_QPA_PLATFORM", "XDG_SESSION_TYPE")


def without_a_screen(**more):
    environment = {name: value for name, value in os.environ.items() if name not in SCREENS}
    return {**environment, **more}


def run(executable, *words, **more):
    """Status, standard output and standard error."""
    done = subprocess.run([executable, *words], env=without_a_screen(**more), timeout=30,
                          capture_output=True, text=True, check=False)
    return done.returncode, done.stdout, done.stderr


def expect(what, found, good):
    if not good:
        raise Failure(f"{what}: {found}")


def the_lack_of_a_screen_is_told_in_one_sentence(executable):
    for more in ({}, {"DISPLAY": ":9999"}, {"DISPLAY": ""}, {"WAYLAND_DISPLAY": "none"},
                 {"QT_QPA_PLATFORM": "xcb"}, {"QT_QPA_PLATFORM": "wayland;xcb"}):
        found = status, output, error = run(executable, **more)
        expect(more, found, status == 3 and output == "" and error.count("\n") == 1 and
               error.endswith("\n"))
        expect(more, found, "schermo" in error and "xvfb-run" in error and
               not any(word in error.lower() for word in ("plugin", "reinstall")))


def a_platform_that_is_not_there_is_named(executable):
    for name in ("nonsense", "nonsense;other"):
        found = status, output, error = run(executable, QT_QPA_PLATFORM=name)
        expect(name, found, status == 3 and output == "" and error.count("\n") == 1 and
               name in error and "plugin" not in error.lower())


def words_are_answered_without_a_screen(executable, version):
    for word in ("--version", "-v"):
        found = run(executable, word)
        expect(word, found, found == (0, f"morlenekvt {version}\n", ""))
    for word in ("--help", "-h"):
        found = status, output, error = run(executable, word)
        expect(word, found, status == 0 and error == "" and "--version" in output and
               "--help" in output)
    for words in (["--nonsense"], ["file.ini"], ["-"], ["--nonsense", "--version"]):
        found = status, output, error = run(executable, *words)
        expect(words, found, status == 2 and output == "" and error.count("\n") == 1 and
               words[0] in error)


def comes_up(what, executable, drive, environment, *words):
    """The program stays, and makes the folder of a first start."""
    fresh_drive(drive)
    with tempfile.TemporaryFile() as errors:
        program = subprocess.Popen([executable, *words], env=environment, stderr=errors)
        try:
            wait_for(what, lambda: os.path.exists(
                os.path.join(drive, SETTINGS)) or
                program.poll() is not None)
            errors.seek(0)
            expect(what, (program.poll(), errors.read()), program.poll() is None)
        finally:
            program.kill()
            program.wait()


def screens_that_need_no_server_are_taken(executable, drive):
    comes_up("off screen", executable, drive, without_a_screen(QT_QPA_PLATFORM="offscreen"))


def a_server_of_its_own_is_enough(executable, drive):
    """One that goes with its last program, as a virtual screen may: so nothing is asked of it that
    the window does not follow at once."""
    # As the desktop's session starts what was open when it ended.
    for words in ([], ["-session", "10f_1"]):
        reader, writer = os.pipe()
        server = subprocess.Popen(["Xvfb", "-displayfd", str(writer), "-screen", "0",
                                   "1024x768x24", "-terminate", "-nolisten", "tcp"],
                                  pass_fds=[writer], stderr=subprocess.DEVNULL)
        os.close(writer)
        try:
            with os.fdopen(reader) as pipe:
                display = ":" + pipe.readline().strip()
            comes_up("a server of its own", executable, drive, without_a_screen(DISPLAY=display),
                     *words)
        finally:
            server.terminate()
            server.wait()


def command_line(executable, drive, version):
    with tempfile.TemporaryDirectory() as runtime:
        os.environ["XDG_RUNTIME_DIR"] = runtime
        the_lack_of_a_screen_is_told_in_one_sentence(executable)
        a_platform_that_is_not_there_is_named(executable)
        words_are_answered_without_a_screen(executable, version)
        screens_that_need_no_server_are_taken(executable, drive)
        a_server_of_its_own_is_enough(executable, drive)


if __name__ == "__main__":
    try:
        command_line(*sys.argv[1:])
    except Failure as failure:
        sys.exit(f"FAILED: {failure}")
