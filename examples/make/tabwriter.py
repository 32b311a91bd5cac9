"""Writes songs as Quillon's JSON documents from a short notation.

A bar is a string of words. A word is a length, a change of loudness, the start or end of a passage, or a strum.

Lengths hold until the next one:  1 2 4 8 16 32 64, a dot ("4.") for dotted, t ("8t") for a triplet member.
Loudness holds until the next:    \\ppp \\pp \\p \\mp \\mf \\f \\ff \\fff
Passages:   {pm ... }  palm mute      {* ... }  let ring      {tap ... }  tapping
Strums:     r  is a rest; else notes joined by +, each STRING:FRET with string 1 the highest and fret x for a dead
            note or a letter on a drum track. Behind the fret, in any order:
              h hammer-on or pull-off   s legato slide   u d slide off upward, downward   i j slide in from below, above
              . staccato   > accent   = tied   * let ring   ? ghost note   T8 T16 T32 tremolo picking
              b[NAME] bend (see BENDS)   g[FRET] grace note   ~[FRET] trill   fN left hand finger   !x right hand p i m a
            Behind the notes, each after a semicolon:
              v vibrato   w wide vibrato   pm palm mute   tap slap pop fade   up dn stroke direction
              c=NAME chord chart (see CHORDS)   t=TEXT text above   go=NAME go-to point   bar[NAME] tremolo bar (see DIPS)
              y  takes the next syllable of every verse (see Track.Sing);  y=N:WORD  a syllable of verse N alone
            An underscore in a text is a blank.

Wheel curves count 8 units to a whole tone, which is what the player's default bend coefficient of 7.9 turns into two
semitones of a General MIDI device. One device wheel reaches no further, so no curve here passes 8.
"""

import json
import re
from pathlib import Path

LENGTHS = {"1": 0, "2": 1, "4": 2, "8": 3, "16": 4, "32": 5, "64": 6}
UNITS = [64, 32, 16, 8, 4, 2, 1]  # a length code in 64ths of a whole note
TUPLETS = [3, 5, 6, 7, 9, 10, 11, 12, 13]  # a tuplet of n lasts 2/n of its plain value each
DYNAMICS = {"fff": 3, "ff": 2, "f": 1, "mf": 0, "mp": 4, "p": 5, "pp": 6, "ppp": 7}
NOTE_TECHNIQUES = {".": 1, "T8": 2, "T16": 3, "T32": 4, "u": 6, "d": 7, "s": 8, "i": 9, "j": 10, "h": 11}
STRUM_TECHNIQUES = {"v": 1, "w": 2, "pm": 3, "tap": 4, "slap": 5, "pop": 6, "fade": 7}
STROKES = {"up": 1, "dn": 2}
RIGHT_HAND = {"p": 1, "i": 2, "m": 3, "a": 4, "o": 5}
PERCUSSION_FIELDS = {"X": "dbx", "o": "dlo", "x": "dlx", "r": "dlr", "f": "dlf", "O": "dbo",
                     "s": "dls", "S": "dbs", "c": "dlc", "~": "dro", "t": "dlt", "F": "dbf"}
STANDARD = [64, 59, 55, 50, 45, 40, 35]  # MIDI pitch of the open strings, highest first

# The keys that the songs use, as index of the key list.
KEY_C, KEY_G, KEY_D, KEY_A = 1, 2, 3, 4


def Ramp(points, *stops):
    """A curve of `points` values through stops (place from 0 to 1, height), straight between them."""
    curve = []
    for k in range(points):
        place = k / (points - 1)
        for (x0, y0), (x1, y1) in zip(stops, stops[1:]):
            if place <= x1:
                curve.append(round(y0 + (y1 - y0) * (place - x0) / (x1 - x0), 2))
                break
    return curve


def Bend(height):
    return Ramp(26, (0, 0), (0.3, height), (1, height))


