#!/usr/bin/env python3
"""Sets up forty simulated drives, one after the other, and tells how long that takes against the line alone.

    scripts/forty_drives.py [BIN]      BIN: folder of the built programs, build/release/bin

Each is written from one file, which is read back, and verified once more by a call of its own. Ends with 1 when a drive
is not done, or the whole takes more than 1.10 times what the line needs.
"""
import pathlib
import statistics
import subprocess
import sys
import tempfile
import time

DRIVES = 40
LIMIT = 1.10
BYTE = 10 / 9600  # seconds
IMAGE = 161
IDENTITY = 1 + 2 + 2 + 4  # "C" and "y" 142 with their answers
PAUSE = 0.1  # behind the image, before its answer is read
WRITE = (IDENTITY + 1 + IDENTITY + 1 + IMAGE + 1 + 1 + IMAGE) * BYTE + PAUSE
VERIFY = (IDENTITY + 1 + IMAGE) * BYTE


def seconds(*call):
    start = time.monotonic()
    subprocess.run(call, check=True, stdout=subprocess.DEVNULL)
    return time.monotonic() - start


def start_drive(program, folder):
    drive = subprocess.Popen([program, "--quiet", "--dir", folder], stdin=subprocess.PIPE, stdout=subprocess.DEVNULL)
    while not (folder / "ports" / "COM1").is_symlink():
        time.sleep(0.01)
    return drive


def main():
    source = pathlib.Path(__file__).resolve().parent.parent
    programs = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else source / "build/release/bin")
    settings = source / "tests/windowless/factory.cnf"
    writes, verifies, drives = [], [], []
    with tempfile.TemporaryDirectory() as folder:
        try:
            places = [pathlib.Path(folder) / str(n) for n in range(DRIVES)]
            for place in places:
                place.mkdir()
                drives.append(start_drive(programs / "drive_simulator", place))
            for place in places:
                call = ["--port", place / "ports" / "COM1", settings]
                writes.append(seconds(programs / "kavr6", "write", *call))
                verifies.append(seconds(programs / "kavr6", "verify", *call))
        finally:
            for drive in drives:
                drive.kill()
                drive.wait()
    for name, times, line in (("write", writes, WRITE), ("verify", verifies, VERIFY)):
        middle = statistics.median(times)
        print(f"{name}: {middle * 1000:.0f} ms, longest {max(times) * 1000:.0f}; the line {line * 1000:.0f}: {middle / line:.3f}")
    share = (sum(writes) + sum(verifies)) / DRIVES / (WRITE + VERIFY)
    print(f"{DRIVES} drives in {sum(writes) + sum(verifies):.1f} s: {share:.3f} times the line")
    return share > LIMIT


if __name__ == "__main__":
    sys.exit(main())
