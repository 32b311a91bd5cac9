#include "core/mod_Settings.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/mod_Common.h"
#include "core/mod_Instruments.h"
#include "platform/Services.h"
#include "platform/headless/MemoryStore.h"
#include "platform/portable/PosixFiles.h"
#include "tests/support/Golden.h"

namespace Quillon::Core {
namespace {

using Testing::CheckGolden;
using Testing::ScratchFolder;
using Testing::Slurp;
using Testing::Spill;

std::string ReplaceFirst(std::string text, std::string_view what, std::string_view with) {
    const std::size_t at = text.find(what);
    EXPECT_NE(at, std::string::npos) << what;
    return text.replace(at, what.size(), with);
}

SettingsRecord Unlike() {  // differs from the first run in every value
    SettingsRecord s;
    for (bool& flag : s.ToolbarVisible) flag = false;
    for (bool& flag : s.ToolbarDocked) flag = false;
    s.ToolbarDocked[7] = true;
    s.FTPPassword = "p|a||ss \xC3\xBC ";
    s.FTPUsername = "me";
    s.FTPAddress = "|";
    s.LatestUpdate = "12";
    s.FTPBinary = s.FollowTabPlayback = s.HiPrecision = s.StaffAddition = s.PlayNotesAsTyped = s.AutoScroll = false;
    s.PlayChordsOnLoad = s.ChordReverb = s.ScaleReverb = s.LoadFirstLesson = s.AlternatePlayback = true;
    s.ShowPercussionAssistant = s.HideChordManager = s.IncludeCopyrightWarning = s.CheckForUpdates = true;
    s.Metronome = s.CountIn = s.CheckDiary = s.ShowTips = s.AutoPageStretch = s.AutoASCII = true;
    s.ShowProjectSelector = s.AutosaveLesson = true;
    s.OutputDevice = -1;
    s.OutputBank = 127;
    s.UndoLevels = 0;
    s.BendCoefficient = -0.125;
    s.VibratoBend = 1e-7;
    s.WideVibratoBend = 3.5;
    s.VibratoCount = 32767;
    s.MaxLineLength = 132;
    return s;
}

TEST(Settings, FirstRunFileByteForByte) {
    const std::string text = FormatINISettings({});
    CheckGolden("settings/QL4.ini", text);
    EXPECT_EQ(std::ranges::count(text, '\n'), 77);
    EXPECT_EQ(text.substr(text.find("Input Toolbar"), 48), "Input Toolbar Toolbar Visible:             [1]\r\n");
    EXPECT_EQ(text.substr(text.find("Hide the"), 48), "Hide the chord manager after adding chords:[0]\r\n");
    EXPECT_EQ(text.substr(text.find("Bend C"), 50), "Bend Coefficient:                          |7.9|\r\n");
}

TEST(Settings, EveryValueComesBackWithEitherDecimalSign) {
    for (const SettingsRecord& record : {SettingsRecord(), Unlike()}) {
        SettingsRecord read;
        EXPECT_EQ(ParseINISettings(FormatINISettings(record), read), 71);
        EXPECT_TRUE(read == record) << FormatINISettings(read);
    }
    EXPECT_NE(FormatINISettings(Unlike()).find("|p|a||ss \xFC |"), std::string::npos) << "Windows-1252";

    DecimalSign = ',';
    const std::string text = FormatINISettings({});
    DecimalSign = '.';
    EXPECT_EQ(text, FormatINISettings({})) << "always a point";
    SettingsRecord read;
    EXPECT_EQ(ParseINISettings(ReplaceFirst(text, "|7.9|", "|8,25|"), read), 71);
    EXPECT_EQ(read.BendCoefficient, 8.25);

    SettingsRecord broken;
    broken.FTPPassword = "a\r\nb";
    EXPECT_EQ(ParseINISettings(FormatINISettings(broken), read), 71);
    EXPECT_EQ(read.FTPPassword, "a  b") << "no text can shift the lines";
}

TEST(Settings, DamageStopsTheReadingAtItsLine) {
    const std::string whole = FormatINISettings(Unlike());
    struct {
        const char* From;
        const char* To;
        int Values;
    } const cases[] = {
        {"|-0.125|", "|-0.125", 57},     // one bar
        {"|-0.125|", "|x|", 57},         // no number
        {"|127|", "|32768|", 50},        // no 16-bit number
        {"|me|", "me", 37},              // a text without bars
        {"Metronome:", "", 71},          // a flag too short for column 44 is off
        {"Quillon 4 INI File", "", 71},  // the header is for people
        {"File Toolbar", "Filf Toolbar", 71},
        {"1 = Yes, 0 = No.\r\n", "", 38},  // a line less shifts all: a flag where a text is due
    };
    for (const auto& c : cases) {
        SettingsRecord read;
        const std::string text = ReplaceFirst(whole, c.From, c.To);
        EXPECT_EQ(ParseINISettings(text, read), c.Values) << c.From << " to " << c.To;
        EXPECT_EQ(read.AutosaveLesson, c.Values == 71) << "what was not read has its first-run value";
    }
    SettingsRecord read;
    EXPECT_EQ(ParseINISettings("", read), 0);
    EXPECT_TRUE(read == SettingsRecord());
    std::string ends = whole;
    std::erase(ends, '\r');
    EXPECT_EQ(ParseINISettings(ends, read), 71) << "line feeds alone";
    std::ranges::replace(ends, '\n', '\r');
    EXPECT_EQ(ParseINISettings(ends, read), 71) << "carriage returns alone";
}

TEST(Settings, TheProgramNumberDecidesOverTheAlternateFlag) {
    const std::string whole = FormatINISettings({});
    SettingsRecord read;
    ParseINISettings(ReplaceFirst(whole, "Alternate Playback Mode:                   [0]",
                                  "Alternate Playback Mode:                   [1]"),
                     read);
    EXPECT_FALSE(read.AlternatePlayback);
    ParseINISettings(ReplaceFirst(whole, "|128|", "|127|"), read);
    EXPECT_TRUE(read.AlternatePlayback);
}

TEST(Settings, FirstStartSetsTheFontsOfNewFilesAndTheFileIsFoundAgain) {
    ScratchFolder folder;
    PosixFiles files;
    MemoryStore store;
    Services = {folder.Path(), &files, &store, nullptr, nullptr};
    Settings = Unlike();
    LoadINISettings();
    EXPECT_TRUE(Settings == SettingsRecord()) << "no file: first-run values";
    SetDefaultVars();
    Settings.MaxLineLength = 100;
    SaveINISettings();
    EXPECT_EQ(store.Get("DefaultInfo", "GFONTNAME"), "Times New Roman");
    EXPECT_EQ(store.Get("DefaultInfo", "GFONTSIZE"), "19");
    EXPECT_EQ(store.Get("DefaultInfo", "GNOTENAME"), "Arial");
    EXPECT_EQ(store.Get("DefaultInfo", "GNOTESIZE"), "8");
    EXPECT_EQ(store.Keys("DefaultInfo").size(), 14U);
    Settings = {};
    LoadINISettings();
    EXPECT_EQ(Settings.MaxLineLength, 100);
    Settings = {};
    Services = {};
}

TEST(NoteNames, AllPitchesComeBackAndOthersAreNone) {
    for (int pitch = 0; pitch < 128; ++pitch) EXPECT_EQ(PitchOfNoteName(NoteName(pitch)), pitch) << NoteName(pitch);
    EXPECT_EQ(NoteName(64), "E4");
    EXPECT_EQ(NoteName(-1), "B-2");
    EXPECT_EQ(PitchOfNoteName(" bb2 "), 46);
    for (const char* none : {"", "H2", "E", "E4x", "E44", "C-2", "Cb-1", "G#9", "#4"}) {
        EXPECT_EQ(PitchOfNoteName(none), -1) << none;
    }
    EXPECT_STREQ(InstrumentNames()[24], "A. Guitar (Nylon)");
    EXPECT_STREQ(DrumSoundNames()[46], "Open Triangle");
}

}  // namespace
}  // namespace Quillon::Core