# name: (style, type, curve); style 0 bend, 1 bend and release, 2 bend held from the start
BENDS = {
    "full": (0, 0, Bend(8)),
    "half": (0, 0, Bend(4)),
    "quarter": (0, 0, Bend(2)),
    "full-release": (1, 0, Ramp(26, (0, 0), (0.25, 8), (0.55, 8), (0.8, 0), (1, 0))),
    "half-release": (1, 0, Ramp(26, (0, 0), (0.25, 4), (0.55, 4), (0.8, 0), (1, 0))),
    "pre-release": (2, 0, Ramp(26, (0, 8), (0.5, 8), (0.8, 0), (1, 0))),
}

# name: (range, curve)
DIPS = {
    "dip": ("½", Ramp(25, (0, 0), (0.35, -4), (0.7, 0), (1, 0))),
    "dive": ("1", Ramp(25, (0, 0), (0.2, 0), (1, -8))),
    "scoop": ("1", Ramp(25, (0, -8), (0.4, 0), (1, 0))),
}

# Frets and fingers from the lowest string up, as guitarists say them; "." is an open or silent string's finger. A
# finger that stands on several strings is a barre.
CHORDS = {
    "A": ("x02220", "..123."), "A7": ("x02020", "..1.2."), "Am": ("x02210", "..231."), "Bm": ("x24432", ".13421"),
    "C": ("x32010", ".32.1."), "C7": ("x32310", ".3241."), "D": ("xx0232", "...132"), "D7": ("xx0212", "...213"),
    "E": ("022100", ".231.."), "E7": ("020100", ".2.1.."), "Em": ("022000", ".23..."), "F": ("133211", "134211"),
    "G": ("320003", "32...4"), "G7": ("320001", "32...1"),
}

NOTE_WORD = re.compile(r"(\d):(\d+|x|[A-Za-z~])(.*)$")
NOTE_MARK = re.compile(r"T32|T16|T8|b\[[^]]*\]|g\[[^]]*\]|~\[[^]]*\]|f\d|!\w|[hsudij.>=*?]")


def Units(strum):
    """Length of a strum in 64ths: the tuplet comes first, the dot second."""
    units = UNITS[strum["Length"]]
    if strum.get("HasTuplet"):
        units = units * 2 / TUPLETS[strum.get("Tuplet", 0)]
    return units * 1.5 if strum.get("Dotted") else units


def ReadChord(name):
    frets, fingers = CHORDS[name]
    high_first = list(reversed(frets))
    numbers = [int(fret) for fret in high_first if fret != "x"]
    barre = fingers.count("1") > 1
    return {
        "HasChord": True, "ChordValueA": min(numbers), "ChordValueB": 6, **({"ChordFlag": True} if barre else {}),
        "ChordFrets": high_first + [""],
        "ChordFingers": ["" if finger == "." else finger for finger in reversed(fingers)] + [""],
        "ChordName": name,
    }


