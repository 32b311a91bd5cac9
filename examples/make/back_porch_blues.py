"""A slow blues in A: two choruses of the traditional twelve-bar form, the shuffle written out in 12/8."""

from tabwriter import KEY_A, Song

song = Song(
    time=(12, 8), key=(KEY_A, False),
    Title="Back Porch Blues", SubTitle="Two choruses in A", Author="Quillon",
    TabbedBy="Quillon", Copyright="Part of Quillon, under its licence",
    Instructions="Slow and behind the beat.", Tempo=108, RowSpacing=90)
lead = song.AddTrack("Lead guitar", 27, "E. Guitar (Clean)", Volume=45)
rhythm = song.AddTrack("Rhythm guitar", 26, "E. Guitar (Jazz)", Volume=28)
bass = song.AddTrack("Bass", 33, "E. Bass (Finger)", tuning=[43, 38, 33, 28], Volume=45)
drums = song.AddDrums("Drums", [
    {"X": 49, "x": 51},             # crash, ride
    {"x": 42, "o": 46, "f": 44},    # hi-hat closed, open, with the foot
    {"o": 38, "r": 37},             # snare, rim
    {"o": 48, "O": 45, "F": 43},    # toms from high to floor
    {"o": 36}], Volume=38)          # bass drum

turnaround = "4. 4:7 8 2:8+1:5 2:8+1:5 2:8+1:5 2:7+1:5 2:7+1:5 2:7+1:5 2:6+1:5 2:6+1:5 2:6+1:5"
lead.Play(
    "8 r;go=Chorus_1 3:5h 3:7 4 2:5 8 1:5 4. 2:8b[full] 4 2:5 8 3:7",
    "4 3:7b[half] 8 3:5 4. 4:7;v 2. r",
    "8 r 3:5h 3:7 4 2:5 8 1:5 4. 2:8b[full] 8 2:8h 2:5 3:7",
    "4 3:5h 8 3:6 4. 4:7;v 4 r 8 4:7 3:5h 3:6 2:5",
    "4. 1:8b[quarter] 4 1:5 8 2:8 4 2:7 8 2:5 4. 3:7;v",
    "8 r 3:7 2:5 2:7s 2:8 1:5 4 1:8 8 1:5 4. 2:8b[half]",
    "4 2:5 8 3:6 4. 4:7;v 8 r 4:7 3:5h 3:6 2:5 1:5",
    "4. 1:5;w r 8 1:5h 1:8h 1:5 2:8h 2:5 3:7",
    "4. 1:7;v 4 1:5 8 2:9 4 2:8 8 2:5 4. 3:7",
    "4. 1:5;v 4 2:8 8 2:7 4 2:5 8 3:7 4. 3:5b[quarter]",
    turnaround,
    "4. 3:6+2:5 8 r r 5:6s+4:5s+3:6s 4. 5:7+4:6+3:7 r",
    # Second chorus: higher, and with double stops.
    "\\f 8 2:8b[full];go=Chorus_2 1:5 1:5 2:8b[full] 1:5 1:5 2:8b[full] 1:5 1:5 2:8b[full] 1:5 1:5",
    "\\f 4. 1:8b[half] 4 1:5 8 2:8 4 2:5 8 3:7 4. 3:5b[quarter]",
    "8 4:7 3:5 3:7s 3:9 2:8h 2:10 4. 1:8 1:10b[full]",
    "4. 1:10b[full-release] 4 1:8 8 2:10 4. 2:10;w r",
    "4 2:7+1:5 8 2:8+1:8 4. 2:7+1:5 4 3:7g[5] 8 2:5 4. 2:7;v",
    "8 1:8b[half] 1:5 2:8h 2:5 3:7 3:5 4. 3:7b[pre-release] 3:7;w",
    "8 r 4:7 3:5h 3:6 2:5 3:6 4. 1:5>;v 3:6+2:5",
    "8 3:6 2:5 1:5 2:8b[full] 1:5 2:8 4 2:5 8 3:8 3:7h 3:5 4:7",
    "4. 2:9+1:7;v 4 2:9g[8]+1:7 8 2:9+1:7 4 1:7 8 2:9 4. 2:5",
    "4. 2:7+1:5;v 4 2:7g[6]+1:5 8 2:7+1:5 4 1:5 8 2:7 4. 3:7",
    turnaround,
    "4. 3:6+2:5 8 r r 5:6s+4:5s+3:6s 4. 5:7+4:6+3:7 8 r r 4:6s+3:7s+2:6s", "1. 4:5>+3:6>+2:5>+1:5>;w")


