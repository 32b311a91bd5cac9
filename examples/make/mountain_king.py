"""In the Hall of the Mountain King for two electric guitars, bass and drums, tuned down to A."""

from tabwriter import KEY_C, Song

song = Song(
    key=(KEY_C, True),
    Title="In the Hall of the Mountain King", SubTitle="for a very loud band", Artist="Edvard Grieg, 1875",
    Author="Edvard Grieg", TabbedBy="Quillon", Copyright="Public domain",
    Instructions="The lowest strings are tuned down to A.",
    Notes="Creep in, then give everything.", Tempo=144, RowSpacing=95, FontBold=True)
lead = song.AddTrack("Lead guitar", 30, "E. Guitar (Distortion)", Volume=40)
rhythm = song.AddTrack("Rhythm guitar", 29, "E. Guitar (Overdrive)", tuning=[64, 59, 55, 50, 45, 40, 33], Volume=36)
bass = song.AddTrack("Bass", 34, "E. Bass (Pick)", tuning=[43, 38, 33, 28, 21], Volume=44)
drums = song.AddDrums("Drums", [
    {"X": 49, "O": 52, "x": 51},    # crash, china, ride
    {"x": 42, "o": 46},             # hi-hat closed, open
    {"o": 38},                      # snare
    {"o": 48, "O": 45, "F": 43},    # toms from high to floor
    {"o": 36}], Volume=42)          # bass drum

# The theme is four bars; its two outer bars share their beginning.
theme = [
    "8 4:7 3:4h 3:5 3:7 2:5 3:5 4 2:5", "8 2:4> 3:4 4 2:4 8 2:3> 3:3 4 2:3",
    "8 4:7 3:4h 3:5 3:7 2:5 3:5 2:5 1:5", "8 2:8 2:5 3:5 2:5 2 2:8;v"]
dominant = [
    "8 2:5 2:7 1:4h 1:5 1:7 1:4 4 1:7", "8 1:8> 1:4 4 1:8 8 1:7> 1:4 4 1:7",
    "8 2:5 2:7 1:4h 1:5 1:7 1:4 4 1:7", "8 1:8> 1:4 4 1:8 2 1:7;w"]
picked = [
    "8 1:5T16 1:7T16 1:8T16 1:10T16 1:12T16 1:8T16 4 1:12T16", "8 1:11T16 1:7T16 4 1:11T16 8 1:10T16 1:6T16 4 1:10T16",
    "8 1:5T16 1:7T16 1:8T16 1:10T16 1:12T16 1:8T16 1:12T16 1:17T16", "8 1:15T16 1:12T16 1:8T16 1:12T16 2 1:15b[full]"]


def Tap(high, base, middle):
    """A bar of sixteenths on the first string: tap, pull off, hammer on, pull off."""
    return "16 " + " ".join([f"1:{high}h;tap 1:{base}h 1:{middle}h 1:{base}"] * 4)


lead.Play(
    "1 r;go=Introduction", "2 r 4 6:xd r",
    "\\pp 1 4:7+3:5;fade;go=Theme", "2 3:4+2:4;fade 3:3+2:3;fade", "1 4:7+3:5;fade", "2 3:5+2:5;fade 4 r 8 r 4:5",
    "\\mf " + theme[0], *theme[1:],
    "\\f " + dominant[0], *dominant[1:],
    "\\ff " + picked[0], *picked[1:],
    "\\f " + Tap(12, 5, 8).replace(";tap", ";tap;go=Solo", 1), Tap(13, 5, 8),
    "8t 1:15> 1:12 1:10 1:13> 1:10 1:8 2 2:10b[full]", "2. 1:10b[full];w 4 1:16;bar[dip]",
    "\\fff " + picked[0], *picked[1:],
    "\\fff 8 1:5> r r r 4 r 8 1:5> 1:5>", "8 1:5> r r r 4 r 8 1:5> 1:5>",
    "8t 1:12> 1:10 1:8 2:10> 2:8 2:5 2 3:7b[full];w", "1 1:5>+2:5>+3:5>+4:7>;bar[dive]")

# Rhythm guitar: the theme on the low strings, then power chords with one finger across the lowered string.
LOW = [
    "{pm 8 7:0 7:2 7:3 7:5 6:0 7:3 4 6:0", "8 7:6 7:2 4 7:6 8 7:5 7:1 4 7:5",
    "8 7:0 7:2 7:3 7:5 6:0 7:3 6:0 6:5", "8 6:3 6:0 7:3 6:0 2 6:3 }"]


def Power(fret):
    return f"7:{fret}>+6:{fret}>+5:{fret}>"


def Gallop(*frets):
    """A chord and a damped gallop on the open low string for each fret; a bar of two or four."""
    beat = "8 {chord} {{pm 16 7:0 7:0 }}"
    rest = " {pm 8 7:0 16 7:0 7:0 }"
    return " ".join(beat.format(chord=Power(fret)) + (rest if len(frets) == 2 else "") for fret in frets)


