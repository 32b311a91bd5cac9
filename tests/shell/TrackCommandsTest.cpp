// Strings, instrument, lyrics, the lock and fixing bars, as their dialogs' models do them.
#include "core/mod_Instruments.h"
#include "editing/mod_BarsAndTracks.h"
#include "editing/mod_NoteEntry.h"
#include "shell/BatchFixModel.h"
#include "shell/Commands.h"
#include "shell/InstrumentModel.h"
#include "shell/LyricsModel.h"
#include "shell/PasswordModel.h"
#include "shell/TuningModel.h"
#include "tests/shell/ShellFixture.h"

namespace Quillon::Shell {
namespace {

using Core::Open;

class TrackCommands : public ShellTest {
protected:
    TrackCommands() {
        Start("");
        Open.FileChanged = false;
    }
    static void Do(const char* name) { EXPECT_TRUE(RunCommand(*FindCommand(name))) << name; }
    static Core::Strum& At(int strum) {
        auto& strums = Open.TabFile.Tracks[0].Bars.Edit(0).EditStrums();
        if (strums.Count() <= strum) strums.Resize(strum + 1);
        return strums[strum];
    }
};

TEST_F(TrackCommands, StringsAreTakenByNameBySemitonesOrFromTheList) {
    At(0).Notes.Edit(5).Fret = "3";
    TuningModel model;
    model.Load();
    EXPECT_EQ(CommonTunings()[static_cast<std::size_t>(model.Chosen())].Text, "str_TuningStandard");
    EXPECT_FALSE(model.Apply()) << "nothing was touched";
    struct Case {
        const char* Typed;
        int Offset;  ///< of string 5; 99 for a complaint
    };
    for (const auto& [typed, offset] : {Case{"D2", -2},
                                        {"d#2", -1},
                                        {"-2", -2},
                                        {"+1", 1},
                                        {"0", 0},
                                        {"H2", 99},
                                        {"", 99},
                                        {"-999", 99},
                                        {"1e1", 99}}) {
        TuningModel each = model;
        each.OpenNotes[5] = typed;
        EXPECT_EQ(each.Validate(), offset == 99 ? "str_StringPitchUnknown" : "") << typed;
        const Core::TabFile before = Open.TabFile;
        if (offset != 99) {
            EXPECT_EQ(each.Apply(), offset != 0);
            EXPECT_EQ(Open.TabFile.Tracks[0].Tuning[5], offset) << typed;
        }
        Open.TabFile = before;
    }
    for (const CommonTuning& tuning : CommonTunings()) {
        model.Choose(tuning);
        model.Lost = 1;
        EXPECT_EQ(CommonTunings()[static_cast<std::size_t>(model.Chosen())].Text, tuning.Text);
        EXPECT_EQ(model.Validate(), "") << tuning.Text;
    }
    model.Load();
    model.Strings = 5;
    EXPECT_EQ(model.LostNotes(), 1);
    EXPECT_EQ(model.Validate(), "str_RetuneUnplayable");
    EXPECT_NE(model.ComplaintText("str_RetuneUnplayable").find("Beat 1 of bar 1"), std::string::npos);
    EXPECT_FALSE(model.Apply());
    EXPECT_FALSE(Open.FileChanged && Open.TabFile.Tracks[0].Strings != 6);
    Window().On<TuningModel>([](TuningModel& edited) {
        edited.OpenNotes[5] = "D2";
        edited.Keep = 1;
        edited.Capo = 2;
        return edited.Validate().empty();
    });
    Do("mnuTrackTuning");
    EXPECT_EQ(At(0).Notes[5].Fret, "5");
    EXPECT_EQ(Open.TabFile.Tracks[0].Capo, 2);
    Open.TabFile.Tracks[0].IsDrum = true;
    EXPECT_FALSE(IsEnabled(*FindCommand("mnuTrackTuning")));
}

TEST_F(TrackCommands, InstrumentsAreFoundByWords) {
    EXPECT_EQ(InstrumentModel::Matching("").size(), 128U);
    EXPECT_EQ(InstrumentModel::Matching("guitar STEEL"), std::vector<int>{25});
    EXPECT_EQ(InstrumentModel::Matching("basses slap"), (std::vector<int>{36, 37})) << "families count";
    EXPECT_TRUE(InstrumentModel::Matching("kazoo").empty());
    Window().On<InstrumentModel>([](InstrumentModel& model) {
        model.Program = 34;
        return true;
    });
    Do("mnuTrackInstrument");
    EXPECT_EQ(Open.TabFile.Tracks[0].InstrumentName, Core::InstrumentNames()[34]);
}

TEST_F(TrackCommands, LyricsGoUnderTheNotes) {
    for (int strum : {0, 2, 3}) At(strum).Notes.Edit(0).Fret = "1";
    LyricsModel model;
    model.Load();
    ASSERT_EQ(model.Places.size(), 3U);
    model.SetLineText(0, "Hal-lo you there");
    EXPECT_EQ(model.LeftOver(0), 1);
    EXPECT_EQ(model.Validate(), "str_LyricsTooLong");
    EXPECT_NE(model.ComplaintText("str_LyricsTooLong").find("'there'"), std::string::npos);
    EXPECT_EQ(model.LineText(0), "Hal-lo you there") << "what found no place is not lost on the way";
    model.SetLineText(0, "Hal- lo");
    EXPECT_FALSE(model.MoveSyllable(0, 0, -1));
    EXPECT_TRUE(model.MoveSyllable(0, 0, 1)) << "pushes the next one on";
    EXPECT_EQ(model.LineText(0), "_ Hal-lo");
    model.SetLineText(4, "la");
    model.Cursor = 1;
    model.FromCursor = true;
    EXPECT_EQ(model.LineText(0), "Hal-lo");
    model.SetLineText(0, "me");
    EXPECT_EQ(model.Validate(), "");
    EXPECT_EQ(model.NotesText(1) + "|" + model.BarText(1), "1|1");
    EXPECT_TRUE(model.Apply());
    EXPECT_EQ(At(2).Syllables.Read()[0], "me");
    EXPECT_EQ(At(0).Syllables.Read()[4], "la");
    EXPECT_TRUE(At(1).Syllables.IsDefault());
    EXPECT_FALSE(model.Apply());
    model.Load();
    EXPECT_EQ(model.LineText(0), "_ me");
    for (const auto& [text, complaint] : {std::pair{"a<b", "str_LyricsReservedText"},
                                          {"`", "str_LyricsReservedText"},
                                          {"a££$", "str_LyricsReservedText"},
                                          {"Ж", "str_LyricsUnknownCharacter"}}) {
        model.SetLineText(1, text);
        EXPECT_EQ(model.Validate(), complaint) << text;
    }
}

TEST_F(TrackCommands, TheLockIsSetChangedAndTakenOffByItsOldPassword) {
    struct Case {
        const char* Old;
        int Locks;
        const char* New;
        const char* Again;
        const char* Complaint;
        const char* Password;  ///< afterwards
    };
    const Case cases[] = {
        {"", 1, "  ", "  ", "str_PasswordMissing", ""},       {"", 1, "one", "two", "str_PasswordsDiffer", ""},
        {"", 1, "a>b", "a>b", "str_PasswordNotStorable", ""}, {"", 1, "one", "one", "", "one"},
        {"", 0, "", "", "str_PasswordWrong", "one"},          {"one", 1, "two", "two", "", "two"},
        {"one", 0, "", "", "str_PasswordWrong", "two"},       {"two", 0, "", "", "", ""},
    };
    for (const Case& each : cases) {
        Window().On<PasswordModel>([&](PasswordModel& model) {
            model.Old = each.Old;
            model.Locks = static_cast<std::int16_t>(each.Locks);
            model.New = each.New;
            model.Again = each.Again;
            EXPECT_EQ(model.Validate(), each.Complaint) << each.New;
            return model.Validate().empty();
        });
        Do("mnuFilePassword");
        EXPECT_EQ(Open.TabFile.Password, each.Password);
        EXPECT_EQ(Open.TabFile.HasPassword, *each.Password != '\0');
    }
}

TEST_F(TrackCommands, BarsOfAllTracksAreFixedOnceAgreed) {
    Editing::AppendBar(Open.TabFile);
    Editing::AddTrack(Open.TabFile, {});
    At(0).Length = 0;
    At(1).Length = 3;  // a whole note and an eighth
    BatchFixModel model;
    model.Load();
    std::string states;
    for (const auto& bar : model.Bars()) states += BatchFixModel::StateText(bar) + "; ";
    EXPECT_EQ(states, "1/8 too long; 3/4 short; ");
    Core::BarInfo& second = Open.TabFile.BarInfos.Edit(1);
    second.TimeSigTop = 2'000'000'000;
    EXPECT_EQ(BatchFixModel::StateText(model.Bars()[1]), "1999999999/4 short");
    second.TimeSigTop = 4;
    model.Tracks = 1;
    EXPECT_EQ(BatchFixModel::Count(model.Bars(), Editing::Fullness::Under), 3);
    Window().On<BatchFixModel>([](BatchFixModel& edited) {
        edited.Tracks = 1;
        return true;
    });
    Box().Answers = {Answer::No, Answer::Yes};
    Do("mnuOperationsFixBars");
    EXPECT_EQ(At(1).Length, 3) << "refused";
    Do("mnuOperationsFixBars");
    EXPECT_EQ(BatchFixModel::Count(model.Bars(), Editing::Fullness::Full), 4);
}

}  // namespace
}  // namespace Quillon::Shell