class Reader:
    """What carries over from word to word and from bar to bar of one track."""

    def __init__(self):
        self.Length = {"Length": 2}
        self.Dynamic = 0
        self.Passage = ""

    def ReadNote(self, word):
        match = NOTE_WORD.match(word)
        if not match:
            raise ValueError(f"no note: {word}")
        string, fret, marks = match.groups()
        note = {"Fret": fret}
        if self.Dynamic:
            note["Dynamic"] = self.Dynamic
        if self.Passage == "*":
            note["LetRing"] = True
        if NOTE_MARK.sub("", marks):
            raise ValueError(f"unknown mark in {word}")
        for mark in NOTE_MARK.findall(marks):
            inner = mark[2:-1]
            if mark in NOTE_TECHNIQUES:
                note["Technique"] = NOTE_TECHNIQUES[mark]
            elif mark in "=*>?":
                note[{"=": "Tied", "*": "LetRing", ">": "Accentuate", "?": "Ghost"}[mark]] = True
            elif mark[0] == "b":
                style, kind, curve = BENDS[inner]
                note.update(BendPoints=curve, BendStyle=style, BendType=kind, HasBend=True)
            elif mark[0] == "g":
                note.update(GraceFret=inner, GraceDynamic=self.Dynamic, GraceDuration=1, HasGrace=True)
            elif mark[0] == "~":
                note.update(TrillFret=int(inner), TrillPeriod=1, HasTrill=True)
            elif mark[0] == "f":
                note["LeftFinger"] = int(mark[1]) + 1
            else:
                note["RightFinger"] = RIGHT_HAND[mark[1]]
        return int(string) - 1, note

    def ReadStrum(self, word, sing):
        notes, *options = word.split(";")
        strum = dict(self.Length)
        if notes != "r":
            strum["Notes"] = {str(s): note for s, note in sorted(map(self.ReadNote, notes.split("+")))}
        if self.Passage in STRUM_TECHNIQUES:
            strum["Technique"] = STRUM_TECHNIQUES[self.Passage]
        for option in options:
            name, _, text = option.partition("=")
            text = text.replace("_", " ")
            if option in STRUM_TECHNIQUES:
                strum["Technique"] = STRUM_TECHNIQUES[option]
            elif option in STROKES:
                strum["Stroke"] = STROKES[option]
            elif name == "c":
                strum.update(ReadChord(text))
            elif name == "t":
                strum["Text"] = text
            elif name == "go":
                strum["GotoText"] = text
            elif option == "y":
                strum["Syllables"] = sing()
            elif name == "y":
                verse, _, syllable = text.partition(":")
                strum.setdefault("Syllables", [""] * 5)[int(verse) - 1] = syllable
            elif option.startswith("bar["):
                reach, curve = DIPS[option[4:-1]]
                strum.update(TremPoints=curve, TremLength=0, TremRange=reach, HasTrem=True)
            else:
                raise ValueError(f"unknown option {option} in {word}")
        return strum

    def ReadBar(self, text, sing):
        strums = []
        for word in text.split():
            length = re.fullmatch(r"(\d+)(t?)(\.?)", word)
            if length and length[1] in LENGTHS:
                self.Length = {"Length": LENGTHS[length[1]]}
                if length[2]:
                    self.Length.update(Tuplet=0, HasTuplet=True)
                if length[3]:
                    self.Length["Dotted"] = True
            elif word[0] == "\\":
                self.Dynamic = DYNAMICS[word[1:]]
            elif word[0] == "{":
                self.Passage = word[1:]
            elif word == "}":
                self.Passage = ""
            else:
                strums.append(self.ReadStrum(word, sing))
        return strums


class Track:
    def __init__(self, song, **fields):
        self.Song = song
        self.Fields = fields
        self.Verses = []
        self.Strums = []

    def Sing(self, *verses):
        """Verses as words of syllables; each strum marked ;y takes the next one of every verse, where _ is none."""
        self.Verses = [iter(verse.split()) for verse in verses]

    def NextSyllables(self):
        return ([next(verse, "_").replace("_", "") for verse in self.Verses] + [""] * 5)[:5]

    def Play(self, *bars):
        """Adds bars; each argument holds one bar or several with | between them."""
        reader = Reader()
        for text in "|".join(bars).split("|"):
            self.Strums.append(reader.ReadBar(text, self.NextSyllables))

    def Document(self):
        bars = []
        for number, strums in enumerate(self.Strums):
            top, bottom = self.Song.TimeAt(number)
            units = sum(map(Units, strums))
            if abs(units - 64 * top / bottom) > 1e-9:
                raise ValueError(f"{self.Fields['Name']}, bar {number + 1}: {units} of {64 * top / bottom} 64ths")
            key, minor = self.Song.KeyAt(number)
            bars.append({"Key": key, "KeyIsMinor": minor, "Strums": strums})
        return {**self.Fields, "ShowTreble": False, "ShowBass": False, "ShowTab": True, "Bars": bars}


