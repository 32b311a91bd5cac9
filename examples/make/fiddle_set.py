"""Drowsy Maggie and The Irish Washerwoman: a reel and a jig as a set for two guitars."""

from tabwriter import KEY_D, KEY_G, Song

song = Song(
    key=(KEY_D, False),
    Title="Drowsy Maggie", SubTitle="and The Irish Washerwoman, a reel and a jig", Artist="Traditional",
    TabbedBy="Quillon", Copyright="Public domain",
    Instructions="Keep the right hand moving in eighths.", Tempo=168, RowSpacing=100)
lead = song.AddTrack("Lead guitar", 25, "A. Guitar (Steel)", Volume=45)
rhythm = song.AddTrack("Rhythm guitar", 25, "A. Guitar (Steel)", Volume=18)

maggie = "4 4:2 8 2:0 4:2 2:3g[2] 4:2 2:0 4:2"
babc = "8 2:0 3:2 2:0h 2:2s 2:3 3:2 4:4 4:0"
dfd = "4 2:3 8 1:2 2:3 4 2:2 8 1:0 2:2"
climb = "8 2:3 1:0h 1:2h 1:3 1:5 1:2 1:3h 1:0"
reel = [
    maggie.replace("4:2", "4:2;go=Reel", 1), "4 4:2 8 2:0 4:2 3:2 4:4h 4:0 4:4", maggie, babc,
    dfd, climb, dfd, "8 2:0 3:2 2:0h 2:2s 2:3 3:2 4:4 3:2",
    dfd, climb, "8 1:5h 1:2 1:3h 1:0 1:2 2:3 1:0 2:2", babc,
]
link = "2 4:2>+3:0+2:0 4 r 8 2:3h 2:1"
washerwoman = "8 2:0> 3:0 3:0 4:0> 3:0 3:0"
turn = "8 2:0> 3:0 2:0 2:3>h 2:1h 2:0"
cadence = "8 2:1>h 2:0h 2:1 3:2> 2:3h 2:1"
jig = [
    washerwoman.replace("2:0>", "2:0>;go=Jig", 1), turn, "8 2:1> 3:2 3:2 4:2> 3:2 3:2", "8 2:1> 3:2 2:1 1:0> 2:3h 2:1",
    washerwoman, turn, cadence, "8 2:0> 3:0 3:0 3:0> 2:3h 2:1",
    "8 1:7> 1:3 1:3 2:3> 1:3 1:3", "8 1:7> 1:3 1:7 1:7>s 1:5h 1:3",
    "8 1:5> 1:2 1:2 2:3> 1:2 1:2", "8 1:5> 1:2 1:5 1:5>h 1:3h 1:2",
    "8 1:0> 1:3i 1:3 2:3> 1:3 1:3", "8 2:1> 1:3 1:3 2:0> 1:3 1:3", cadence, "8 2:0> 3:0 3:0 4. 3:0>",
]
lead.Play(*reel, link, *jig, "2. 6:3+5:2+4:0+3:0+2:0+1:3;dn")

# The rhythm guitar is written in half bars: a chord's full strum, then its upper strings down and up (reel), or up (jig).
FULL = {"G": "6:3+5:2+4:0+3:0+2:0+1:3", "Em": "6:0+5:2+4:2+3:0+2:0+1:0", "D": "4:0+3:2+2:3+1:2", "Am": "5:0+4:2+3:2+2:1+1:0",
        "Bm": "5:2+4:4+3:4+2:3+1:2", "A": "5:0+4:2+3:2+2:2+1:0", "C": "5:3+4:2+3:0+2:1+1:0", "D7": "4:0+3:2+2:1+1:2"}


def Accompany(pattern, chords):
    """Bars of two half bars each. A chord's chart stands where the chord changes."""
    bars, last = [], ""
    for bar in chords.split("|"):
        halves = []
        for name in (bar.split() * 2)[:2]:
            top = "+".join(FULL[name].split("+")[-3:])
            halves.append(pattern.format(full=FULL[name], top=top, chart="" if name == last else f";c={name}"))
            last = name
        bars.append(" ".join(halves))
    return bars


reelChords = "Em|Em D|Em|Bm D|D A|D A|D A|Bm D|D A|D A|D A|Bm D"
jigChords = "G|G|Am|Am D7|G|G|C D7|G|G|G|D|D|C G|C G|C D7|G"
reelBars = Accompany("4 {full}{chart};dn 8 {top};dn {top};up", reelChords)
# The first chart stands on the second strum: over the first it would meet the tempo of the page's header.
reelBars[0] = reelBars[0].replace(";c=Em;dn 8 3:0+2:0+1:0", ";dn 8 3:0+2:0+1:0;c=Em")
rhythm.Play(
    *reelBars,
    f"2 {FULL['Em']}>;c=Em;dn 4 r {FULL['D7']};c=D7;dn",
    *Accompany("4 {full}{chart};dn 8 {top};up", jigChords),
    f"2. {FULL['G']};c=G;dn")

song.Repeat(1, 4)
song.Repeat(5, 12)
song.ChangeTime(14, 6, 8)
song.ChangeKey(14, KEY_G)
song.Repeat(14, 21)
song.Repeat(22, 29)
