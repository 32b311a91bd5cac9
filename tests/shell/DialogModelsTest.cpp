#include "shell/DialogModels.h"

#include "core/mod_Instruments.h"
#include "tests/shell/ShellFixture.h"

namespace Quillon::Shell {
namespace {

using Core::Open;
using Testing::Slurp;

class DialogModels : public ShellTest {
protected:
    DialogModels() {
        Start("");
        Drawing::Page.LayoutDirty = 0;
        Window().Calls.clear();
    }
    bool Drawn() { return !Window().Calls.empty(); }
};

TEST_F(DialogModels, NothingChangedSetsNothing) {
    Window().On<FilePropertiesModel>([](FilePropertiesModel& model) { return model.Validate().empty(); });
    Window().On<TrackPropertiesModel>([](TrackPropertiesModel& model) { return model.Validate().empty(); });
    Window().On<OptionsModel>([](OptionsModel& model) { return model.Validate().empty(); });
    Window().On<PageSetupModel>([](PageSetupModel& model) { return model.Validate().empty(); });
    mnuFileProperties_Click();
    mnuTrackProperties_Click();
    mnuFileOptions_Click();
    mnuFilePageSetup_Click();
    EXPECT_FALSE(Open.FileChanged);
    EXPECT_EQ(Drawing::Page.LayoutDirty, 0);
    EXPECT_FALSE(Drawn());
}

TEST_F(DialogModels, FilePropertiesChangeTheDocumentAndTheDefaults) {
    Window().On<FilePropertiesModel>([](FilePropertiesModel& model) {
        model.File.Title = "Étude";
        model.File.Artist = "Me";
        model.File.Tempo = 92.5F;
        model.File.Shuffle = true;
        model.SetNoteFont({"Courier", 9, true, false, true, false});
        model.UseAsDefaults = true;
        return true;
    });
    mnuFileProperties_Click();
    EXPECT_TRUE(Open.FileChanged);
    EXPECT_EQ(Drawing::Page.LayoutDirty, 1);
    EXPECT_EQ(Open.TabFile.Title, "Étude");
    EXPECT_EQ(Open.TabFile.NoteFontName, "Courier");
    EXPECT_TRUE(Open.TabFile.NoteFontUnderline);
    Core::TabFile expected = Open.TabFile;
    expected.Title = "Untitled";
    ForceNewFile();
    EXPECT_TRUE(Open.TabFile == expected) << "a new file starts with every default";
}

TEST_F(DialogModels, FilePropertiesComplainInTurn) {
    FilePropertiesModel model;
    model.Load();
    const std::pair<std::function<void(Core::TabFile&)>, const char*> cases[] = {
        {[](auto& file) { file.Artist = "<me>"; }, "str_TextReserved"},
        {[](auto& file) { file.Tempo = 0; }, "str_TempoOutOfRange"},
        {[](auto& file) { file.Tempo = 1001; }, "str_TempoOutOfRange"},
        {[](auto& file) { file.RowSpacing = -1; }, "str_RowSpacingOutOfRange"},
        {[](auto& file) { file.FontName = ""; }, "str_FontMissing"},
        {[](auto& file) { file.NoteFontSize = 0; }, "str_FontSizeOutOfRange"},
        {[](auto& file) { file.HasPassword = true; }, "str_PasswordMissing"},
    };
    for (const auto& [damage, complaint] : cases) {
        FilePropertiesModel damaged = model;
        damage(damaged.File);
        EXPECT_EQ(damaged.Validate(), complaint);
    }
    EXPECT_EQ(model.Validate(), "");
}

TEST_F(DialogModels, TrackPropertiesTakeNotesForTheTuningAndKeepTheBars) {
    Open.CurString = 6;
    Edit("5");
    Open.FileChanged = false;
    Window().On<TrackPropertiesModel>([](TrackPropertiesModel& model) {
        EXPECT_EQ(model.OpenNotes[0], "E4");
        EXPECT_EQ(model.OpenNotes[5], "E2");
        model.Track.Strings = 4;
        model.OpenNotes[0] = "g2";
        model.OpenNotes[3] = "Eb1";
        model.ChooseInstrument(33);
        model.Track.IsDrum = true;
        model.Track.PercStrings[0].dbx = 46;
        return model.Validate().empty();
    });
    mnuTrackProperties_Click();
    const Core::Track& track = Open.TabFile.Tracks[0];
    EXPECT_EQ(Core::OpenPitch(track, 0), 43);
    EXPECT_EQ(track.Tuning[0], -21);
    EXPECT_EQ(Core::OpenPitch(track, 3), 27);
    EXPECT_EQ(track.InstrumentName, Core::InstrumentNames()[33]);
    EXPECT_EQ(Fret(), "5");
    EXPECT_TRUE(Open.FileChanged);
    EXPECT_LT(Open.CurString, 4) << "the cursor stays on a string in use";
    EXPECT_EQ(Window().Calls, (std::vector<std::string>{"tracks", "draw"}));
}

TEST_F(DialogModels, ATrackThatBecomesDrumsHasLettersThatSoundUnlessSomeWereChosen) {
    Window().On<TrackPropertiesModel>([](TrackPropertiesModel& model) {
        model.Track.IsDrum = true;
        return true;
    });
    mnuTrackProperties_Click();
    EXPECT_EQ(Open.TabFile.Tracks[0].PercStrings[3].dbo, 6);
    EXPECT_EQ(Open.TabFile.Tracks[0].PercStrings[5].dlo, 2);
    Open.TabFile.Tracks[0].IsDrum = false;
    Open.TabFile.Tracks[0].PercStrings = {};
    Open.TabFile.Tracks[0].PercStrings[0].dbx = 9;
    mnuTrackProperties_Click();
    EXPECT_EQ(Open.TabFile.Tracks[0].PercStrings[0].dbx, 9);
    EXPECT_EQ(Open.TabFile.Tracks[0].PercStrings[5].dlo, 0);
}

TEST_F(DialogModels, TrackPropertiesComplainInTurn) {
    const std::pair<std::function<void(TrackPropertiesModel&)>, const char*> cases[] = {
        {[](auto& m) { m.Track.Name = "a<b"; }, "str_TextReserved"},
        {[](auto& m) { m.Track.Volume = 128; }, "str_VolumeOutOfRange"},
        {[](auto& m) { m.Track.ChordVolume = -1; }, "str_VolumeOutOfRange"},
        {[](auto& m) { m.Track.Instrument = 128; }, "str_InstrumentOutOfRange"},
        {[](auto& m) { m.Track.EffectChannel = 16; }, "str_ChannelOutOfRange"},
        {[](auto& m) { m.Track.Strings = 0; }, "str_StringsOutOfRange"},
        {[](auto& m) { m.Track.Strings = 8; }, "str_StringsOutOfRange"},
        {[](auto& m) { m.Track.Capo = 25; }, "str_CapoOutOfRange"},
        {[](auto& m) { m.OpenNotes[5] = "H2"; }, "str_TuningUnknown"},
        {[](auto& m) { m.OpenNotes[6] = "H2"; }, ""},  // a string out of use
        {[](auto& m) { m.Track.LyricsOfOtherTrack = m.Track.LyricsTrack = 1; }, "str_LyricsTrackMissing"},
        {[](auto& m) { m.Track.OctaveUp = m.Track.OctaveDown = true; }, "str_OctaveBothWays"},
        {[](auto& m) { m.Track.ShowTreble = m.Track.ShowTab = false; }, "str_NothingShown"},
        {[](auto& m) { m.Track.PercStrings[6].dro = 47; }, "str_DrumSoundOutOfRange"},
    };
    for (const auto& [damage, complaint] : cases) {
        TrackPropertiesModel model;
        model.Load(0);
        damage(model);
        EXPECT_EQ(model.Validate(), complaint);
    }
    TrackPropertiesModel model;
    EXPECT_THROW(model.Load(1), RunTimeError);
    EXPECT_THROW(model.ChooseInstrument(128), RunTimeError);
    EXPECT_EQ(Core::PercussionLetters().size(), 12U);
}

TEST_F(DialogModels, OddValuesThatTheFileCameWithKeepNobodyFromChangingOthers) {
    Core::TabFile& file = Open.TabFile;
    file.Tempo = 5000;
    file.RowSpacing = -3;
    file.FontName = "";
    file.NoteFontSize = 0;
    file.Tracks[0].Volume = 200;
    file.Tracks[0].Channel = -1;
    file.Tracks[0].Strings = 9;
    file.Tracks[0].PercStrings[2].dbx = 99;
    file.Tracks[0].LyricsOfOtherTrack = 1;
    file.Tracks[0].LyricsTrack = 7;
    Core::TabFile expected = file;
    Window().On<FilePropertiesModel>([](FilePropertiesModel& model) {
        model.File.Title = "New";
        return model.Validate().empty();
    });
    Window().On<TrackPropertiesModel>([](TrackPropertiesModel& model) {
        model.Track.Name = "New";
        return model.Validate().empty();
    });
    mnuFileProperties_Click();
    mnuTrackProperties_Click();
    expected.Title = expected.Tracks[0].Name = "New";
    EXPECT_TRUE(Open.TabFile == expected);
}

TEST_F(DialogModels, WhoMakesUpAPasswordIsNotAskedForIt) {
    Window().On<FilePropertiesModel>([](FilePropertiesModel& model) {
        model.File.HasPassword = true;
        model.File.Password = "pick";
        return true;
    });
    mnuFileProperties_Click();
    Window().Calls.clear();
    EXPECT_TRUE(PasswordCorrect());
    DocumentReplaced();
    EXPECT_FALSE(PasswordCorrect()) << "asked when the file was opened anew, and not given";
    EXPECT_EQ(Window().Calls.back(), "password");
}

TEST_F(DialogModels, OptionsThatCannotBeStoredHoldForThisRun) {
    run->Files.FullFor = "base";
    Window().On<OptionsModel>([](OptionsModel& model) {
        model.Theme = 2;
        model.Language = "German";
        return true;
    });
    mnuFileOptions_Click();
    EXPECT_EQ(Box().Shown.size(), 2U) << "the settings, and the choice of the language";
    EXPECT_EQ(Program.Theme, 2);
    EXPECT_EQ(Core::LanguageText("str_Cancel"), "Abbrechen");
    EXPECT_EQ(Window().Calls, (std::vector<std::string>{"language", "theme", "draw"}));
}

TEST_F(DialogModels, OptionsAndPageSetupLastOverACrash) {
    Window().On<OptionsModel>([](OptionsModel& model) {
        model.MaxTabX = 60;
        model.Settings.AutoPageStretch = true;
        model.Settings.AutoScroll = false;
        model.Theme = 2;
        model.Language = "German";
        return model.Validate().empty();
    });
    Window().On<PageSetupModel>([](PageSetupModel& model) {
        model.Page.PaperSizeIndex = 3;
        model.Page.IsLandscape = true;
        model.Page.PageScaleIndex = 1;
        model.Page.PageTopMargin = 150;
        return model.Validate().empty();
    });
    mnuFileOptions_Click();
    mnuFilePageSetup_Click();
    for (int life = 0; life < 2; ++life) {
        EXPECT_EQ(Drawing::Page.MaxTabX, 60);
        EXPECT_TRUE(Drawing::Page.AutoPageStretch);
        EXPECT_FALSE(Drawing::View.FollowCursor);
        EXPECT_EQ(Program.Theme, 2);
        EXPECT_EQ(Core::Language.Name, "German");
        EXPECT_EQ(Drawing::Page.PaperSizeIndex, 3);
        EXPECT_EQ(Drawing::Page.PageWidth, 1058) << "letter, lying";
        EXPECT_EQ(Drawing::Page.PageRulerStep, 5);
        EXPECT_EQ(Drawing::Page.PageTopMargin, 150);
        EXPECT_EQ(Drawing::Page.LayoutDirty, 1);
        EXPECT_FALSE(Open.FileChanged) << "the document did not change";
        Restart();
        Start("");
    }

    OptionsModel options;
    options.Load();
    options.MinTabX = 61;
    EXPECT_EQ(options.Validate(), "str_SpacingOrder");
    options.MinTabX = 0;
    EXPECT_EQ(options.Validate(), "str_SpacingOutOfRange");
    options.Load();
    options.Language = "Klingon";
    EXPECT_EQ(options.Validate(), "str_LanguageMissing");
    PageSetupModel page;
    page.Load();
    page.Page.PaperSizeIndex = 14;
    EXPECT_EQ(page.Validate(), "str_PaperSizeMissing");
    page.Load();
    page.Page.PageLeftMargin = -1;
    EXPECT_EQ(page.Validate(), "str_MarginOutOfRange");
}

TEST_F(DialogModels, ADamagedStoreGivesFirstRunValues) {
    const Drawing::PageSetup first;
    for (const char* value : {"", "x", "12x", "-5", "99999999999999999999"}) {
        for (const char* key : {"MinTabX", "MaxTabX"}) run->Store.Save("Options", key, value);
        for (const char* key : {"PaperSize", "Scale", "Landscape", "LeftMargin", "TopMargin"}) {
            run->Store.Save("PageSetup", key, value);
        }
        for (const char* key : {"Zoom", "Theme"}) run->Store.Save("View", key, value);
        LoadStoredState();
        EXPECT_EQ(Drawing::Page.MinTabX, first.MinTabX) << value;
        EXPECT_EQ(Drawing::Page.MaxTabX, first.MaxTabX) << value;
        EXPECT_EQ(Drawing::Page.PageWidth, first.PageWidth) << value;
        EXPECT_EQ(Drawing::Page.PageTopMargin, first.PageTopMargin) << value;
        EXPECT_EQ(Program.ZoomPercent, 100) << value;
        EXPECT_EQ(Program.Theme, 0) << value;
    }
}

}  // namespace
}  // namespace Quillon::Shell
