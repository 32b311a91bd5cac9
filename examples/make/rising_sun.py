"""House of the Rising Sun: an arpeggio in 6/8. Its chord diagrams come from the chord library, see chords.sh."""

from tabwriter import KEY_C, Song

song = Song(
    time=(6, 8), key=(KEY_C, False),
    Title="House of the Rising Sun", SubTitle="Arpeggio with the library's chords", Artist="Traditional",
    TabbedBy="Quillon", Copyright="Public domain",
    Instructions="Let every chord ring until the next.",
    Notes="The diagrams were added by the chord manager's command of quillon-cli.", Tempo=120, RowSpacing=150,
    AlwaysCharts=True)
guitar = song.AddTrack("Guitar", 25, "A. Guitar (Steel)", Volume=40)

PICKED = {
    "Am": "8 5:0!p 3:2!i 2:1!m 1:0!a 2:1!m 3:2!i", "C": "8 5:3!p 3:0!i 2:1!m 1:0!a 2:1!m 3:0!i",
    "D": "8 4:0!p 3:2!i 2:3!m 1:2!a 2:3!m 3:2!i", "F": "8 6:1!p 3:2!i 2:1!m 1:1!a 2:1!m 3:2!i",
    "E": "8 6:0!p 3:1!i 2:0!m 1:0!a 2:0!m 3:1!i", "E7": "8 6:0!p 4:0!i 3:1!m 2:0!a 3:1!m 4:0!i",
    "end": "2. 5:0+4:2+3:2+2:1+1:0;dn",
}
guitar.Play(*("{* " + PICKED[name] + " }" for name in
              "Am C D F Am C E E7 Am C D F Am E Am E7 end".split()))
