"""A window that flies by a receiver at a pseudo-terminal, in a folder of its own."""
import datetime
import os
import pathlib
import pty
import signal
import subprocess
import termios
import time
import tty

BIN = pathlib.Path(os.environ["KORVEL_BIN"])
PLAN = "KSEA\r\nKPDX\r\n"
SETTINGS = {"Options Port": "COM6:,38400,N,8,1"}
FLAGS = {"Options Tracking": "1", "Options PortScanned": "0", "Options GyroConn": "0"}


def with_sum(body):
    value = 0
    for byte in body.encode():
        value ^= byte
    return f"${body}*{value:02X}\r\n".encode()


class Rig:
    def __init__(self, folder):
        self.folder = pathlib.Path(folder)
        self.folder.mkdir(parents=True, exist_ok=True)
        self.program = None
        self.master, slave = pty.openpty()
        for descriptor in (self.master, slave):
            tty.setraw(descriptor, termios.TCSANOW)
        os.set_blocking(self.master, False)
        self.slave = slave
        (self.folder / "ports").mkdir(exist_ok=True)
        link = self.folder / "ports/com6"
        link.unlink(missing_ok=True)
        link.symlink_to(os.ttyname(slave))
        self.moment = datetime.datetime.now(datetime.timezone.utc).replace(microsecond=0)
        self.lon = -122.0

    def set_up(self):
        for names, value in SETTINGS.items():
            self.profile("set-string", names, value)
        for names, value in FLAGS.items():
            self.profile("set-int", names, value)
        (self.folder / "flight.fp").write_text(PLAN, newline="")

    def profile(self, action, names, value):
        done = subprocess.run([BIN / "korvelctl", "profile", self.folder / "korvel.ini", action, *names.split(), value],
                              capture_output=True, text=True, check=True)
        return done.stdout.strip()

    def start(self, *words, before=(), **variables):
        environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "HOME": str(self.folder), "TZ": "UTC",
                       "XDG_RUNTIME_DIR": str(self.folder), **variables}
        self.program = subprocess.Popen([*before, BIN / "korvel", "--profile-folder", self.folder, *words],
                                        env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def send(self, data):
        """What the line does not take now is lost, as on a real one."""
        try:
            os.write(self.master, data)
        except BlockingIOError:
            pass

    def say(self):
        """The next second of a flight east at 120 kt."""
        self.moment = datetime.datetime.now(datetime.timezone.utc).replace(microsecond=0)
        self.lon += 120 / 3600 / 60 / 0.676
        clock = self.moment.strftime("%H%M%S")
        minutes = (abs(self.lon) - int(abs(self.lon))) * 60
        place = f"4727.0000,N,{int(abs(self.lon)):03d}{minutes:07.4f},W"
        self.send(with_sum(f"GPRMC,{clock},A,{place},120.0,090.0,{self.moment.strftime('%d%m%y')},015.0,E"))
        self.send(with_sum(f"GPGGA,{clock},{place},1,08,1.0,1000.0,M,,M,,"))

    def fly(self, seconds):
        end = time.monotonic() + seconds
        while time.monotonic() < end and self.program.poll() is None:
            self.say()
            time.sleep(max(0.0, min(1.0, end - time.monotonic())))

    def alive(self):
        return self.program.poll() is None

    def kill(self, how=signal.SIGKILL):
        self.program.send_signal(how)
        self.program.wait(30)

    def memory_mb(self):
        for line in pathlib.Path(f"/proc/{self.program.pid}/status").read_text().splitlines():
            if line.startswith("VmRSS"):
                return int(line.split()[1]) / 1024
        return 0.0

    def recorded(self):
        """The moments of the journal's points, whole lines alone."""
        file = self.folder / "track.journal"
        text = file.read_text("latin-1") if file.exists() else ""
        moments = []
        for line in text.split("\n")[:-1]:
            words = line.split(",")
            if len(words) == 7 and words[0] != "00000000":
                moments.append(datetime.datetime.strptime(words[0] + words[1], "%Y%m%d%H%M%S").replace(
                    tzinfo=datetime.timezone.utc))
        return moments

    def lost_seconds(self):
        """Between the last second that was said and the last that is kept."""
        kept = self.recorded()
        return (self.moment - kept[-1]).total_seconds() if kept else float("inf")
