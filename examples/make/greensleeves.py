"""Greensleeves for solo guitar: an arpeggio study with fingering, let ring and a variation in sixteenths."""

from tabwriter import KEY_C, Song

song = Song(
    time=(6, 8), key=(KEY_C, True),
    Title="Greensleeves", SubTitle="Study with a variation", Artist="English, 16th century",
    TabbedBy="Quillon", Copyright="Public domain", Instructions="Let the bass ring under the melody.",
    Notes="First strain, refrain, and the first strain once more in sixteenths.", Tempo=120, RowSpacing=75)
guitar = song.AddTrack("Guitar", 24, "A. Guitar (Nylon)")

opening = "8 {* 5:0!p;t=Andante;go=Strain 4:2f2!i 2:1f1!m 1:0!a 2:1!m } 3:2f3!i"

# The strain: bass and melody on the beats, inner voices between them.
strain = [
    "8 {* 5:0!p+2:1f1!m 4:2f2!p 2:3f4!m 8. 1:0!a+3:2f3!i 16 } 1:2f4!m 8 1:0!a",
    "8 {* 6:3f3!p+2:3f4!m 4:0!p 2:0!m 8. 5:2f2!p+3:0!i } 16 3:2f1!m 8 2:0!a",
    "8 {* 4:3f3!p+2:1f1!m 5:3f4!p 3:2f2!i 8. } 5:0!p+3:2f2!i 16 3:1f1!m 8 3:2f2!i",
    "8 {* 6:0!p+2:0!m 4:2f2!p 3:1f1!i 6:0!p+4:2f2!i 5:2f3!p } 3:2f3!i",
    "8 {* 5:0+2:1 4:2 2:3 8. 1:0+3:2 16 } 1:2 8 1:0",
    "8 {* 6:3+2:3 4:0 2:0 8. 5:2+3:0 } 16 3:2 8 2:0",
    "8. {* 5:0+2:1 } 16 2:0 8 3:2 8. {* 6:0+3:1 } 16 4:4 8 3:1",
    "8 {* 5:0+3:2 4:2 2:1 1:0 2:1 } 3:2",
]

refrain = [
    "8 {* 5:3f3!p+1:3f4!a 3:0!i 2:1f1!m 8. 4:2f2!p+1:3f4!a } 16 1:2f2!m 8 1:0!a",
    strain[5],
    "8 {* 5:0+2:1 4:2 3:2 8. } 5:0+3:2 16 3:1 8 3:2",
    "8 {* 6:0+2:0 4:2 3:1 6:0+4:2 3:1 } 2:0",
    "8 {* 5:3+1:3 3:0 2:1 8. 4:2+1:3 } 16 1:2 8 1:0",
    strain[5],
    strain[6],
    "8 {* 5:0+3:2 4:2 2:1 1:0 2:1 } 4:2",
]

variation = [
    "16 {* \\mp 5:0+2:1;go=Variation 4:2 3:2 4:2 2:3 3:2 5:0+1:0 3:2 4:2 } 1:2 1:0 3:2",
    "16 {* 6:3+2:3 4:0 3:0 4:0 2:0 3:0 5:2+3:0 4:0 5:2 } 3:2 2:0 4:0",
    "16 {* 4:3+2:1 5:3 4:3 5:3 3:2 4:3 5:0+3:2 4:2 5:0 } 3:1 3:2 4:2",
    "16 {* 6:0+2:0 4:2 3:1 4:2 3:1 5:2 6:0+4:2 5:2 3:1 2:0 8 } 3:2",
    "16 {* 5:0+2:1 4:2 3:2 4:2 2:3 3:2 5:0+1:0 3:2 4:2 } 1:2 1:0 3:2",
    "16 {* 6:3+2:3 4:0 3:0 4:0 2:0 3:0 5:2+3:0 4:0 5:2 } 3:2 2:0 4:0",
    "16 {* 5:0+2:1 4:2 3:2 } 2:0 3:2 4:2 {* 6:0+3:1 5:2 4:2 } 4:4 3:1 2:0",
    "16 {* \\p 5:0+3:2 4:2 2:1 1:0 1:5 1:0 8 2:1;t=rit. 3:2 4:2 }",
]

guitar.Play(opening, *strain, *refrain, strain[7], *variation, "2. \\pp 5:0*+4:2*+3:2*+2:1*+1:0*;dn")
song.Repeat(2, 9)
song.Repeat(10, 17)
