// MIDI files into the song: by the dialog, which a test stands in for, cancelled, damaged, and one track alone.
#include <algorithm>

#include "exchange/MidiExport.h"
#include "shell/Commands.h"
#include "shell/MidiImportModel.h"
#include "tests/shell/ShellFixture.h"

namespace Quillon::Shell {
namespace {

using Core::Open;
using Testing::Spill;

class MidiCommands : public ShellTest {
protected:
    MidiCommands() {
        Start("");
        Core::TabFile song;
        song.Tracks.Resize(2);
        song.Tracks[0].Name = "First";
        song.Tracks[1].Name = "Second";
        for (Core::Track& track : song.Tracks) {
            track.Bars.Edit(0).EditStrums()[0].Notes.Edit(2).Fret = "7";
            track.Bars.Edit(0).EditStrums()[0].Length = 0;
        }
        Spill(folder / "band.mid", WriteSmf(Exchange::MidiOfDocument(song, {})));
        Window().OpenAnswer = folder / "band.mid";
    }
    /// What a person does: sets the dialog up, and imports.
    void Imports(const std::function<void(MidiImportModel&)>& setUp, int cancelAt = 1000) {
        Window().On<MidiImportModel>([=, this](MidiImportModel& model) {
            setUp(model);
            return done = model.Command2_Click([=](int percent) { return percent < cancelAt; });
        });
    }
    bool done = false;
};

TEST_F(MidiCommands, AFileBecomesTheSongByTheReaderThatWasChosen) {
    for (const auto reader : {ImportModel::Classic, ImportModel::Other}) {
        SCOPED_TRACE(reader);
        Open = {};
        Open.FileName = "/before.qlm";
        Imports([&](MidiImportModel& model) {
            EXPECT_EQ(model.TrackList, (std::vector<std::string>{"Track 1", "First", "Second"}));
            EXPECT_EQ(model.Reader, ImportModel::Classic);
            EXPECT_EQ(model.Tried(ImportModel::Other)->Report.NotesKept, 2);
            model.Chosen = {false, false, false};
            EXPECT_FALSE(model.Command2_Click({}));
            EXPECT_EQ(Box().Shown.back(), "Choose a track to import.");
            model.Chosen = {false, true, true};
            model.Changed();
            EXPECT_EQ(model.Tried(ImportModel::Classic)->File.Tracks.Count(), 2);
            model.Reader = reader;
        });
        RunCommand(*FindCommand("mnuFileImportMIDI"));
        ASSERT_EQ(Open.TabFile.Tracks.Count(), 2);
        EXPECT_EQ(Open.TabFile.Title, "band");
        // The classic reader looks for the name in the first event alone, and for the highest string that has the note.
        const bool aligned = reader == ImportModel::Other;
        EXPECT_EQ(Open.TabFile.Tracks[1].Name, aligned ? "Second" : "Untitled Track");
        const auto& notes = Open.TabFile.Tracks[0].Bars[0].Strums()[0].Notes;
        EXPECT_EQ(notes[2].Fret, aligned ? "7" : "");
        EXPECT_EQ(Open.FileName, "");
        EXPECT_TRUE(Open.FileChanged);
        EXPECT_EQ(Window().Status.back(), "Imported. Notes kept: 2, lost: 0. View, Import report tells more.");
    }
}

TEST_F(MidiCommands, ATrackJoinsTheSongAndTakesItsBars) {
    Open.TabFile.BarInfos.Edit(0) = {.TimeSigTop = 2, .TimeSigBottom = 4};
    for (const auto reader : {ImportModel::Classic, ImportModel::Other}) {
        SCOPED_TRACE(reader);
        Open.FileChanged = false;
        const int before = Open.TabFile.Tracks.Count();
        Imports([&](MidiImportModel& model) {
            EXPECT_TRUE(model.SingleTrack);
            model.ChosenTrack = 2;
            model.Reader = reader;
        });
        RunCommand(*FindCommand("mnuImportMIDITrack"));
        ASSERT_EQ(Open.TabFile.Tracks.Count(), before + 1);
        EXPECT_EQ(Open.CurTrack, before);
        EXPECT_TRUE(Open.FileChanged);
        for (const Core::Track& track : Open.TabFile.Tracks) {
            EXPECT_EQ(track.Bars.Count(), Open.TabFile.BarInfos.Count());
        }
    }
    EXPECT_EQ(Open.TabFile.BarInfos.Count(), 2) << "a whole note in bars of two quarters";
    EXPECT_EQ(Open.TabFile.BarInfos[1].TimeSigTop, 2);
    EXPECT_TRUE(Open.TabFile.Tracks[2].Bars[0].Strums()[0].Notes[2].Tied);
}

TEST_F(MidiCommands, CancelledOrDamagedTheSongStaysAsItWas) {
    Open.TabFile.Title = "Mine";
    const Core::TabFile before = Open.TabFile;
    for (const auto reader : {ImportModel::Classic, ImportModel::Other}) {
        Imports([&](MidiImportModel& model) { model.Reader = reader; }, 0);
        RunCommand(*FindCommand("mnuFileImportMIDI"));
        EXPECT_FALSE(done);
        EXPECT_NE(Window().Status.back().find("cancelled"), std::string::npos);
    }
    Spill(folder / "band.mid", "MThd and no more");
    RunCommand(*FindCommand("mnuFileImportMIDI"));
    ASSERT_EQ(Box().Shown.size(), 1U);
    EXPECT_NE(Box().Shown[0].find("band.mid"), std::string::npos);
    EXPECT_FALSE(OpenDroppedFile(folder / "band.mid"));
    EXPECT_EQ(Box().Shown.size(), 2U);
    Window().OpenAnswer.reset();
    RunCommand(*FindCommand("mnuFileImportMIDI"));
    EXPECT_TRUE(Open.TabFile == before);
    EXPECT_FALSE(Open.FileChanged);
}

TEST_F(MidiCommands, AFileOfTheCommandLineWaitsForTheWindow) {
    Restart();
    bool sawWindow = false;
    Imports([&](MidiImportModel&) { sawWindow = std::ranges::count(Window().Calls, "window") > 0; });
    Start((folder / "band.mid").string());
    EXPECT_TRUE(done);
    EXPECT_TRUE(sawWindow);
    EXPECT_EQ(Open.TabFile.Title, "band");
}

}  // namespace
}  // namespace Quillon::Shell
