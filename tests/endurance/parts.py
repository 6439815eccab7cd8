"""What is tried; each part yields rows (what, measured, whether the goal is met)."""
import contextlib
import os
import pathlib
import random
import signal
import socket
import subprocess
import threading
import time

from rig import BIN, PLAN, Rig

MOST_LOST_S = 5
SAVES = "openat,write,fsync,fdatasync,rename,renameat,renameat2,ftruncate,unlink,unlinkat,close"


def started(folder, seconds=8):
    rig = Rig(folder)
    rig.set_up()
    rig.start(rig.folder / "flight.fp")
    rig.fly(seconds)
    return rig


def kills(folder, options):
    """Kill at random instants; plan, settings and all but the last seconds of the track are there."""
    rng = random.Random(options.seed)
    rig = started(folder)
    rig.kill()
    worst, short, spoilt = 0.0, 0, []
    for turn in range(options.kills):
        before = len(rig.recorded())
        rig.start()
        rig.fly(rng.uniform(2.0, 6.0))
        rig.kill()
        said = (rig.moment - rig.recorded()[-1]).total_seconds()
        if len(rig.recorded()) > before:
            worst = max(worst, said)
        else:
            short += 1  # killed before it had come so far
        if rig.profile("get-int", "Options Tracking", "0") != "1":
            spoilt.append(f"{turn}: tracking")
        if not rig.profile("get-string", "Options Port", "").startswith("COM6:"):
            spoilt.append(f"{turn}: port")
        if not rig.profile("get-string", "Options OpenPlan", "").endswith("flight.fp"):
            spoilt.append(f"{turn}: plan")
        if (rig.folder / "flight.fp").read_bytes() != PLAN.encode():
            spoilt.append(f"{turn}: plan's file")
    moments = rig.recorded()
    yield f"{options.kills} kills: most of the track that was lost", f"{worst:.0f} s", worst <= MOST_LOST_S
    yield "lives too short for a point", str(short), short < options.kills / 2
    yield "plan, port or tracking that was lost", "; ".join(spoilt) or "none", not spoilt
    yield "points that run back", str(sum(a > b for a, b in zip(moments, moments[1:]))), moments == sorted(moments)


def saves(folder, options):
    """Kill at every system call of a save: the old file or the new one stands."""
    folder = pathlib.Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    source, target = folder / "in.fp", folder / "out.fp"
    source.write_text("v.SEA\r\nv.BTG\r\n", newline="")
    save = [BIN / "korvelctl", "plan", source, "--save", target]

    def run(when):
        target.write_text(PLAN, newline="")
        inject = ["-e", f"inject={SAVES}:signal=KILL:when={when}"] if when else []
        return subprocess.run(["strace", "-f", "-o", folder / "trace", "-e", f"trace={SAVES}", *inject, *save],
                              capture_output=True, check=False)

    run(0)
    new = target.read_bytes()
    trace = (folder / "trace").read_text().splitlines()
    first = next(i for i, line in enumerate(trace) if "/.korvel-" in line)
    last = max(i for i, line in enumerate(trace) if "out.fp" in line or "rename" in line)
    others = 0
    # The calls of several threads count apart from each other; each is tried by its place in the whole.
    for when in range(max(1, first - 5), last + 6):
        run(when)
        others += target.read_bytes() not in (PLAN.encode(), new)
        left = [file.name for file in folder.iterdir() if file not in (source, target, folder / "trace")]
        for name in left:
            (folder / name).unlink()
    yield f"a plan saved, killed at {last - first + 11} system calls: torn files", str(others), others == 0


def disk(folder, options):
    """A disk that is full for a while costs what was flown meanwhile; a folder for reading costs no flight."""
    if os.geteuid() != 0:
        yield "full disk, folder for reading", "left out: needs root", True
        return
    folder = pathlib.Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    subprocess.run(["mount", "-t", "tmpfs", "-o", "size=4m", "tmpfs", folder], check=True)
    try:
        rig = started(folder / "flight")
        filler = folder / "filler"
        with open(filler, "wb", buffering=0) as file, contextlib.suppress(OSError):
            while file.write(b"x" * 4096):
                pass
        rig.fly(10)
        alive = rig.alive()
        filler.unlink()
        rig.fly(10)
        yield "alive on a full disk", str(alive), alive
        yield "behind at the end, the disk being free again", f"{rig.lost_seconds():.0f} s", rig.lost_seconds() <= MOST_LOST_S
        rig.kill()
        subprocess.run(["mount", "-o", "remount,ro", folder], check=True)
        rig.start()
        rig.fly(6)
        yield "starts and flies in a folder for reading", str(rig.alive()), rig.alive()
        rig.kill()
    finally:
        subprocess.run(["umount", "-l", folder], check=False)


