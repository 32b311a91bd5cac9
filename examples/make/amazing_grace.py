"""Amazing Grace: four verses of lyrics, chord charts, a repeat, and D.S. al coda."""

from tabwriter import KEY_C, Song

song = Song(
    time=(3, 4), key=(KEY_C, False),
    Title="Amazing Grace", SubTitle="to the tune New Britain", Artist="Words: John Newton, 1779. Tune: traditional",
    TabbedBy="Quillon", Copyright="Public domain",
    Instructions="Verses 1 and 2, back to the sign, verses 3 and 4, then the coda.",
    Notes="The order of play: bars 1 to 18, 3 to 20, 3 to 18 twice, 21 to 24.", Tempo=84, RowSpacing=190,
    AlwaysCharts=True, FontSize=13)
melody = song.AddTrack("Melody and chords", 25, "A. Guitar (Steel)", Volume=24)
picking = song.AddTrack("Picking", 24, "A. Guitar (Nylon)", Volume=30, LyricsOfOtherTrack=1, LyricsTrack=0)

melody.Sing(
    "ma- zing grace! how sweet the sound That saved a wretch like me! "
    "I once was lost, but now am found; Was blind, but now I see.",
    "grace that taught my heart to fear, And grace my fears re- lieved; "
    "How pre- cious did that grace ap- pear The hour I first be- lieved!",
    "ma- ny dan- gers, toils and snares, I have al- rea- dy come; "
    "'Tis grace hath brought me safe thus far, And grace will lead me home.",
    "we've been there ten thou- sand years, Bright shi- ning as the sun, "
    "We've no less days to sing God's praise Than when we'd first be- gun.")
melody.Play(
    # Introduction; the upbeat of the first verse.
    "4 5:3+2:1 4:2+3:0;c=C;dn 2:1 | 4:0+3:0;c=G7 3:0+2:0+1:1;dn 3:0;y=1:A-",
    # The verse.
    "4 5:3+2:1;c=C;go=Verse;y 4:2+3:0;dn 8 1:0;y 2:1",
    "4 5:3+1:0;c=C7;y 3:3+2:1;dn 2:3;y",
    "4 4:3+2:1;c=F;y 4:3+3:2;dn 3:2;y",
    "4 5:3+3:0;c=C;y 4:2+3:0;dn 3:0;y",
    "4 5:3+2:1;y 4:2+3:0;dn 8 1:0;y 2:1",
    "4 5:0+1:0;c=Am;y 4:2+3:2;dn 2:3;y",
    "4 6:3+1:3;c=G;y 3:0+2:0;dn 1:3;dn",
    "4 6:3+1:3;c=G7 3:0+2:0;dn 1:0;y",
    "4 5:3+1:3;c=C;y 3:0+2:1;dn 8 1:0;y 2:1",
    "4 5:3+1:0;c=C7;y 3:3+2:1;dn 2:3;y",
    "4 4:3+2:1;c=F;y 4:3+3:2;dn 3:2;y",
    "4 5:3+3:0;c=C;y 4:2+3:0;dn 3:0;y",
    "4 5:0+2:1;c=Am;y 4:2+3:2;dn 8 1:0;y 2:1",
    "4 6:3+1:0;c=G7;y 4:0+3:0;dn 2:3;y",
    "4 5:3+2:1;c=C;y 4:2+3:0;dn 2:1;dn",
    "4 4:3+3:2+2:1;c=F 5:3+4:2+2:1;c=C 3:0;y=1:'Twas;y=3:When;y=4:Than",
    # Interlude, back to the sign.
    "4 4:3+2:1;c=F;go=Interlude 3:2+2:1;dn 1:1 | 5:3+1:0;c=C 3:0+2:1;dn 3:0;y=2:Through",
    # Coda.
    "4 5:0+2:1;c=Am;go=Coda;y=1:when 4:2+3:2;dn 8 1:0;y=1:we'd 2:1",
    "4 6:3+1:0;c=G7;t=rit.;y=1:first 4:0+3:0;dn 2:3;y=1:be-",
    "4 4:3+2:1;c=F;y=1:gun. 4:3+3:2;dn 2:1;dn",
    "2. 5:3+4:2+3:0+2:1+1:0;c=C;dn")

# The second guitar picks the chords, thumb first; its page shows the words of the first.
PICKED = {
    "C": "8 5:3!p 3:0!i 2:1!m 1:0!a 2:1!m 3:0!i", "C7": "8 5:3!p 3:3!i 2:1!m 1:0!a 2:1!m 3:3!i",
    "F": "8 4:3!p 3:2!i 2:1!m 1:1!a 2:1!m 3:2!i", "G": "8 6:3!p 3:0!i 2:0!m 1:3!a 2:0!m 3:0!i",
    "G7": "8 6:3!p 3:0!i 2:0!m 1:1!a 2:0!m 3:0!i", "Am": "8 5:0!p 3:2!i 2:1!m 1:0!a 2:1!m 3:2!i",
    "FC": "8 4:3!p 3:2!i 5:3!p 3:0!i 2:1!m 3:0!i", "end": "2. 5:3+4:2+3:0+2:1+1:0;dn",
}
picking.Play(*(PICKED[name] for name in
               "C G7 C C7 F C C Am G G7 C C7 F C Am G7 C FC F C Am G7 F end".split()))

song.Mark(3, Segno=-1)
song.Repeat(3, 18)
song.Mark(18, ToCoda=-1)
song.Mark(20, DalSegno=-1)
song.Mark(21, CodaMark=-1)
