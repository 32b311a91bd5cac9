#!/usr/bin/env python3
"""Checks song documents as music: full bars, equal bar counts, playable positions, repeats and signs that lead home.

Usage: check.py SONG.json ...   Prints one line a fault; the exit status is 1 when there is any.
"""

import json
import sys
from pathlib import Path

from tabwriter import PERCUSSION_FIELDS, STANDARD, Units

MAX_SPAN = 5  # frets from the lowest to the highest fretted note of one strum
MAX_FRET = 24
MAX_JUMPS = 1000


def CheckStrum(track, strum):
    notes = {int(string): note for string, note in strum.get("Notes", {}).items()}
    for string, note in notes.items():
        fret = note.get("Fret", "")
        if string >= track["Strings"]:
            yield f"string {string + 1} of {track['Strings']}"
        elif track.get("IsDrum"):
            if not track["PercStrings"][string].get(PERCUSSION_FIELDS.get(fret, ""), 0):
                yield f"letter {fret} plays nothing on string {string + 1}"
        elif fret != "x" and not (fret.isdigit() and int(fret) <= MAX_FRET):
            yield f"fret {fret}"
        elif fret != "x" and not 21 <= STANDARD[string] + track["Tuning"][string] + int(fret) <= 100:
            yield f"pitch of string {string + 1}, fret {fret}"
        if note.get("Harmonic"):
            yield "a harmonic, which a music file cannot give back"
    if track.get("IsDrum"):
        return
    fretted = [int(note["Fret"]) for note in notes.values() if note["Fret"] not in ("x", "0")]
    if fretted and max(fretted) - min(fretted) > MAX_SPAN:
        yield f"a span from fret {min(fretted)} to {max(fretted)}"


def CheckBonds(strums):
    """Ties, hammer-ons and slides need a note that follows on their string; a tie needs the same fret."""
    for strum, after in zip(strums, strums[1:] + [{}]):
        for string, note in strum.get("Notes", {}).items():
            tied, led = note.get("Tied", False), note.get("Technique") in (8, 11)
            target = after.get("Notes", {}).get(string)
            if (tied or led) and target is None:
                yield f"nothing follows on string {int(string) + 1}"
            elif (tied and target["Fret"] != note["Fret"]) or (led and target["Fret"] == note["Fret"]):
                yield f"fret {note['Fret']} leads to fret {target['Fret']}"


def PlayOrder(infos):
    """The bars in the order of playing, as the player takes repeats, D.S. and the coda."""
    order, bar, start, left, inRepeat, taken = [], 0, 0, 0, False, False
    sign = next((i for i, info in enumerate(infos) if info.get("Segno")), 0)
    coda = next((i for i, info in enumerate(infos) if info.get("CodaMark")), 0)
    while bar < len(infos) and len(order) < MAX_JUMPS:
        info = infos[bar]
        order.append(bar)
        if info.get("RepeatOpen"):
            start = bar
        if info.get("RepeatClose") and not inRepeat:
            left, inRepeat = info["RepeatClose"], True
        if inRepeat and info.get("RepeatClose"):
            if left:
                left, bar = left - 1, start
                continue
            inRepeat = False
        if inRepeat:
            bar += 1
            continue
        if info.get("ToCoda") and taken:
            bar = coda - 1
        if info.get("DalSegno") and not taken:
            bar, taken = sign - 1, True
        bar += 1
    return order


def CheckSigns(infos):
    opened = None
    for bar, info in enumerate(infos):
        if info.get("RepeatOpen"):
            if opened is not None:
                yield f"bar {bar + 1}: a repeat opens within that of bar {opened + 1}"
            opened = bar
        if info.get("RepeatClose"):
            if opened is None:
                yield f"bar {bar + 1}: a repeat closes that none opened"
            opened = None
    if opened is not None:
        yield f"bar {opened + 1}: a repeat that never closes"
    marks = {name: [bar for bar, info in enumerate(infos) if info.get(name)]
             for name in ("Segno", "DalSegno", "ToCoda", "CodaMark")}
    if any(len(bars) > 1 for bars in marks.values()):
        yield "a sign stands twice"
    elif bool(marks["Segno"]) != bool(marks["DalSegno"]) or bool(marks["ToCoda"]) != bool(marks["CodaMark"]):
        yield "a sign without its partner"
    order = PlayOrder(infos)
    if len(order) >= MAX_JUMPS:
        yield "the song jumps without end"
    elif missed := sorted(set(range(len(infos))) - set(order)):
        yield f"bars never played: {[bar + 1 for bar in missed]}"


def Check(document):
    infos = document["BarInfos"]
    yield from CheckSigns(infos)
    for track in document["Tracks"]:
        if len(track["Bars"]) != len(infos):
            yield f"{track['Name']}: {len(track['Bars'])} bars of {len(infos)}"
        strums = [strum for bar in track["Bars"] for strum in bar["Strums"]]
        for fault in CheckBonds(strums):
            yield f"{track['Name']}: {fault}"
        for number, (bar, info) in enumerate(zip(track["Bars"], infos), 1):
            full = 64 * info["TimeSigTop"] / info["TimeSigBottom"]
            if abs(sum(map(Units, bar["Strums"])) - full) > 1e-9:
                yield f"{track['Name']}, bar {number}: not {full} 64ths"
            for place, strum in enumerate(bar["Strums"], 1):
                for fault in CheckStrum(track, strum):
                    yield f"{track['Name']}, bar {number}, strum {place}: {fault}"


if __name__ == "__main__":
    faults = [f"{name}: {fault}" for name in sys.argv[1:]
              for fault in Check(json.loads(Path(name).read_text(encoding="utf-8")))]
    print("\n".join(faults) or f"{len(sys.argv) - 1} songs, no fault")
    sys.exit(bool(faults))
