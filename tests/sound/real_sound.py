#!/usr/bin/env python3
"""Proves with ears what a child hears: a private sound server plays into a null sink, whose monitor
is recorded and measured. Also that no state of the server ever keeps the program waiting.

Usage: real_sound.py PLAY_PROGRAM SOUND_FOLDER [TestCase.test ...]
Needs the packages pulseaudio and pulseaudio-utils.
"""
import array
import cmath
import math
import os
import pathlib
import signal
import statistics
import subprocess
import sys
import tempfile
import time
import unittest
import wave

RATE = 44100
WINDOW = 441  # 10 ms
# With rewinds a null sink works in steps of two seconds, without them in steps of 50 ms.
DEVICE = ("sink_name=ear", f"rate={RATE}", "norewinds=1")
LONGEST_WAIT = 10  # seconds for a server or a recorder to be there
PLAY_PROGRAM = ""
SOUND_FOLDER = pathlib.Path()


def write_tone(path, frequency, seconds, channels=1, width=2, rate=RATE):
    """A tone at half of full scale."""
    samples = bytearray()
    full = 2 ** (8 * width - 1) - 1
    for i in range(int(seconds * rate)):
        value = int(0.5 * full * math.sin(2 * math.pi * frequency * i / rate))
        coded = (
            bytes([value + 128]) if width == 1 else value.to_bytes(width, "little", signed=True)
        )
        samples += coded * channels
    with wave.open(str(path), "wb") as file:
        file.setnchannels(channels)
        file.setsampwidth(width)
        file.setframerate(rate)
        file.writeframes(bytes(samples))


def level(samples, frequency):
    """The amplitude of one frequency, of full scale 1."""
    turn = -2j * math.pi * frequency / RATE
    total = sum(value * cmath.exp(turn * i) for i, value in enumerate(samples))
    return abs(total) * 2 / len(samples) / 32768


def levels(recording, frequency):
    """That amplitude for each window of 10 ms."""
    return [
        level(recording[at : at + WINDOW], frequency)
        for at in range(0, len(recording) - WINDOW + 1, WINDOW)
    ]


def sounding(recording, frequency, threshold=0.25):
    """Numbers of the windows in which the tone sounds."""
    return [i for i, value in enumerate(levels(recording, frequency)) if value > threshold]


def until(condition, what):
    end = time.monotonic() + LONGEST_WAIT
    while not condition():
        if time.monotonic() > end:
            raise AssertionError(f"waited in vain for {what}")
        time.sleep(0.02)