class Song:
    """`time` and `key` hold from the first bar; ChangeTime and ChangeKey from a later one. Bars count from 1 here."""

    def __init__(self, time=(4, 4), key=(KEY_C, False), **header):
        self.Header = header
        self.Tracks = []
        self.Times = {0: time}
        self.Keys = {0: key}
        self.Marks = {}

    def TimeAt(self, bar):
        return self.Times[max(start for start in self.Times if start <= bar)]

    def KeyAt(self, bar):
        return self.Keys[max(start for start in self.Keys if start <= bar)]

    def ChangeTime(self, bar, top, bottom):
        self.Times[bar - 1] = (top, bottom)

    def ChangeKey(self, bar, key, minor=False):
        self.Keys[bar - 1] = (key, minor)

    def Mark(self, bar, **marks):
        """BarInfo fields of a bar, such as Segno=-1, which is true. RepeatClose counts the jumps back: 1 plays the passage twice."""
        self.Marks.setdefault(bar - 1, {}).update(marks)

    def Repeat(self, first, last, times=1):
        self.Mark(first, RepeatOpen=True)
        self.Mark(last, RepeatClose=times)

    def AddTrack(self, name, instrument, instrumentName, tuning=STANDARD[:6], **fields):
        """`tuning` is the MIDI pitch of each open string, highest first. A track takes the next two free channels."""
        channel = 2 * len(self.Tracks)
        channel += 2 * (channel > 7)  # channels 8 and 9 stay clear of the percussion
        offsets = [pitch - standard for pitch, standard in zip(tuning, STANDARD)]
        track = Track(self, Name=name, InstrumentName=instrumentName, Instrument=instrument, Strings=len(tuning),
                      Tuning=offsets + [0] * (7 - len(offsets)),
                      **{"Volume": 50, "Channel": channel, "EffectChannel": channel + 1, **fields})
        self.Tracks.append(track)
        return track

    def AddDrums(self, name, strings, **fields):
        """`strings`: for each line of the drum tab, from the top, a map from letter to General MIDI percussion note."""
        empty = dict.fromkeys(PERCUSSION_FIELDS.values(), 0)
        sounds = [{**empty, **{PERCUSSION_FIELDS[letter]: note - 34 for letter, note in line.items()}} for line in strings]
        track = Track(self, Name=name, Instrument=0, Strings=len(strings), Channel=9,
                      EffectChannel=9, PercStrings=sounds + [empty] * (7 - len(sounds)), IsDrum=True,
                      **{"Volume": 50, **fields})
        self.Tracks.append(track)
        return track

    def Document(self):
        infos = []
        for bar in range(len(self.Tracks[0].Strums)):
            top, bottom = self.TimeAt(bar)
            infos.append({"TimeSigTop": top, "TimeSigBottom": bottom, **self.Marks.get(bar, {})})
        return {**self.Header, "Tracks": [track.Document() for track in self.Tracks], "BarInfos": infos}

    def Write(self, path):
        Path(path).write_text(Pretty(self.Document()) + "\n", encoding="utf-8")


def Pretty(value, depth=0):
    """JSON with a line for each strum, so that a difference between two versions reads like music."""
    pad = "  " * (depth + 1)
    if isinstance(value, dict) and any(key in value for key in ("Tracks", "Bars", "Strums")):
        lines = [f"{pad}{json.dumps(key)}: {Pretty(item, depth + 1)}" for key, item in value.items()]
        return "{\n" + ",\n".join(lines) + "\n" + "  " * depth + "}"
    if isinstance(value, list) and value and isinstance(value[0], dict):
        return "[\n" + ",\n".join(pad + Pretty(item, depth + 1) for item in value) + "\n" + "  " * depth + "]"
    return json.dumps(value, ensure_ascii=False)
