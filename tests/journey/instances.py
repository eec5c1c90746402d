"""Two programs at once, and the start after a crash: a second one of the same user gets a box and
changes nothing, another user's runs, and a lock whose owner was killed bars nobody.

    alone instances.py PROGRAM
"""
import os
import signal
import subprocess
import sys
import tempfile

from desktop import Desktop, Failure, Program, wait_for
from steps import come_to_the_menu, fresh_drive, press_ok

OTHER_USER = 65534


def snapshot(folder):
    """Every file below the folder with its content and time of change."""
    found = {}
    for path, _, names in os.walk(folder):
        for name in names:
            file = os.path.join(path, name)
            with open(file, "rb") as content:
                found[file] = (content.read(), os.stat(file).st_mtime_ns)
    return found


def a_second_one_is_refused(desktop, executable, drive):
    before = snapshot(drive)
    second = Program(desktop, executable)
    box = wait_for("the box of the second instance",
                   lambda: second.named("MorleneKVT è già aperto.", "label"))
    if box is None or second.find("Command1") is not None:
        raise Failure("the second instance shows more than its box")
    wait_for("the end of the second instance",
             lambda: second.process.poll() is not None or press_ok(second))
    if second.ended() != 0:
        raise Failure("the second instance did not end well")
    if snapshot(drive) != before:
        raise Failure("the second instance changed the disk")


def reachable(executable):
    """Whether another user of the machine can start the program where it was built."""
    return subprocess.run(["test", "-x", executable], user=OTHER_USER, check=False).returncode == 0


def another_user_runs(desktop, executable):
    if os.geteuid() != 0 or not reachable(executable):
        print("another user cannot reach the program here: not tried")
        return
    # No accessibility bus for another user: that it stays and shows a window tells enough.
    with tempfile.TemporaryDirectory() as runtime:
        os.chown(runtime, OTHER_USER, OTHER_USER)
        environment = dict(os.environ, XDG_RUNTIME_DIR=runtime, HOME=runtime)
        environment.pop("QT_LINUX_ACCESSIBILITY_ALWAYS_ON")
        other = desktop.start([executable], user=OTHER_USER, group=OTHER_USER, extra_groups=[],
                              env=environment)
        # A box of refusal would be small; the splash fills the screen.
        size = "Geometry: " + desktop.size
        wait_for("another user's splash", lambda: size in subprocess.run(
            ["xdotool", "search", "--onlyvisible", "--pid", str(other.pid), "--name", ".",
             "getwindowgeometry"], capture_output=True, text=True, check=False).stdout)
        other.kill()
        other.wait()


def instances(executable, drive):
    fresh_drive(drive)
    for folder, _, _ in os.walk(drive):
        os.chmod(folder, 0o1777)
    with Desktop() as desktop:
        first = Program(desktop, executable)
        come_to_the_menu(first, first_time=True)
        a_second_one_is_refused(desktop, executable, drive)
        another_user_runs(desktop, executable)
        first.process.send_signal(signal.SIGKILL)
        first.process.wait()
        after = Program(desktop, executable)
        come_to_the_menu(after, first_time=False)


if __name__ == "__main__":
    try:
        instances(*sys.argv[1:])
    except Failure as failure:
        sys.exit(f"FAILED: {failure}")
