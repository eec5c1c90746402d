"""The disk goes wrong under the running program: the settings or the program's own folder are removed,
the disk is full, files and folders may not be written. Exercises go on; where a player cannot be saved a box names the file
and the program ends; nothing that was there is lost.

    alone faults_disk.py PROGRAM
"""
import os
import shutil
import subprocess
import sys

from desktop import Desktop, Failure, Program, wait_for
from players import new_player, open_configuration
from steps import (SETTINGS, choose, come_to_the_menu, counts, fresh_drive, leave, name_the_file,
                   press)

OTHER_USER = 65534
# A user of the machine like any other, who is still let onto the accessibility bus of the test.
WITHOUT_PRIVILEGES = ("setpriv", "--bounding-set=-all", "--inh-caps=-all", "--ambient-caps=-all")
REPORT_REFUSED = "Non è stato possibile salvare"
NO_LANGUAGES = "Non è presente alcun file di linguaggio!"
SMALL_DISK = "size=400k,mode=1777"


class Drive:
    def __init__(self, path):
        self.path = path
        self.players = os.path.join(path, SETTINGS)
        self.reports = os.path.join(self.players, "dati", "_predefinito")

    def player(self, name="_predefinito.INI"):
        return os.path.join(self.players, name)

    def files(self):
        """Every player and report with its content."""
        found = {}
        for folder, _, names in os.walk(self.players):
            for name in names:
                path = os.path.join(folder, name)
                with open(path, "rb") as file:
                    found[path] = file.read()
        return found


def box(program, beginning):
    return program.any(lambda item: item.getRoleName() == "label"
                       and item.name.startswith(beginning))


def expect_the_end(program, error, path):
    """A box that tells the file, then the end of the program, which is no good one."""
    said = wait_for(f"the box of error {error}", lambda: box(program, f"{error}: ")).name
    if path.lower() not in said.lower():
        raise Failure(f"the box does not tell the file: {said}")
    program.key_until("Return", "the end", program.gone)
    if program.ended() != 1:
        raise Failure(f"error {error} ended the program with {program.process.returncode}")


def play(program):
    """Two answers of the first exercise, and back to the menu."""
    press(program, "Image1(0)")
    program.await_object("ShockwaveFlash1")
    for index in (0, 1):
        before = counts(program)
        if program.enabled(program.await_object(f"Command1({index})")):
            press(program, f"Command1({index})")
            wait_for("an answer", lambda: counts(program) != before)
    choose(program, "Esci")
    program.await_object("Image1(0)")


def end_well(program):
    press(program, "Command1(8)")
    if program.ended() != 0:
        raise Failure(f"the program ended with {program.process.returncode}")


def keep_a_log(program):
    open_configuration(program)
    press(program, "CheckSalvaUtente")
    leave(program)


def a_report_is_refused(program):
    """Told by its box; the log is still there to be saved elsewhere."""
    choose(program, "Esercizi eseguiti")
    program.await_object("MSFlexGrid1")
    choose(program, "File", "Salva")

    def field_of_the_name():
        return program.any(lambda item: item.getRoleName() == "text"
                           and item.getState().contains(program.bus.STATE_FOCUSED))
    # Where not even the player's folder can be made nothing is asked.
    wait_for("an answer", lambda: box(program, REPORT_REFUSED) or field_of_the_name())
    if field_of_the_name():
        name_the_file(program, "prova")
    wait_for("the box of the report", lambda: box(program, REPORT_REFUSED))
    program.key_until("Return", "the end of the box", lambda: not box(program, REPORT_REFUSED))
    if not program.named("Vero o falso", "table cell"):
        raise Failure("the log was lost with the report")
    choose(program, "Esci")
    program.await_object("Image1(0)")


def a_new_player_is_refused(program, drive, error):
    open_configuration(program)
    new_player(program, "Nuovo")
    choose(program, "Esci")
    expect_the_end(program, error, drive.player("Nuovo.ini"))
    if os.path.exists(drive.player("Nuovo.ini")):
        raise Failure("half a player was left")


# --- The settings are removed while an exercise is open ---

def removed_settings(desktop, executable, drive):
    fresh_drive(drive.path)
    program = Program(desktop, executable)
    come_to_the_menu(program, first_time=True)
    keep_a_log(program)
    press(program, "Image1(0)")
    program.await_object("ShockwaveFlash1")
    shutil.rmtree(os.path.join(drive.path, "ImpostazioniProgrammiTesmi"))
    choose(program, "Esci")
    program.await_object("Image1(0)")
    play(program)
    a_report_is_refused(program)
    press(program, "Command1(8)")
    expect_the_end(program, 76, drive.player())
    # The next start makes it all anew.
    program = Program(desktop, executable)
    come_to_the_menu(program, first_time=False)
    play(program)
    end_well(program)
    if not os.path.exists(drive.player()):
        raise Failure("the player did not come back")