def Shuffle(root, text=""):
    """A bar of fifth and sixth, damped: root names the open string."""
    low, high = {"A": ("5:0", 4), "D": ("4:0", 3), "E": ("6:0", 5)}[root]
    fifth, sixth = f"{low}+{high}:2", f"{low}+{high}:4"
    first = fifth + (f";t={text}" if text else "")
    return f"{{pm 4 {first} 8 {fifth} 4 {sixth} 8 {sixth} 4 {fifth} 8 {fifth} 4 {sixth} 8 {sixth} }}"


form = "A A A A D D A A E D A"
names = {"A": "A7", "D": "D7", "E": "E7"}


def Chorus():
    bars, last = [], ""
    for root in form.split():
        bars.append(Shuffle(root, "" if root == last else names[root]))
        last = root
    return bars


rhythm.Play(
    *Chorus(), "4. 5:0+4:2 8 r r 5:6s+4:5s+3:6s 4. 5:7>+4:6>+3:7>;t=E7 r",
    *Chorus(), "4. 5:0+4:2 8 r r 5:6s+4:5s+3:6s 4. 5:7>+4:6>+3:7>;t=E7 8 r r 5:8s+4:6s+3:7s+2:6s",
    "1. 5:7>+4:5>+3:6>+2:5>;t=A7;dn")

# The bass walks a note a beat; every other bar of a chord comes back down.
up = {"A": "4. 4:5 3:4 3:7 2:4", "D": "4. 3:5 2:4 2:7 1:4", "E": "4. 4:0 4:4 3:2 3:4"}
down = {"A": "4. 2:5 2:4 3:7 4 3:4 8 4:4", "D": "4. 1:5 1:4 2:7 4 2:4 8 3:7"}
walk = [up["A"], down["A"], up["A"], "4. 2:5 2:4 3:7 4 3:4 8 3:4", up["D"], down["D"], up["A"], "4. 2:5 2:4 3:7 3:4",
        up["E"], up["D"], "4. 4:5 3:4 3:5 2:3"]
bass.Play(
    *walk, "4. 4:5 8 r r 3:6 4. 3:7 4 4:0 8 4:4",
    *walk, "4. 4:5 8 r r 3:6 4. 3:7 8 r r 4:6", "1. 4:5")

# Drums: string 1 cymbals, 2 hi-hat, 3 snare, 4 toms, 5 bass drum.
ride = "4 1:x+5:o 8 1:x 4 1:x+3:o 8 1:x 4 1:x+5:o 8 1:x+5:o 4 1:x+3:o 8 1:x"
hats = ride.replace("1:x", "2:x")
crash = "4 1:X+5:o 8 2:x 4 2:x+3:o 8 2:x 4 2:x+5:o 8 2:x+5:o 4 2:x+3:o 8 2:o"
fill = "4. 2:x+5:o 8 r r 3:o+5:o 4. 1:X+5:o 8 3:o 4:o 4:F"
drums.Play(
    crash, *[hats] * 3, crash, *[hats] * 6, fill,
    "4 1:X+5:o 8 1:x 4 1:x+3:o 8 1:x 4 1:x+5:o 8 1:x+5:o 4 1:x+3:o 8 1:x", *[ride] * 10,
    "4. 2:x+5:o 8 r r 3:o+5:o 4. 1:X+5:o 8 3:o 4:o 3:o>+5:o", "1. 1:X>+5:o>")
