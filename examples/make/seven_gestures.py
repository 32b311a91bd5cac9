"""Seven Gestures: a slow study in C with one bar and more for each gesture that moves a note while it sounds."""

from tabwriter import KEY_C, Song

song = Song(
    time=(4, 4), key=(KEY_C, False),
    Title="Seven Gestures", SubTitle="A study for electric guitar", Author="Quillon", TabbedBy="Quillon",
    Copyright="Part of Quillon, under its licence",
    Instructions="Slowly. Let every gesture finish before the next begins.",
    Notes="Bend, tremolo bar, vibrato, slide, picking, trill, grace note; a bar of each to listen to and to measure.",
    Tempo=72, RowSpacing=100)
guitar = song.AddTrack("Guitar", 27, "E. Guitar (Clean)", Volume=40)

guitar.Play(
    # Vibrato, narrow and wide. It leaves the wheel off its rest, where the bends behind it bring it back.
    "2 1:5;v;t=Vibrato 2 1:8;w",
    # Bends: up a tone and back, up half a tone, held from the start and let down.
    "2 3:7b[full];t=Bend 4 2:5 2:6", "2 3:7b[full-release] 4 3:5 4:7", "2 2:6b[half] 2 2:8b[pre-release]",
    # Tremolo bar: a dip, a dive, a scoop.
    "1 2:5;bar[dip];t=Tremolo_bar", "2 1:5;bar[dive] 2 1:3;bar[scoop]",
    # Slides over three and over seven frets, and down again.
    "2 2:5s;t=Slide 2 2:8", "2 2:8s 2 2:15", "2 2:15s 2 2:10",
    # Picking in eighths, sixteenths and thirty-seconds.
    "2 1:8T8;t=Tremolo_picking 4 1:7T16 1:5T32",
    # Trills to the tone above.
    "2 1:5~[7];t=Trill 2 1:3~[5]",
    # Grace notes before the beat.
    "4 2:6;t=Grace_notes 2:8g[7] 1:5g[3] 1:3g[1]",
    # Short notes, dead notes, and strings that ring on.
    "{pm 8 5:3;t=Palm_mute 5:3 5:5 5:3 4:2 4:3 4:2 5:5 }", "4 5:3 8 5:x 4:x 4 4:2. 3:x",
    "{* 4 5:3;t=Let_ring 4:2 3:0 2:1 }",
    "1 5:3+4:2+3:0+2:1+1:0;dn")