class RealSound(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="real-sound-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.home = self.folder / "home"
        self.recording = self.folder / "recording"
        run = self.folder / "run"
        for made in (self.home, run):
            made.mkdir(mode=0o700)
        self.environment = {
            "PATH": os.environ["PATH"],
            "HOME": str(self.home),
            "XDG_RUNTIME_DIR": str(run),
            "LC_ALL": "C.UTF-8",
        }
        # The tools must not start a server of their own accord; the program must know by itself.
        no_start = self.folder / "client.conf"
        no_start.write_text("autospawn = no\n")
        self.tools = {**self.environment, "PULSE_CLIENTCONFIG": str(no_start)}
        self.server = None
        self.program = None
        self.addCleanup(self.stop_server)
        self.addCleanup(self.stop_program)

    def run_tool(self, *command, **pipes):
        return subprocess.Popen(command, env=self.tools, **pipes)

    def pactl(self, *arguments):
        return subprocess.run(
            ("pactl", *arguments), env=self.tools, capture_output=True, text=True, timeout=5
        )

    def streams(self):
        return self.pactl("list", "short", "sink-inputs").stdout

    def start_server(self, device=True):
        command = ["pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--realtime=no"]
        command += ["--high-priority=no", "--use-pid-file=no", "-L"]
        command += ["module-native-protocol-unix auth-anonymous=1"]
        if device:
            command += ["-L", " ".join(("module-null-sink", *DEVICE))]
        self.server = self.run_tool(*command, stderr=subprocess.DEVNULL)
        until(lambda: self.pactl("info").returncode == 0, "the sound server")

    def stop_server(self):
        if self.server:
            self.server.kill()
            self.server.wait()
            self.server = None

    def freeze_server(self):
        self.server.send_signal(signal.SIGSTOP)

    def thaw_server(self):
        self.server.send_signal(signal.SIGCONT)

    def stop_program(self):
        if self.program:
            self.program.stdin.close()
            self.assertEqual(self.program.wait(LONGEST_WAIT), 0)
            self.program.stdout.close()
            self.program = None

    def play(self, path):
        """Plays a file in the one program of the test and returns the seconds the call took."""
        if not self.program:
            self.program = subprocess.Popen(
                PLAY_PROGRAM,
                env=self.environment,
                stdin=subprocess.PIPE,
                stdout=subprocess.PIPE,
                text=True,
            )
        self.program.stdin.write(f"{path}\n")
        self.program.stdin.flush()
        return int(self.program.stdout.readline()) / 1e6

    def tone(self, frequency, seconds, **kind):
        name = "-".join(str(part) for part in (frequency, seconds, *kind.values()))
        path = self.folder / f"{name}.wav"
        write_tone(path, frequency, seconds, **kind)
        return path

    def record(self, action):
        """What the device plays while the action runs."""
        tone = ("--format=s16le", "--channels=1", f"--rate={RATE}", "--latency-msec=10")
        with open(self.recording, "wb") as file:
            recorder = self.run_tool("parec", "--device=ear.monitor", *tone, stdout=file)
            try:
                until(lambda: self.recording.stat().st_size > 0, "the recorder")
                action()
                time.sleep(0.3)
            finally:
                recorder.kill()
                recorder.wait()
        recording = array.array("h")
        data = self.recording.read_bytes()
        recording.frombytes(data[: len(data) // 2 * 2])
        return recording

    def assert_heard(self, frequency=440):
        path = self.tone(frequency, 0.3)

        def action():
            self.play(path)
            time.sleep(0.4)

        windows = sounding(self.record(action), frequency)
        self.assertGreaterEqual(len(windows), 26, "the sound is not heard")

    def assert_quick(self, path, calls=30):
        waits = [self.play(path) for _ in range(calls)]
        # Single calls may lose the processor on a busy machine.
        self.assertLess(statistics.median(waits), 0.005)
        self.assertLess(max(waits), 0.1)

    def test_a_sound_is_heard_whole_and_unchanged(self):
        self.start_server()
        path = self.tone(440, 1)
        asked = []

        def action():
            time.sleep(0.2)
            asked.append(self.recording.stat().st_size / 2)
            self.play(path)
            # On a busy machine a second of sound is recorded later than in a second.
            until(lambda: self.recording.stat().st_size / 2 > asked[0] + 1.5 * RATE,
                  "a second of sound")

        recording = self.record(action)
        windows = sounding(recording, 440)
        self.assertLess(windows[0] * WINDOW - asked[0], 0.15 * RATE, "the sound starts late")
        self.assertAlmostEqual(len(windows), 100, delta=2)
        self.assertEqual(windows, list(range(windows[0], windows[-1] + 1)), "a gap in the sound")
        middle = windows[len(windows) // 2] * WINDOW
        self.assertAlmostEqual(level(recording[middle : middle + 4410], 440), 0.5, delta=0.01)

    def test_a_new_sound_cuts_off_the_old_one(self):
        self.start_server()
        old = self.tone(400, 2)
        new = self.tone(1000, 0.5)

        def action():
            self.play(old)
            time.sleep(0.5)
            self.play(new)
            time.sleep(0.8)

        recording = self.record(action)
        old_windows = sounding(recording, 400, 0.1)
        new_windows = sounding(recording, 1000, 0.1)
        self.assertAlmostEqual(len(old_windows), 50, delta=12)
        self.assertAlmostEqual(len(new_windows), 50, delta=3)
        self.assertLessEqual(old_windows[-1] - new_windows[0], 1, "both sound at once")

    def test_a_missing_sound_cuts_off_the_old_one_too(self):
        self.start_server()
        old = self.tone(400, 2)

        def action():
            self.play(old)
            time.sleep(0.5)
            self.play(self.folder / "missing.wav")
            time.sleep(0.3)

        self.assertAlmostEqual(len(sounding(self.record(action), 400, 0.1)), 50, delta=12)

    def test_a_sound_shorter_than_the_buffer_is_heard(self):
        self.start_server()
        path = self.tone(1000, 0.03)

        def action():
            self.play(path)
            time.sleep(0.3)

        self.assertIn(len(sounding(self.record(action), 1000, 0.1)), (3, 4))

    def test_every_kind_of_wave_file_sounds_the_same(self):
        self.start_server()
        for channels in (1, 2):
            for width in (1, 2, 3, 4):
                with self.subTest(channels=channels, bits=8 * width):
                    path = self.tone(1000, 0.2, channels=channels, width=width, rate=22050)

                    def action():
                        self.play(path)
                        time.sleep(0.3)

                    recording = self.record(action)
                    windows = sounding(recording, 1000)
                    self.assertAlmostEqual(len(windows), 20, delta=2)
                    at = windows[5] * WINDOW
                    self.assertAlmostEqual(
                        level(recording[at : at + 2205], 1000), 0.5, delta=0.03
                    )

    def test_every_sound_of_the_program_is_heard(self):
        self.start_server()
        paths = sorted(SOUND_FOLDER.glob("*/*.wav"))
        self.assertGreaterEqual(len(paths), 10)
        for path in paths:
            with self.subTest(path=path):

                def action():
                    self.play(path)
                    time.sleep(0.5)

                self.assertGreater(max(self.record(action)), 3000)

    def test_streams_that_have_ended_leave_the_server(self):
        self.start_server()
        # So close that the server has not yet answered for one when the next one comes.
        path = self.tone(440, 0.1)
        for _ in range(50):
            self.play(path)
        until(lambda: self.streams() == "", "the end of all streams")

    def test_without_a_server_the_program_is_silent_and_quick(self):
        self.assert_quick(self.tone(440, 0.3))

    def test_without_a_server_none_is_started_and_nothing_is_written(self):
        self.play(self.tone(440, 0.3))
        time.sleep(0.2)
        self.stop_program()
        self.assertEqual(list(self.home.rglob("*")), [])
        self.assertNotEqual(self.pactl("info").returncode, 0)

    def test_a_server_that_comes_later_is_heard(self):
        self.play(self.tone(440, 0.3))
        self.start_server()
        self.assert_heard()

    def test_a_device_that_comes_later_is_heard(self):
        self.start_server(device=False)
        self.assert_quick(self.tone(440, 0.3))
        self.pactl("load-module", "module-null-sink", *DEVICE)
        self.assert_heard()

    def test_after_a_killed_server_the_next_one_is_heard(self):
        self.start_server()
        self.assert_heard()
        self.play(self.tone(440, 2))
        self.stop_server()
        self.assert_quick(self.tone(440, 0.3))
        self.start_server()
        self.assert_heard()

    def test_a_frozen_server_keeps_nobody_waiting_and_is_heard_again(self):
        self.start_server()
        self.assert_heard()
        self.freeze_server()
        self.assert_quick(self.tone(440, 0.3))
        self.thaw_server()
        self.assert_heard()

    def test_a_server_frozen_from_the_start_keeps_nobody_waiting(self):
        self.start_server()
        self.freeze_server()
        self.assert_quick(self.tone(440, 0.3))
        self.thaw_server()
        self.assert_heard()

    def test_the_program_ends_while_the_server_is_frozen(self):
        self.start_server()
        self.play(self.tone(440, 2))
        self.freeze_server()
        self.play(self.tone(440, 2))
        self.stop_program()

    def test_a_sound_that_waited_too_long_is_not_played_any_more(self):
        self.start_server()
        self.assert_heard()
        path = self.tone(1000, 0.3)

        def action():
            self.freeze_server()
            self.play(path)
            time.sleep(2.5)
            self.thaw_server()
            time.sleep(0.6)

        self.assertEqual(sounding(self.record(action), 1000, 0.1), [])


if __name__ == "__main__":
    PLAY_PROGRAM = sys.argv.pop(1)
    SOUND_FOLDER = pathlib.Path(sys.argv.pop(1))
    unittest.main(verbosity=2)