E5 = "8 " + Power(7) + " {pm 16 6:0 6:0 8 6:0 16 6:0 6:0 }"
loud = [Gallop(0, 0), Gallop(2, 1), Gallop(0, 0), Gallop(3, 3, 3, 3)]
pedal = "{pm 8 7:0> 7:0 7:0 7:0 7:0> 7:0 7:0 7:0 }"
rhythm.Play(
    "\\p " + pedal, pedal, "\\p " + LOW[0], *LOW[1:],
    "\\mf " + LOW[0], *LOW[1:],
    *[f"\\f {E5} {E5}"] * 3, f"{E5} 4 {Power(7)} 8 7:3s 7:7",
    "\\ff " + loud[0], *loud[1:],
    Gallop(0, 0), Gallop(8, 8), Gallop(10, 10), f"8 {Power(7)} {{pm 16 7:7 7:7 8 7:7 16 7:7 7:7 }} 2 {Power(7)}",
    "\\fff " + loud[0], *loud[1:],
    *["\\fff 8 " + Power(0) + f" r r r 4 r 8 {Power(0)} {Power(0)}"] * 2,
    f"4t {Power(3)} {Power(3)} {Power(2)} 2 {Power(7)}", f"1 {Power(0)};bar[dive]")

# Bass: the theme an octave below the first guitar, roots in eighths under the rest.
LOWBASS = [
    "8 3:0 3:2 3:3 2:0 2:2 3:3 4 2:2", "8 2:1 3:2 4 2:1 8 2:0 3:1 4 2:0",
    "8 3:0 3:2 3:3 2:0 2:2 3:3 2:2 1:2", "8 1:0 2:2 3:3 2:2 2 1:0"]


def Pump(*notes):
    return "8 " + " ".join(" ".join([note] * (8 // len(notes))) for note in notes)


roots = [Pump("5:0"), Pump("5:2", "5:1"), Pump("5:0"), Pump("5:3")]
bass.Play(
    "1 r", "1 r", *["1 r"] * 3, "2 r 4 r 8 5:3s 5:7",
    *LOWBASS,
    *[Pump("4:0")] * 3, "8 4:0 4:0 4:0 4:0 4 4:0 8 4:2 4:4",
    *roots,
    Pump("5:0"), Pump("4:1"), Pump("4:3"), "8 4:0 4:0 4:0 4:0 2 4:0",
    *roots,
    *["8 5:0> r r r 4 r 8 5:0> 5:0>"] * 2,
    "4t 5:3 5:3 5:2 2 4:0", "1 5:0>")

# Drums: string 1 cymbals, 2 hi-hat, 3 snare, 4 toms, 5 bass drum.
tick = "4 2:x 2:x 2:x 2:x"
creep = "8 2:x+5:o 2:x 2:x 2:x 2:x+5:o 2:x 2:x+3:o? 2:x"
march = "8 2:x+5:o 2:x 2:x+3:o 2:x 2:x+5:o 2:x+5:o 2:x+3:o 2:x"
rock = "8 1:x+5:o 1:x+5:o 1:x+3:o 1:x 1:x+5:o 1:x+5:o 1:x+3:o 1:x+5:o"
double = "16 2:o+5:o 5:o 5:o 5:o 2:o+3:o+5:o 5:o 5:o 5:o 2:o+5:o 5:o 5:o 5:o 2:o+3:o+5:o 5:o 5:o 5:o"


def Crash(bar):
    """The same bar with a crash on its first beat."""
    words = bar.split()
    return " ".join([words[0], "1:X" + words[1][3:], *words[2:]])


fill = "8 1:x+5:o 1:x 16 3:o 3:o 3:o 3:o 4:o 4:o 4:O 4:O 4:F 4:F 3:o> 3:o>"
hit = "8 1:X>+5:o> r r r 16 3:o 3:o 4:O 4:F 8 1:O>+5:o> 1:O>+5:o>"
drums.Play(
    "\\p " + tick, tick, *["\\p " + creep] * 3, "8 2:x+5:o 2:x 2:x 2:x 16 3:o? 3:o? 3:o 3:o 3:o 3:o 3:o> 3:o>",
    "\\mf " + Crash(march), march, march, fill.replace("1:x", "2:x"),
    "\\f " + Crash(rock), rock, rock, fill,
    "\\f " + Crash(double), double, double, fill,
    Crash(rock), rock, rock, "8 1:x+5:o 1:x+5:o 1:x+3:o 1:x 2 1:X+5:o",
    "\\ff " + Crash(double), double, double, fill,
    hit, hit, "4 1:X>+5:o> 3:o+5:o 16 3:o 3:o 4:o 4:o 4:O 4:O 4:F 4:F", "1 1:X>+5:o>")

song.Repeat(7, 10)
song.Repeat(11, 14)
