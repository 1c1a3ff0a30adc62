#!/usr/bin/env python3
"""Unplugs and replugs the simulated drive under the running program, and tells what that costs.

    scripts/replug.py [BIN]      BIN: folder of the built programs, build/release/bin

Works off-screen on a copy of its own. The program is watched from outside: its port is open when one of its
descriptors is the device. Ends with 1 when a device was not opened again within a second, or a rest cost
processor time.
"""
import os
import pathlib
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

ROUNDS = 100
LIMIT = 1.0  # seconds until the port must be open again
REST = 3.0
FLAPS = 50  # in five seconds
TICKS = os.sysconf("SC_CLK_TCK")


def processor_seconds(pid):
    fields = pathlib.Path(f"/proc/{pid}/stat").read_text().rsplit(") ", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / TICKS


def devices_of(pid):
    found = []
    for link in pathlib.Path(f"/proc/{pid}/fd").iterdir():
        try:
            found.append(os.readlink(link))
        except OSError:
            pass  # closed meanwhile
    return found


class Bench:
    def __init__(self, source, folder):
        for name in ("configurator", "drive_simulator", "kavr6 motors.mdb"):
            shutil.copy(source / name, folder)
        self.link = folder / "ports" / "COM1"
        self.drive = subprocess.Popen([folder / "drive_simulator", "--quiet", "--dir", folder],
                                      stdin=subprocess.PIPE, text=True)
        self.wait_for(self.link.is_symlink, 5)
        environment = dict(os.environ, QT_QPA_PLATFORM="offscreen")
        self.program = subprocess.Popen([folder / "configurator"], env=environment, stderr=subprocess.DEVNULL)
        if self.wait_for(self.is_open, 10) is None:
            raise SystemExit("!! the program has not opened the port")
        time.sleep(2)  # until all that follows a start is done

    def end(self):
        for process in (self.program, self.drive):
            process.terminate()
            process.wait()

    def order(self, text):
        self.drive.stdin.write(text + "\n")
        self.drive.stdin.flush()

    def is_open(self):
        return self.link.is_symlink() and os.readlink(self.link) in devices_of(self.program.pid)

    def is_closed(self):
        return not any(name.startswith("/dev/pts/") for name in devices_of(self.program.pid))

    def wait_for(self, holds, limit):
        """Seconds until it holds, None when it does not in time."""
        start = time.monotonic()
        while not holds():
            if time.monotonic() - start > limit:
                return None
            time.sleep(0.0005)
        return time.monotonic() - start

    def rest(self, when):
        before = processor_seconds(self.program.pid)
        time.sleep(REST)
        used = processor_seconds(self.program.pid) - before
        print(f"processor time in {REST:.0f} s {when}: {used * 1000:.0f} ms")
        return used


def main():
    source = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else "build/release/bin").resolve()
    with tempfile.TemporaryDirectory() as name:
        bench = Bench(source, pathlib.Path(name))
        try:
            return measure(bench)
        finally:
            bench.end()


def measure(bench):
    rests = [bench.rest("at rest before")]
    times = []
    for number in range(ROUNDS):
        bench.order("unplug")
        if bench.wait_for(bench.is_closed, 2) is None:
            print(f"!! round {number}: the loss was not noticed")
            return 1
        if number == 0:
            rests.append(bench.rest("unplugged"))
        bench.order("plug")
        bench.wait_for(bench.link.is_symlink, 2)
        times.append(bench.wait_for(bench.is_open, LIMIT))
    late = times.count(None)
    good = [seconds for seconds in times if seconds is not None]
    if good:
        print(f"{ROUNDS} times: {late} not within {LIMIT:.0f} s, median {statistics.median(good) * 1000:.1f} ms, "
              f"slowest {max(good) * 1000:.1f} ms")
    rests.append(bench.rest("at rest after"))
    false = 0
    for last in ("plug", "unplug"):
        for _ in range(FLAPS):
            for order in ("unplug", "plug"):
                bench.order(order)
                time.sleep(0.05)
        bench.order(last)
        holds = bench.is_open if last == "plug" else bench.is_closed
        truthful = bench.wait_for(holds, LIMIT) is not None
        false += not truthful
        print(f"ten times a second for five seconds, then {last}: the port is "
              f"{'open' if bench.is_open() else 'closed'}")
        rests.append(bench.rest("after that"))
    return 1 if late or false or max(rests) > 0.02 else 0


if __name__ == "__main__":
    sys.exit(main())
