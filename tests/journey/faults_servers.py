"""The sound server and the printing system are frozen, killed and started anew under the running
program: an answer never waits for them, a print that cannot be is told by a box, and the exercise
goes on.

    alone faults_servers.py PROGRAM

With FAULTS_WHOLE in the environment the printing system is also frozen behind the open dialog, where
a document is waited for half a minute.
"""
import os
import signal
import subprocess
import sys
import time

from desktop import Desktop, Failure, Program, wait_for
from journey import answer
from printing_system import PrintingSystem
from steps import come_to_the_menu, counts, fresh_drive, leave, press

LONGEST_ANSWER = 1.5  # seconds; a busy machine asks the bus slowly, a server that is waited for more
LONGEST_HAND_OVER = 35  # seconds
MESSAGE_OF_PRINTING = "Il Form non viene stampato."
MESSAGE_OF_PRINTER = "Non è stato possibile aprire la stampante."


class SoundServer:
    def __init__(self, desktop):
        self.desktop = desktop
        self.process = None

    def start(self):
        self.process = self.desktop.start(
            ["pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--realtime=no",
             "--high-priority=no", "--use-pid-file=no", "-L",
             "module-native-protocol-unix auth-anonymous=1", "-L", "module-null-sink"],
            stderr=subprocess.DEVNULL)
        wait_for("the sound server", lambda: self.ask("info").returncode == 0)

    def ask(self, *words):
        return subprocess.run(["pactl", *words], capture_output=True, text=True, timeout=10,
                              check=False)

    def plays(self):
        return self.ask("list", "short", "sink-inputs").stdout != ""

    def signal(self, what):
        self.process.send_signal(what)

    def kill(self):
        self.process.kill()
        self.process.wait()


def wrong_answer(program):
    """One more, and how long it took until the window told it."""
    if not program.enabled(program.await_object("Command1(0)")):
        answer(program, 2)
        wait_for("the next task", lambda: program.enabled(program.find("Command1(0)")))
    before = counts(program)
    place = program.settled_box(program.await_object("Command1(0)"))
    start = time.monotonic()
    program.click_at(place.x + place.width // 2, place.y + place.height // 2)
    wait_for("an answer", lambda: counts(program) != before, 5)
    return time.monotonic() - start


def goes_on(program, when):
    """Several, so that what one leaves behind is met by the next."""
    waits = [wrong_answer(program) for _ in range(4)]
    if max(waits) > LONGEST_ANSWER:
        raise Failure(f"{when} answers took {', '.join(f'{wait:.2f}' for wait in waits)} s")


def expect_sound(program, server, when):
    def heard():
        wrong_answer(program)
        return server.plays()
    try:
        wait_for("a sound", heard, 8)
    except Failure:
        raise Failure(f"{when} nothing is heard") from None


def sound(desktop, program):
    server = SoundServer(desktop)
    goes_on(program, "without a sound server")
    server.start()
    expect_sound(program, server, "with a server that came later")
    server.signal(signal.SIGSTOP)
    goes_on(program, "with a frozen sound server")
    server.signal(signal.SIGCONT)
    expect_sound(program, server, "with the server thawed")
    wrong_answer(program)
    server.kill()
    goes_on(program, "with the sound server killed")
    server.start()
    expect_sound(program, server, "with the server started anew")
    # The program ends with a frozen one too: below.
    return server


# --- Printing ---

def open_dialog(program):
    program.key("ctrl+v")
    return program.await_object("cmdStampa")


def said(program, beginning):
    return program.any(lambda item: item.getRoleName() == "label"
                       and item.name.startswith(beginning))


def put_away(program, message):
    program.key_until("Return", "the end of the box", lambda: not said(program, message))


def expect_not_printed(program, system, when):
    press(program, "cmdStampa")
    start = time.monotonic()
    wait_for(f"the box {when}", lambda: said(program, MESSAGE_OF_PRINTING), LONGEST_HAND_OVER)
    waited = time.monotonic() - start
    put_away(program, MESSAGE_OF_PRINTING)
    wait_for("the end of the dialog", lambda: program.find("cmdStampa") is None)
    goes_on(program, when)
    if system.documents():
        raise Failure(f"{when} a document came out after all")
    print(f"{when} told after {waited:.1f} s", flush=True)


def printing(program, system):
    system.add_printer("Stampante")
    wait_for("the printer", lambda: system.answers())
    open_dialog(program)
    system.daemon.kill()
    system.daemon.wait()
    expect_not_printed(program, system, "with the printing system killed behind the dialog")
    program.key("ctrl+s")
    wait_for("the box of the printer", lambda: said(program, MESSAGE_OF_PRINTER))
    put_away(program, MESSAGE_OF_PRINTER)
    goes_on(program, "without a printing system")

    system.start()
    # What is killed may have forgotten its printers.
    system.add_printer("Stampante")
    if "FAULTS_WHOLE" in os.environ:
        open_dialog(program)
        system.freeze()
        expect_not_printed(program, system, "with the printing system frozen behind the dialog")
    system.freeze()
    program.key("ctrl+s")
    wait_for("the box of the printer", lambda: said(program, MESSAGE_OF_PRINTER))
    put_away(program, MESSAGE_OF_PRINTER)
    goes_on(program, "with a frozen printing system")
    system.thaw()


def print_again(program, system):
    def printed():
        program.key("ctrl+s")
        try:
            wait_for("a document or a box",
                     lambda: system.documents() or said(program, MESSAGE_OF_PRINTER), 10)
        except Failure:
            return False
        if said(program, MESSAGE_OF_PRINTER):
            put_away(program, MESSAGE_OF_PRINTER)
        return system.documents()
    wait_for("a document of the thawed system", printed, 30)
    goes_on(program, "after a print")


def faults_servers(executable, drive):
    fresh_drive(drive)
    with PrintingSystem() as system, Desktop("1024x768") as desktop:
        os.environ["CUPS_SERVER"] = system.environment["CUPS_SERVER"]
        program = Program(desktop, executable)
        come_to_the_menu(program, first_time=True)
        press(program, "Image1(0)")
        program.await_object("ShockwaveFlash1")
        server = sound(desktop, program)
        printing(program, system)
        print_again(program, system)
        server.signal(signal.SIGSTOP)
        wrong_answer(program)
        leave(program)
        press(program, "Command1(8)")
        if program.ended() != 0:
            raise Failure("the program did not end well with a frozen sound server")
        server.signal(signal.SIGCONT)


if __name__ == "__main__":
    try:
        faults_servers(*sys.argv[1:])
    except Failure as failure:
        sys.exit(f"FAILED: {failure}")
