#!/usr/bin/env python3
"""Breaks music files and checks that quillon-cli survives them.

    fuzz/break_files.py CLI [--seed N] [--count N] [--keep FOLDER]

Makes COUNT broken music files from those of examples/ and tests/golden/qlm/, the same ones for the same seed, and runs
"quillon-cli dump" on each. Fails when one crashes the program, takes longer than a second or more than 512 MiB.
Prints the largest time and memory. With --keep the files that failed stay in FOLDER.
"""
import argparse
import os
import pathlib
import random
import resource
import signal
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
MOST_SECONDS = 1.0
MOST_BYTES = 512 << 20
KILL_AFTER = 20  # seconds: enough to tell slow from endless

NUMBERS = [b"0", b"-1", b"7", b"32767", b"32768", b"65536", b"2147483647", b"99999999999999999999", b"1E308", b"1E999",
           b"nan", b"True", b"", b"x", b"0.5", b" 3 "]
TAGS = [b"<\xb832767>", b"<\xb80>", b"<\x9032767>", b"<\x900>", b"<\xb50|0/32767>", b"<TB=0\\1|0>", b"<l:2>", b"<l:",
        b"<f.t.vov:1>", b"<p0|0\\0/0:5|0>", b"<har:0|0\\0/0:3>", b"<\xd2\xd210|a\xa3\xa3$b>", b"<new:1>", b"<", b">",
        b"<\x9e\x9e4>", b"<\xba4>", b"<crd:0|0\\0/", b"<trm:0\\0|0\\2/1|0\\>", b"<dot:0|0\\32767>"]


class Cipher:
    """XOR with the key stream, which the program itself gives for a file of zeros."""

    def __init__(self, cli, folder, size):
        zeros, stream = folder / "zeros", folder / "stream"
        zeros.write_bytes(bytes(size))
        subprocess.run([cli, "encipher", zeros, stream], check=True)
        self.stream = stream.read_bytes()

    def apply(self, data):
        key = self.stream[: len(data)]
        return (int.from_bytes(data, "big") ^ int.from_bytes(key, "big")).to_bytes(len(data), "big")


def break_text(text, dice):
    """One to eight faults in the plain text."""
    for _ in range(dice.randint(1, 8)):
        kind = dice.randrange(8)
        at = dice.randrange(len(text) + 1)
        if kind == 0:  # another number in the place of one
            digits = [i for i in range(at, min(at + 200, len(text))) if text[i : i + 1].isdigit()]
            if digits:
                text = text[: digits[0]] + dice.choice(NUMBERS) + text[digits[0] + 1 :]
        elif kind == 1:
            text = text[:at] + dice.choice(TAGS) * dice.choice([1, 1, 1, 2, 50, 400]) + text[at:]
        elif kind == 2:  # a piece is missing
            text = text[:at] + text[at + dice.randint(1, 60) :]
        elif kind == 3:  # a piece stands twice, or often
            piece = text[at : at + dice.randint(1, 300)]
            text = text[:at] + piece * dice.choice([2, 2, 3, 200]) + text[at:]
        elif kind == 4:
            text = text[:at] + bytes(dice.randrange(256) for _ in range(dice.randint(1, 20))) + text[at:]
        elif kind == 5:
            text = text.replace(dice.choice([b"|", b"\\", b"/", b":", b">", b"<l:", b"<TB="]),
                                dice.choice([b"|", b"/", b"", b">", b"<l:"]), dice.choice([1, 1, 5, -1]))
        elif kind == 6:  # a count bomb: small text, large song
            bars = dice.choice([99, 999, 9999])
            text += b"<\x90%d>" % bars
            text += b"".join(b"<\xb50|%d/32767>" % b for b in range(dice.choice([3, 300])))
        else:
            text = text[:at]
    return text[: 1 << 20]


def break_file(plain, cipher, dice):
    """One file's bytes: most are broken before they are enciphered, some behind it."""
    kind = dice.randrange(10)
    if kind < 8:
        return cipher.apply(break_text(plain, dice))
    data = bytearray(cipher.apply(plain))
    if kind == 8:
        for _ in range(dice.randint(1, 30)):
            data[dice.randrange(len(data))] ^= 1 << dice.randrange(8)
        return bytes(data)
    return bytes(data[: dice.randrange(len(data))])


def dump(cli, file):
    """Seconds, bytes and what is wrong with the end of the program, or None."""
    started = time.monotonic()
    child = subprocess.Popen([cli, "dump", file], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                             stderr=subprocess.DEVNULL,
                             preexec_fn=lambda: (signal.alarm(KILL_AFTER),
                                                 resource.setrlimit(resource.RLIMIT_CORE, (0, 0))))
    _, status, usage = os.wait4(child.pid, 0)
    child.returncode = status
    seconds = time.monotonic() - started
    code = os.waitstatus_to_exitcode(status)
    fault = None if code in (0, 1) else f"ended with {code}"
    return seconds, usage.ru_maxrss * 1024, fault


def main():
    arguments = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    arguments.add_argument("cli", type=pathlib.Path)
    arguments.add_argument("--seed", type=int, default=1)
    arguments.add_argument("--count", type=int, default=1000)
    arguments.add_argument("--keep", type=pathlib.Path)
    given = arguments.parse_args()
    cli = given.cli.resolve()
    songs = sorted([*ROOT.glob("examples/*.qlm"), *ROOT.glob("tests/golden/qlm/*.qlm")])
    dice = random.Random(given.seed)
    slowest, largest, faults = (0.0, ""), (0, ""), []
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        os.environ["QUILLON_BASE"] = str(folder / "base")
        cipher = Cipher(cli, folder, 2 << 20)
        plains = [cipher.apply(song.read_bytes()) for song in songs]
        for number in range(given.count):
            which = dice.randrange(len(plains))
            label = f"{number:04}-{songs[which].name}"
            data = break_file(plains[which], cipher, dice)
            file = folder / "broken.qlm"
            file.write_bytes(data)
            seconds, memory, fault = dump(cli, file)
            slowest = max(slowest, (seconds, label))
            largest = max(largest, (memory, label))
            if seconds > MOST_SECONDS:
                fault = fault or f"took {seconds:.2f} s"
            if memory > MOST_BYTES:
                fault = fault or f"took {memory >> 20} MiB"
            if fault:
                faults.append(f"{label}: {fault}")
                if given.keep:
                    given.keep.mkdir(parents=True, exist_ok=True)
                    (given.keep / label).write_bytes(data)
    print(f"{given.count} files of seed {given.seed} from {len(songs)} songs")
    print(f"slowest {slowest[0] * 1000:.0f} ms ({slowest[1]}), largest {largest[0] / (1 << 20):.0f} MiB ({largest[1]})")
    print("\n".join(faults) if faults else "no fault")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