def clock(folder, options):
    """The computer's clock jumps; the track goes on by the receiver's."""
    library = next(iter(sorted(pathlib.Path("/usr/lib").glob("*/faketime/libfaketime.so.1"))), None)
    stamp = pathlib.Path(folder).with_suffix(".clock")
    stamp.write_text("+0")
    rig = Rig(folder)
    rig.set_up()
    rig.start(rig.folder / "flight.fp", LD_PRELOAD=str(library), FAKETIME_TIMESTAMP_FILE=str(stamp),
              FAKETIME_NO_CACHE="1", FAKETIME_DONT_FAKE_MONOTONIC="1")
    rig.fly(6)
    for jump in ("+3600", "-3600", "+86400", "-604800", "+0"):
        stamp.write_text(jump)
        rig.fly(5)
    moments = rig.recorded()
    yield "alive through five jumps of the clock", str(rig.alive()), rig.alive()
    yield "behind", f"{rig.lost_seconds():.0f} s", rig.lost_seconds() <= MOST_LOST_S
    steps = [(b - a).total_seconds() for a, b in zip(moments, moments[1:])]
    yield "largest step of the track's times", f"{max(steps):.0f} s", min(steps) >= 0 and max(steps) <= 10
    rig.kill()


def flood(folder, options):
    """Rubbish as fast as it goes, from the line and from the network; good sentences come through after it."""
    rig = started(folder)
    before = rig.memory_mb()
    rng = random.Random(options.seed)
    end = time.monotonic() + options.flood
    while time.monotonic() < end and rig.alive():
        rig.send(rng.randbytes(4096))
        time.sleep(0.001)
    grown = rig.memory_mb() - before
    yield f"{options.flood} s of rubbish on the line: memory", f"{grown:+.1f} MB", grown < 8
    rig.fly(8)
    yield "behind after it", f"{rig.lost_seconds():.0f} s", rig.alive() and rig.lost_seconds() <= MOST_LOST_S
    rig.kill()
    yield from datagrams(folder + "-udp", options)


def datagrams(folder, options):
    port = 20000 + os.getpid() % 20000
    rig = Rig(folder)
    rig.set_up()
    rig.profile("set-string", "Options GpsSource", f"udp://127.0.0.1:{port}")
    sender = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
    sender.connect(("127.0.0.1", port))

    def send(data):
        try:
            sender.send(data)
        except OSError:
            pass

    rig.send = send
    rig.start(rig.folder / "flight.fp")
    rig.fly(8)
    before, sent = rig.memory_mb(), 0
    rng = random.Random(options.seed)
    rubbish = [rng.randbytes(rng.randint(1, 1400)) for _ in range(100)]
    stop = time.monotonic() + options.flood

    def pour():
        nonlocal sent
        while time.monotonic() < stop:
            send(rubbish[sent % len(rubbish)])
            sent += 1

    pouring = threading.Thread(target=pour)
    pouring.start()
    rig.fly(options.flood)
    pouring.join()
    grown = rig.memory_mb() - before
    yield f"{sent} datagrams of rubbish in {options.flood} s: memory", f"{grown:+.1f} MB", grown < 8
    yield "behind while they came", f"{rig.lost_seconds():.0f} s", rig.alive() and rig.lost_seconds() <= MOST_LOST_S
    rig.kill()


def pause(folder, options):
    """Stopped for half a minute, as by a sleeping computer."""
    rig = started(folder)
    rig.program.send_signal(signal.SIGSTOP)
    rig.fly(options.pause)
    rig.program.send_signal(signal.SIGCONT)
    rig.fly(6)
    yield f"behind after {options.pause} s of standstill", f"{rig.lost_seconds():.0f} s", (
        rig.alive() and rig.lost_seconds() <= MOST_LOST_S)
    rig.kill(signal.SIGTERM)
    yield "ends in order", str(rig.program.returncode), rig.program.returncode == 0


def day(folder, options):
    """24 hours on a virtual clock: what grows?"""
    def most_mb(hours):
        words = [BIN / "korvelctl", "fly", "--sim", "47.45,-122.3,90,120", "--ticks", str(hours * 7200)]
        script = ("import resource, subprocess, sys; subprocess.run(sys.argv[1:], stdout=subprocess.DEVNULL, check=True);"
                  "print(resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss)")
        done = subprocess.run(["python3", "-c", script, *words], capture_output=True, text=True, check=True)
        return int(done.stdout) / 1024

    short, long = most_mb(1), most_mb(24)
    yield "memory of 24 h over that of 1 h", f"{long - short:+.1f} MB ({short:.0f}, {long:.0f})", long - short < 2


PARTS = {part.__name__: part for part in (kills, saves, disk, clock, flood, pause, day)}
