#include "shell/CursorText.h"

#include "tests/shell/ShellFixture.h"

namespace Quillon::Shell {
namespace {

class CursorTextTest : public ShellTest {
protected:
    CursorTextTest() {
        Core::TabFile& file = Core::Open.TabFile;
        file.BarInfos.Edit(0) = {.TimeSigTop = 6, .TimeSigBottom = 8};
        auto& strums = file.Tracks[0].Bars.Edit(0).EditStrums();
        strums.Resize(3);
        for (int i = 0; i < 3; ++i) strums[i].Length = 3;
        strums[0].Dotted = true;
        strums[1].HasTuplet = true;
        strums[1].Notes.Edit(2).Fret = "7";
        Core::Open.CurString = 2;
    }
};

TEST_F(CursorTextTest, PlacesCountBeatsOfTheTimeSignature) {
    EXPECT_EQ(PlaceText(), "Bar 1 of 1, beat 1, bar not full");
    Core::Open.CurStrum = 1;
    EXPECT_EQ(PlaceText(), "Bar 1 of 1, beat 2.5, bar not full") << "after a dotted eighth of eighths";
    Core::Open.CurStrum = 2;
    EXPECT_EQ(PlaceText(), "Bar 1 of 1, beat 3.17, bar not full") << "after an eighth of a triplet";
}

TEST_F(CursorTextTest, NotesAreToldByStringOrByPitch) {
    EXPECT_EQ(NoteText(), "string 3, no note, dotted eighth");
    Core::Open.CurStrum = 1;
    EXPECT_EQ(NoteText(), "string 3, fret 7, eighth of a tuplet");
    Core::Open.InputMode = Core::NotationInput;
    Core::Open.CurPitch = 62;
    EXPECT_EQ(NoteText(), "D4, fret 7, eighth of a tuplet");
    Core::Open.CurPitch = 63;
    EXPECT_EQ(NoteText(), "D#4, no note, eighth of a tuplet");
    Core::Open.TabFile.Tracks[0].IsDrum = true;
    EXPECT_EQ(NoteText(), "string 3, sound 7, eighth of a tuplet");
    auto& note = Core::EditStrum(0, Core::Open.CurBar, Core::Open.CurStrum).Notes.Edit(2);
    note.Fret = "s";
    Core::Open.TabFile.Tracks[0].PercStrings[2] = {};
    EXPECT_EQ(NoteText(), "string 3, sound s (plays nothing on this string), eighth of a tuplet");
}

TEST_F(CursorTextTest, WhatIsNotThereIsNotTold) {
    for (const std::int16_t outside : std::initializer_list<std::int16_t>{-1, 5, 32767}) {
        Core::Open.CurStrum = outside;
        EXPECT_EQ(CursorText(), "");
    }
    Core::Open.CurStrum = 0;
    Core::Open.CurString = 7;
    Core::Open.TabFile.Tracks[0].Bars.Edit(0).EditStrums()[0].Length = 99;
    EXPECT_EQ(NoteText(), "");
    EXPECT_EQ(CursorText(), "Bar 1 of 1, beat 1, bar not full, track 1, Track 1");
}

TEST_F(CursorTextTest, TheWholePlaceIsToldWhatChangesMostFirst) {
    Core::Open.CurStrum = 1;
    EXPECT_EQ(CursorText(),
              "string 3, fret 7, eighth of a tuplet, Bar 1 of 1, beat 2.5, bar not full, track 1, Track 1");
    Core::Open.TabFile.BarInfos.Edit(0) = {.TimeSigTop = 1, .TimeSigBottom = 4};
    EXPECT_EQ(PlaceText(), "Bar 1 of 1, beat 1.75, bar overfull");
    Core::Open.CurStrum = 0;
    auto& strums = Core::Open.TabFile.Tracks[0].Bars.Edit(0).EditStrums();
    strums.Resize(1);
    strums[0] = {};
    strums[0].Length = 2;
    EXPECT_EQ(PlaceText(), "Bar 1 of 1, beat 1, bar full");
}

}  // namespace
}  // namespace Quillon::Shell
