"""A printing system of a test's own, on this machine only: its daemon, and printers that write each
document to a file."""
import os
import pathlib
import shutil
import signal
import socket
import subprocess
import tempfile
import time

LONGEST_WAIT = 30  # seconds for a document to come out

# Keeps each document as it would go to the paper, with its title beside it.
BACKEND = """#!/bin/sh
[ $# -eq 0 ] && { echo 'file keeper "Unknown" "Keeper"'; exit 0; }
out=OUT/$(printf %05d "$1")
printf %s "$3" >"$out.title"
cat ${6:+"$6"} >"$out.part" && mv "$out.part" "$out.pdf"
"""

PPD = """*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "KEEPER.PPD"
*Product: "(Keeper)"
*Manufacturer: "Keeper"
*ModelName: "Keeper"
*ShortNickName: "Keeper"
*NickName: "Keeper"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*ColorDevice: True
*DefaultColorSpace: RGB
*FileSystem: False
*Throughput: "1"
*LandscapeOrientation: Plus90
*TTRasterizer: Type42
*cupsFilter: "application/vnd.cups-pdf 0 -"
*HWMargins: {left} {bottom} {right} {top}
*OpenUI *PageSize/Media Size: PickOne
*OrderDependency: 10 AnySetup *PageSize
*DefaultPageSize: A4
*PageSize A4/A4: "<</PageSize[595 842]>>setpagedevice"
*PageSize A5/A5: "<</PageSize[420 595]>>setpagedevice"
*CloseUI: *PageSize
*OpenUI *PageRegion: PickOne
*OrderDependency: 10 AnySetup *PageRegion
*DefaultPageRegion: A4
*PageRegion A4/A4: "<</PageSize[595 842]>>setpagedevice"
*PageRegion A5/A5: "<</PageSize[420 595]>>setpagedevice"
*CloseUI: *PageRegion
*DefaultImageableArea: A4
*ImageableArea A4/A4: "{left} {bottom} {a4_right} {a4_top}"
*ImageableArea A5/A5: "{left} {bottom} {a5_right} {a5_top}"
*DefaultPaperDimension: A4
*PaperDimension A4/A4: "595 842"
*PaperDimension A5/A5: "420 595"
"""


def wait_for(what, look, seconds=LONGEST_WAIT):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        found = look()
        if found:
            return found
        time.sleep(0.1)
    raise AssertionError(f"waited in vain for {what}")


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


class PrintingSystem:
    """Started by `with`; everything it started is gone at the end."""

    def __init__(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="real-printing-"))
        self.port = free_port()
        self.daemon = None
        # The administrator's programs lie beside an ordinary user's path.
        self.environment = {**os.environ, "CUPS_SERVER": f"127.0.0.1:{self.port}",
                            "HOME": str(self.folder), "LC_ALL": "C.UTF-8",
                            "PATH": os.environ["PATH"] + ":/usr/sbin"}
        for name in ("PRINTER", "LPDEST"):
            self.environment.pop(name, None)

    def __enter__(self):
        self.folder.chmod(0o755)
        for name, mode in (("root", 0o755), ("state", 0o755), ("cache", 0o755), ("tmp", 0o1777),
                           ("spool", 0o710), ("out", 0o1777), ("root/ppd", 0o755),
                           ("bin", 0o755), ("bin/backend", 0o755)):
            (self.folder / name).mkdir()
            (self.folder / name).chmod(mode)
        # The daemon's own filters, and one backend.
        for name in ("filter", "daemon", "monitor", "notifier", "cgi-bin"):
            (self.folder / "bin" / name).symlink_to(pathlib.Path("/usr/lib/cups") / name)
        keeper = self.folder / "bin/backend/keeper"
        keeper.write_text(BACKEND.replace("OUT", str(self.folder / "out")))
        keeper.chmod(0o755)
        self.write("root/cups-files.conf", f"""
            ServerRoot {self.folder}/root
            StateDir {self.folder}/state
            CacheDir {self.folder}/cache
            RequestRoot {self.folder}/spool
            TempDir {self.folder}/tmp
            DataDir /usr/share/cups
            ServerBin {self.folder}/bin
            DocumentRoot /usr/share/cups/doc-root
            AccessLog {self.folder}/access.log
            ErrorLog {self.folder}/error.log
            PageLog {self.folder}/page.log
            SystemGroup root
            Sandboxing relaxed
            """)
        self.write("root/cupsd.conf", f"""
            LogLevel warn
            Listen 127.0.0.1:{self.port}
            Browsing Off
            WebInterface No
            DefaultAuthType None
            <Location />
              Order allow,deny
              Allow all
            </Location>
            <Policy default>
              <Limit All>
                Order allow,deny
                Allow all
              </Limit>
            </Policy>
            """)
        self.start()
        return self

    def __exit__(self, *_):
        self.stop()
        shutil.rmtree(self.folder, ignore_errors=True)

    def write(self, name, text):
        lines = [line.strip() for line in text.strip().splitlines()]
        (self.folder / name).write_text("\n".join(lines) + "\n")

    def start(self):
        self.daemon = subprocess.Popen(
            ["cupsd", "-f", "-c", f"{self.folder}/root/cupsd.conf",
             "-s", f"{self.folder}/root/cups-files.conf"],
            stdin=subprocess.DEVNULL, env={**self.environment, "TMPDIR": f"{self.folder}/tmp"})
        wait_for("the printing system", self.answers, 20)

    def answers(self):
        try:
            socket.create_connection(("127.0.0.1", self.port), 1).close()
            return True
        except OSError:
            return False

    def stop(self):
        if self.daemon:
            self.daemon.send_signal(signal.SIGCONT)
            self.daemon.terminate()
            try:
                self.daemon.wait(10)
            except subprocess.TimeoutExpired:
                self.daemon.kill()
                self.daemon.wait()
            self.daemon = None

    def freeze(self):
        self.daemon.send_signal(signal.SIGSTOP)

    def thaw(self):
        self.daemon.send_signal(signal.SIGCONT)

    def tool(self, *command):
        subprocess.run(command, env=self.environment, check=True, timeout=20,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def add_printer(self, name, margins=(0, 0, 0, 0), default=True):
        """Margins in points: left, bottom, right, top of the upright sheet."""
        left, bottom, right, top = margins
        ppd = self.folder / f"{name}.ppd"
        ppd.write_text(PPD.format(left=left, bottom=bottom, right=right, top=top,
                                  a4_right=595 - right, a4_top=842 - top,
                                  a5_right=420 - right, a5_top=595 - top))
        self.tool("lpadmin", "-p", name, "-E", "-v", "keeper:/out", "-P", str(ppd))
        if default:
            self.tool("lpadmin", "-d", name)

    def remove_printer(self, name):
        self.tool("lpadmin", "-x", name)

    def documents(self):
        """(path, title) of each document that came out, in their order."""
        return [(path, path.with_suffix(".title").read_text(encoding="utf-8"))
                for path in sorted(self.folder.glob("out/*.pdf"))]

    def jobs_left(self):
        return subprocess.run(["lpstat", "-o"], env=self.environment, timeout=20,
                              capture_output=True, text=True).stdout.strip()

    def await_documents(self, count):
        """That many, and no more on their way."""
        wait_for(f"{count} documents",
                 lambda: len(self.documents()) >= count and not self.jobs_left())
        return self.documents()

    def handed_over(self):
        """How many documents it was ever given, by its own records, but for one being written."""
        return sum(not path.suffix for path in self.folder.glob("spool/c*"))

    def clear(self):
        for path in self.folder.glob("out/*"):
            path.unlink()
