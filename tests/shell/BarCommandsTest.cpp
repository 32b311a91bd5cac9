#include "shell/BarCommands.h"

#include "core/mod_Instruments.h"
#include "editing/mod_BarsAndTracks.h"
#include "shell/CommandRows.h"
#include "tests/shell/ShellFixture.h"

namespace Quillon::Shell {
namespace {

using Core::Open;

class BarCommands : public ShellTest {
protected:
    BarCommands() {
        Start("");
        for (int i = 1; i < 4; ++i) Editing::AppendBar();
        // Bars "0" to "3", told apart by their only note.
        for (int bar = 0; bar < 4; ++bar) Core::EditStrum(0, bar, 0).Notes.Edit(0).Fret = std::to_string(bar);
        Open.FileChanged = false;
        Window().Calls.clear();
    }
    static bool Do(const char* name) {
        const Command* command = FindCommand(name);
        EXPECT_TRUE(command) << name;
        return command && RunCommand(*command);
    }
    static bool Can(const char* name) { return IsEnabled(*FindCommand(name)); }
    /// The notes of the bars of a track, "-" for a bar without.
    static std::string Bars(int track = 0) {
        std::string text;
        for (const Core::Bar& bar : Open.TabFile.Tracks[track].Bars) {
            const std::string& fret = bar.Strums()[0].Notes[0].Fret;
            text += fret.empty() ? "-" : fret;
        }
        return text;
    }
    static Core::BarInfo& Info(int bar) { return Open.TabFile.BarInfos.Edit(bar); }
    void AddDrums() {
        Window().On<AddTrackModel>([](AddTrackModel& model) {
            model.IsDrum = true;
            model.Name = AddTrackModel::SuggestedName(true);
            return model.Validate().empty();
        });
        Do("mnuTrackAdd");
    }
};

TEST_F(BarCommands, ATrackIsAddedOnChannelsOfItsOwnAndShown) {
    Window().On<AddTrackModel>([](AddTrackModel& model) {
        EXPECT_EQ(model.Name, "Track 2");
        model.Instrument = 33;
        model.Strings = 4;
        return model.Validate().empty();
    });
    EXPECT_TRUE(Do("mnuTrackAdd"));
    ASSERT_EQ(Open.TabFile.Tracks.Count(), 2);
    const Core::Track& bass = Open.TabFile.Tracks[1];
    EXPECT_EQ(bass.InstrumentName, Core::InstrumentNames()[33]);
    EXPECT_EQ(std::pair(bass.Channel, bass.EffectChannel), std::pair(std::int16_t{2}, std::int16_t{3}));
    EXPECT_EQ(Bars(1), "----");
    EXPECT_EQ(Open.CurTrack, 1);
    EXPECT_TRUE(Open.FileChanged);
    EXPECT_EQ(Window().Calls, (std::vector<std::string>{"tracks", "draw"}));
    AddDrums();
    const Core::Track& drums = Open.TabFile.Tracks[2];
    EXPECT_EQ(drums.Name, "Drums");
    EXPECT_EQ(drums.Channel, 9);
    EXPECT_EQ(drums.PercStrings[5].dlo, 2) << "letters that sound";
    for (int i = 0; i < 8; ++i) {
        Window().On<AddTrackModel>([](AddTrackModel&) { return true; });
        Do("mnuTrackAdd");
        const Core::Track& track = Open.TabFile.Tracks[Open.CurTrack];
        EXPECT_TRUE(track.Channel != 9 && track.EffectChannel != 9 && track.Channel < 16) << i;
    }
}

TEST_F(BarCommands, TracksMoveWithTheCursorAndAreDeletedOnlyWhenAgreed) {
    EXPECT_FALSE(Can("mnuTrackDelete")) << "the only one stays";
    AddDrums();
    EXPECT_FALSE(Can("mnuTrackMoveDown"));
    EXPECT_TRUE(Do("mnuTrackMoveUp"));
    EXPECT_TRUE(Open.TabFile.Tracks[0].IsDrum);
    EXPECT_EQ(Open.CurTrack, 0);
    EXPECT_TRUE(Do("mnuTrackMoveDown"));
    EXPECT_EQ(Open.CurTrack, 1);
    Box().Answers = {Answer::No, Answer::Yes};
    Do("mnuTrackDelete");
    EXPECT_EQ(Open.TabFile.Tracks.Count(), 2);
    Do("mnuTrackDelete");
    EXPECT_EQ(Open.TabFile.Tracks.Count(), 1);
    EXPECT_EQ(Open.CurTrack, 0);
    EXPECT_NE(Box().Shown.at(0).find("Drums"), std::string::npos) << "names what would be lost";
}

TEST_F(BarCommands, BarsComeAndGoOnAllTracks) {
    AddDrums();
    Info(1).TimeSigTop = 3;
    Open.CurBar = 1;
    Window().On<InsertBarModel>([](InsertBarModel& model) {
        EXPECT_EQ(model.BeforeBar, 2);
        model.Count = 2;
        return model.Validate().empty();
    });
    Do("mnuBarInsert");
    EXPECT_EQ(Bars(), "0--123");
    EXPECT_EQ(Bars(1), "------");
    EXPECT_EQ(Info(2).TimeSigTop, 3);
    EXPECT_EQ(Open.CurBar, 1);
    Window().On<InsertBarModel>([](InsertBarModel& model) {
        model.BeforeBar = 7;
        return model.Validate().empty();
    });
    Do("mnuBarInsert");
    Do("mnuBarAppend");
    EXPECT_EQ(Bars(), "0--123--");
    EXPECT_EQ(Open.CurBar, 7);
    Open.CurBar = 1;
    Editing::SelectTo(2);
    Window().On<RemoveBarModel>([](RemoveBarModel& model) {
        EXPECT_EQ(std::pair(model.FromBar, model.ToBar), std::pair(std::int16_t{2}, std::int16_t{3}));
        return true;
    });
    Do("mnuBarRemove");
    EXPECT_EQ(Bars(), "0123--");
    EXPECT_FALSE(Editing::SelectedBars());
    Window().On<RemoveBarModel>([](RemoveBarModel& model) {
        model.FromBar = 1;
        model.ToBar = 6;
        return model.Validate().empty();
    });
    Do("mnuBarRemove");
    EXPECT_EQ(Bars(), "-");
    EXPECT_EQ(Open.TabFile.BarInfos.Count(), 1);
    EXPECT_EQ(Open.CurBar, 0);
}

TEST_F(BarCommands, BarNumbersAreChecked) {
    InsertBarModel insert;
    insert.BeforeBar = 5;
    EXPECT_EQ(insert.Validate(), "");
    insert.BeforeBar = 6;
    EXPECT_EQ(insert.Validate(), "str_BarMissing");
    insert.BeforeBar = 1;
    insert.Count = 1000;
    EXPECT_EQ(insert.Validate(), "str_BarCountOutOfRange");
    RemoveBarModel remove;
    remove.ToBar = 5;
    EXPECT_EQ(remove.Validate(), "str_BarMissing");
    remove.FromBar = 3;
    remove.ToBar = 2;
    EXPECT_EQ(remove.Validate(), "str_BarOrder");
    AddTrackModel track;
    track.Load();
    track.Name = " ";
    EXPECT_EQ(track.Validate(), "str_TrackNameMissing");
}

TEST_F(BarCommands, ABarIsClearedShrunkAndFixed) {
    Open.CurBar = 3;
    EXPECT_TRUE(Can("mnuFixThisBar"));
    Do("mnuFixThisBar");
    EXPECT_EQ(Editing::BarFullness(0, 3), Editing::Fullness::Full);
    EXPECT_FALSE(Can("mnuFixThisBar"));
    Do("mnuBarShrink");
    EXPECT_EQ(Editing::BarFullness(0, 3), Editing::Fullness::Under);
    Do("mnuBarShrink");
    EXPECT_EQ(Bars(), "0123") << "the rests at its end went first";
    Do("mnuBarShrink");
    EXPECT_EQ(Bars(), "012");
    EXPECT_EQ(Open.CurBar, 2);
    Do("mnuBarClear");
    EXPECT_EQ(Bars(), "01-");
    Do("mnuNoteInsertBeat");
    EXPECT_EQ(Core::NumberOfStrums(0, 2), 1);
    Do("mnuNoteDeleteBeat");
    EXPECT_EQ(Core::NumberOfStrums(0, 2), 0);
    Open.CurBar = 0;
    EXPECT_FALSE(Can("mnuBarShrink")) << "the first bar's only strum stays";
}

TEST_F(BarCommands, AllBarsAreFixedButNothingIsDroppedWithoutAsking) {
    Core::SetBarStrums(0, 1, 5);
    for (int s = 0; s <= 5; ++s) Core::EditStrum(0, 1, s).Length = 2;
    Box().Answers = {Answer::No, Answer::Yes};
    Do("mnuFixAllBars");
    EXPECT_EQ(Core::NumberOfStrums(0, 1), 5);
    Do("mnuFixAllBars");
    EXPECT_EQ(Core::NumberOfStrums(0, 1), 3);
    for (int bar = 0; bar < 4; ++bar) EXPECT_EQ(Editing::BarFullness(0, bar), Editing::Fullness::Full) << bar;
    Do("mnuFixAllBars");
    EXPECT_EQ(Box().Shown.size(), 2U) << "nothing would be lost any more";
    Box().Answers = {Answer::Yes};
    Do("mnuBarClear");
    Info(0).TimeSigTop = 0;
    Do("mnuFixThisBar");
    Open.FileChanged = false;
    for (const char* const again : {"mnuBarClear", "mnuNoteDeleteBeat", "mnuFixThisBar", "mnuFixAllBars"}) {
        EXPECT_TRUE(Do(again)) << again;
        EXPECT_FALSE(Open.FileChanged) << again << ": nothing was there to change";
    }
}

TEST_F(BarCommands, ALockedFileStaysAsItIs) {
    AddDrums();
    Open.TabFile.HasPassword = true;
    Open.TabFile.Password = "x";
    const Core::TabFile before = Open.TabFile;
    for (const Command& command : BarCommandRows()) RunCommand(command);
    EXPECT_TRUE(Open.TabFile == before);
}

TEST_F(BarCommands, NoneTakesAStepOfUndo) {
    Core::Settings.UndoLevels = 10;
    Do("mnuBarAppend");
    EXPECT_FALSE(Can("mnuEditUndo"));
}

TEST_F(BarCommands, SignaturesReachAsFarAsTheyAreToldAndKeepOddFigures) {
    const auto tops = [] {
        std::string text;
        for (const Core::BarInfo& info : Open.TabFile.BarInfos) {
            text += std::to_string(info.TimeSigTop) + "/" + std::to_string(info.TimeSigBottom) + " ";
        }
        return text;
    };
    Open.CurBar = 1;
    SignatureScope scope = SignatureScope::ThisBar;
    Window().On<BarTimeSigModel>([&](BarTimeSigModel& model) {
        ++model.Top;
        model.BottomIndex = 3;
        model.Scope = static_cast<std::int16_t>(scope);
        return model.Validate().empty();
    });
    Do("mnuBarTimeSig");
    EXPECT_EQ(tops(), "4/4 5/8 4/4 4/4 ");
    scope = SignatureScope::FromHere;
    Do("mnuBarTimeSig");
    EXPECT_EQ(tops(), "4/4 6/8 6/8 6/8 ");
    scope = SignatureScope::AllBars;
    Do("mnuBarTimeSig");
    EXPECT_EQ(tops(), "7/8 7/8 7/8 7/8 ");
    Info(1) = {.TimeSigTop = 100000, .TimeSigBottom = 5};
    Window().On<BarTimeSigModel>([&](BarTimeSigModel& model) { return model.Validate().empty(); });
    Open.FileChanged = false;
    Do("mnuBarTimeSig");
    EXPECT_EQ(tops(), "7/8 100000/5 7/8 7/8 ");
    EXPECT_FALSE(Open.FileChanged);
    BarTimeSigModel model;
    model.Load();
    model.Top = 33;
    EXPECT_EQ(model.Validate(), "str_TimeSigTopOutOfRange");
}

TEST_F(BarCommands, AKeyIsSetOnOneTrackOrAll) {
    AddDrums();
    Window().On<BarKeySigModel>([](BarKeySigModel& model) {
        EXPECT_TRUE(model.AllTracks) << "they agree";
        model.Key = 2;
        model.Minor = 1;
        return model.Validate().empty();
    });
    Do("mnuBarKeySig");
    EXPECT_EQ(Core::ReadBar(0, 0).Key, 2);
    EXPECT_TRUE(Core::ReadBar(1, 0).KeyIsMinor);
    EXPECT_EQ(Core::ReadBar(0, 1).Key, 0);
    Open.CurTrack = 0;
    Window().On<BarKeySigModel>([](BarKeySigModel& model) {
        model.AllTracks = false;
        model.Key = 13;
        model.Scope = static_cast<std::int16_t>(SignatureScope::FromHere);
        return model.Validate().empty();
    });
    Do("mnuBarKeySig");
    EXPECT_EQ(Core::ReadBar(0, 3).Key, 13);
    EXPECT_EQ(Core::ReadBar(1, 0).Key, 2);
    BarKeySigModel model;
    model.Load();
    EXPECT_FALSE(model.AllTracks) << "they differ: OK untouched must change nothing";
    EXPECT_FALSE(model.Apply());
    const auto names = BarKeySigModel::KeyNames(true, "none");
    EXPECT_EQ(names.size(), 14U);
    EXPECT_EQ(names[2], "Em  (1 ♯)");
    EXPECT_EQ(names[13], "B♭m  (5 ♭)");
}

TEST_F(BarCommands, ARepeatCountsItsJumpsBack) {
    Do("mnuBarRepeatOpen");
    EXPECT_TRUE(Info(0).RepeatOpen);
    EXPECT_TRUE(IsChecked(*FindCommand("mnuBarRepeatOpen")));
    Open.CurBar = 1;
    Window().On<EndRepeatModel>([](EndRepeatModel& model) {
        EXPECT_TRUE(model.Closes) << "the command says so";
        model.Jumps = 3;
        return model.Validate().empty();
    });
    Do("mnuBarEndRepeat");
    EXPECT_EQ(Info(1).RepeatClose, 3);
    EXPECT_TRUE(IsChecked(*FindCommand("mnuBarEndRepeat")));
    Window().On<EndRepeatModel>([](EndRepeatModel& model) {
        model.Closes = false;
        return model.Validate().empty();
    });
    Do("mnuBarEndRepeat");
    EXPECT_EQ(Info(1).RepeatClose, 0);
    EndRepeatModel model;
    model.Load();
    model.Closes = true;
    model.Jumps = 100;
    EXPECT_EQ(model.Validate(), "str_JumpsOutOfRange");
}

TEST_F(BarCommands, SignsAreSetAndTheirSenseIsTold) {
    Info(0).Segno = 1;
    Open.CurBar = 2;
    Window().On<CodaModel>([](CodaModel& model) {
        EXPECT_EQ(model.Check().size(), 1U);
        EXPECT_NE(model.Check()[0].find("bar 1"), std::string::npos) << model.Check()[0];
        model.DalSegno = true;
        EXPECT_TRUE(model.Check().empty());
        return true;
    });
    Do("mnuBarCoda");
    EXPECT_EQ(Info(2).DalSegno, -1);
    EXPECT_EQ(Info(0).Segno, 1) << "as the file had it";
    CodaModel model;
    Open.CurBar = 0;
    model.Load();
    EXPECT_FALSE(model.Apply());
}

TEST_F(BarCommands, BarsAreCutCopiedAndPastedThroughTheirDialog) {
    EXPECT_FALSE(Can("mnuEditPaste"));
    Open.CurBar = 1;
    Editing::SelectTo(2);
    Window().On<CutCopyPasteModel>([](CutCopyPasteModel& model) {
        if (model.Doing != CutCopyPasteModel::Task::Paste) {
            EXPECT_EQ(std::pair(model.FromBar, model.ToBar), std::pair(std::int16_t{2}, std::int16_t{3}));
        }
        return model.Validate().empty();
    });
    Do("mnuEditCopy");
    EXPECT_EQ(Bars(), "0123");
    EXPECT_FALSE(Open.FileChanged);
    EXPECT_EQ(Window().Status.back(), "Copied: 2 bar(s) of all tracks");
    Do("mnuEditCut");
    EXPECT_EQ(Bars(), "03");
    EXPECT_EQ(Open.CurBar, 1);
    EXPECT_TRUE(Open.FileChanged);
    Window().On<CutCopyPasteModel>([](CutCopyPasteModel& model) {
        model.BeforeBar = 3;
        model.Times = 2;
        return model.Validate().empty();
    });
    Do("mnuEditPaste");
    EXPECT_EQ(Bars(), "031212");
    EXPECT_EQ(Open.CurBar, 2);
    ForceNewFile();
    Window().On<CutCopyPasteModel>([](CutCopyPasteModel& model) {
        model.Over = 1;
        return model.Validate().empty();
    });
    Do("mnuEditPaste");
    EXPECT_EQ(Bars(), "12") << "into another song";
    CutCopyPasteModel model;
    model.Load(CutCopyPasteModel::Task::Paste);
    model.Times = 0;
    EXPECT_EQ(model.Validate(), "str_TimesOutOfRange");
    Open.TabFile.Tracks[0].IsDrum = true;
    model.Times = 1;
    EXPECT_EQ(model.Validate(), "str_PasteDrumsAndStrings");
}

TEST_F(BarCommands, TransposingMovesTheSelectionOrTellsTheBeatThatIsInTheWay) {
    std::int16_t by = 12;
    Window().On<TransposeModel>([&](TransposeModel& model) {
        model.Semitones = by;
        return model.Validate().empty();
    });
    Editing::SelectTo(1);
    Do("mnuOperationsTranspose");
    EXPECT_EQ(Core::ReadStrum(0, 0, 0).Notes[0].Fret, "12");
    EXPECT_EQ(Core::ReadStrum(0, 1, 0).Notes[0].Fret, "13");
    EXPECT_EQ(Core::ReadStrum(0, 2, 0).Notes[0].Fret, "2");
    Editing::ClearSelection();
    by = 24;
    const Core::TabFile before = Open.TabFile;
    Do("mnuOperationsTranspose");
    EXPECT_TRUE(Open.TabFile == before);
    ASSERT_EQ(Box().Shown.size(), 1U);
    EXPECT_NE(Box().Shown[0].find("beat 1 of bar 1"), std::string::npos) << Box().Shown[0];
    by = 0;
    Do("mnuOperationsTranspose");
    EXPECT_EQ(Box().Shown.size(), 1U) << "the dialog complained itself";
    Open.TabFile.Tracks[0].IsDrum = true;
    EXPECT_FALSE(Can("mnuOperationsTranspose"));
}

}  // namespace
}  // namespace Quillon::Shell