# --- The program's own folder is removed, as by an upgrade that failed ---

def removed_program(desktop, executable, drive):
    fresh_drive(drive.path)
    program = Program(desktop, executable)
    come_to_the_menu(program, first_time=True)
    press(program, "Image1(0)")
    program.await_object("ShockwaveFlash1")
    folder = os.path.dirname(executable)
    for name in os.listdir(folder):
        path = os.path.join(folder, name)
        if os.path.isdir(path) and not drive.path.startswith(path):
            shutil.rmtree(path)
        elif os.path.isfile(path):
            os.remove(path)
    before = counts(program)
    press(program, "Command1(0)")
    wait_for("an answer", lambda: counts(program) != before)
    choose(program, "Esci")
    back_without_languages(program)
    for entry in range(8):
        press(program, f"Image1({entry})")
        program.await_object("StatusBar1.Panels(3)")
        choose(program, "Esci")
        back_without_languages(program)
    end_well(program)


def back_without_languages(program):
    wait_for("the box of the languages", lambda: box(program, NO_LANGUAGES))
    program.key_until("Return", "the end of the box", lambda: not box(program, NO_LANGUAGES))
    program.await_object("Image1(0)")


# --- The disk is full ---

def full_disk(desktop, executable, drive):
    fresh_drive(drive.path)
    if subprocess.run(["mount", "-t", "tmpfs", "-o", SMALL_DISK, "none", drive.path],
                      check=False).returncode != 0:
        print("a small disk cannot be mounted here: not tried")
        return
    try:
        os.makedirs(os.path.join(drive.path, "windows", "fonts"))
        on_a_full_disk(desktop, executable, drive)
    finally:
        subprocess.run(["umount", "--lazy", drive.path], check=True)


def on_a_full_disk(desktop, executable, drive):
    program = Program(desktop, executable)
    come_to_the_menu(program, first_time=True)
    keep_a_log(program)
    filler = os.path.join(drive.path, "filler")
    with open(filler, "wb", buffering=0) as file:
        try:
            while file.write(bytes(512)):
                pass
        except OSError:
            pass
    before = drive.files()
    play(program)
    a_report_is_refused(program)
    a_new_player_is_refused(program, drive, 61)
    if drive.files() != before:
        raise Failure("a full disk changed what was there")
    # A player who is there is saved, since that takes no more room.
    program = Program(desktop, executable)
    come_to_the_menu(program, first_time=False)
    play(program)
    end_well(program)
    if drive.files() != before:
        raise Failure("a save on a full disk changed the player")


# --- Nothing may be written ---

def locked(desktop, executable, drive):
    fresh_drive(drive.path)
    program = Program(desktop, executable)
    come_to_the_menu(program, first_time=True)
    keep_a_log(program)
    end_well(program)

    set_rights(drive.path, folders=0o555, files=0o666)
    before = drive.files()
    program = ordinary(desktop, executable)
    come_to_the_menu(program, first_time=False)
    play(program)
    a_report_is_refused(program)
    a_new_player_is_refused(program, drive, 70)

    set_rights(drive.path, folders=0o555, files=0o444)
    program = ordinary(desktop, executable)
    press(program, "Command1")
    expect_the_end(program, 70, drive.player())
    if drive.files() != before:
        raise Failure("what may not be written was changed")
    set_rights(drive.path, folders=0o755, files=0o644)


def set_rights(root, folders, files):
    owner = OTHER_USER if os.geteuid() == 0 else -1
    for folder, _, names in os.walk(root):
        for path, mode in [(folder, folders), *((os.path.join(folder, name), files)
                                                for name in names)]:
            os.chmod(path, mode)
            os.chown(path, owner, owner)


def ordinary(desktop, executable):
    if os.geteuid() != 0:
        return Program(desktop, executable)
    return Program(desktop, WITHOUT_PRIVILEGES[0], [*WITHOUT_PRIVILEGES[1:], executable])


def faults_disk(executable, drive):
    with Desktop("1024x768") as desktop:
        for fault in (removed_settings, full_disk, locked, removed_program):
            print(fault.__name__, flush=True)
            fault(desktop, executable, Drive(drive))


if __name__ == "__main__":
    try:
        faults_disk(sys.argv[1], sys.argv[2].rstrip("/"))
    except Failure as failure:
        sys.exit(f"FAILED: {failure}")
