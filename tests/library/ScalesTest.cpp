// The scale and the tuning library, and what they sound like.
#include "library/mod_Scales.h"

#include "library/BuiltInTables.h"
#include "library/ChordNaming.h"
#include "library/NoteRun.h"
#include "library/mod_Tuner.h"
#include "platform/VirtualClock.h"
#include "platform/headless/RecordingMidi.h"
#include "playback/MIDI_OUT.h"
#include "tests/support/Fixture.h"

namespace Quillon::Library {
namespace {

constexpr int E = 4;

std::string NamesOf(const PitchClasses& classes, int from) {
    std::string text;
    for (int step = 0; step < 12; ++step) {
        const int pitch = (from + step) % 12;
        if (classes.test(static_cast<std::size_t>(pitch))) text += (text.empty() ? "" : " ") + PitchClassName(pitch);
    }
    return text;
}

class LibraryTest : public testing::Test {
protected:
    LibraryTest() {
        EnsureScales();
        EnsureTunings();
        Scales.Refresh();
        Tunings.Refresh();
    }
    Testing::ServicesForTest services;
};

TEST_F(LibraryTest, ScalesAreFoundByNameKeywordAndNotes) {
    using Kind = ScaleFilter::Kind;
    const auto find = [](Kind by, const char* text) { return FilteredScales(Scales, {.By = by, .Text = text}); };
    EXPECT_EQ(Scales.Names().size(), 38U);
    EXPECT_EQ(Scales.Unreadable(), 0);
    EXPECT_EQ(find(Kind::Keywords, "Blues"), (std::vector<std::string>{"Basic Pentatonic", "Blues Scale"}));
    EXPECT_EQ(find(Kind::Name, "MINOR"), (std::vector<std::string>{"Harmonic Minor", "Hungarian Minor", "Melodic Minor",
                                                                   "Minor Pentatonic", "Natural Minor"}));
    EXPECT_EQ(FilteredScales(Scales, {.By = Kind::Strings, .Strings = 6}).size(), 38U);
    const ScaleRec& major = *Scales.Find("Major");
    EXPECT_EQ(NamesOf(ScaleClasses(major, E), E), "E F# G# A B C# D#");
    EXPECT_EQ(NamesOf(ScaleClasses(major, 0), 0), "C D E F G A B");
    EXPECT_EQ(PatternFret(major, 7), 3);

    PitchClasses notes;
    for (const int pitch : {0, 2, 4, 5, 7, 9, 11}) notes.set(static_cast<std::size_t>(pitch));
    const auto found = FindScales(Scales, notes, 0);
    ASSERT_FALSE(found.empty());
    EXPECT_EQ(found.front().Name + PitchClassName(found.front().Key), "MajorC");
    EXPECT_EQ(found.front().Missing + found.front().Extra, 0);
    EXPECT_TRUE(FindScales(Scales, {}).empty());
}

TEST_F(LibraryTest, AScaleIsRunThroughByOctaveAndDirection) {
    const ScaleRec& major = *Scales.Find("Major");
    const std::vector<int> low = {40, 42, 44, 45, 47, 49, 51, 52};
    EXPECT_EQ(ScaleRun(major, E, ScaleOctave::Low, false), low);
    EXPECT_EQ(ScaleRun(major, E, ScaleOctave::High, true).back(), 52);
    EXPECT_EQ(ScaleRun(major, E, ScaleOctave::Both, false).size(), 15U);
}

TEST_F(LibraryTest, FilesOfScalesAndTuningsComeBackAndBadOnesAreRefused) {
    const std::string spanish = WriteScale(*Scales.Find("Spanish"));
    EXPECT_EQ(std::ranges::count(spanish, '\n'), 58);
    EXPECT_TRUE(spanish.starts_with("6\r\n1\r\n1\r\n0\r\n1\r\n0\r\n"));
    EXPECT_TRUE(spanish.ends_with("35\r\nspanish, classical, acoustic\r\n"));
    EXPECT_EQ(ReadScale(spanish), *Scales.Find("Spanish"));
    EXPECT_EQ(MakeScale("", {"9"}).Pattern[0].count(), 0U);
    for (const char* const bad : {"", "8\n", "6\n2\n", "6\n1\n0\n"}) EXPECT_FALSE(ReadScale(bad)) << bad;

    EXPECT_EQ(Tunings.Names().size(), 22U);
    EXPECT_EQ(WriteTuning(*Tunings.Find("Open F")), "6\r\n12\r\n13\r\n12\r\n10\r\n10\r\n13\r\n13\r\n");
    EXPECT_EQ(Tunings.Find("Dropped D")->Tuning[5], -2);
    EXPECT_EQ(ReadTuning(" 7 \n10")->Tuning[6], -2);
    for (const char* const bad : {"", "0\n", "6\nx\n", "6\n1e9\n"}) EXPECT_FALSE(ReadTuning(bad)) << bad;

    // Restoring keeps a person's own tuning.
    SaveTuning("Mine", {});
    services.Files.Delete(Tunings.FileOf("Open F"));
    CreateAllTunings();
    Tunings.Refresh();
    EXPECT_EQ(Tunings.Names().size(), 23U);
}

class ToneTest : public LibraryTest {
protected:
    ToneTest() {
        Services.Midi = &outputs;
        Services.Timers = &clock;
        outputs.Receive = [this](const SentMessage& sent) {
            if ((sent.Status & 0xF0) == 0x90 && sent.Data2 > 0) heard.emplace_back(clock.Now(), sent.Data1);
        };
        Playback::MidiOpen(MidiMapper);
    }
    ~ToneTest() override {
        StopRun();
        StopTuning();
        Tuner = {};
        Playback::MidiOut = {};
    }
    void RunOut() {
        while (clock.Step(clock.Now() + 10'000)) {
        }
    }
    VirtualClock clock;
    RecordingMidi outputs;
    std::vector<std::pair<std::int64_t, int>> heard;
};

TEST_F(ToneTest, TheTunerPlaysTheCheckedStringsOfATuning) {
    EXPECT_EQ(TunerName(5, -2), "-D");
    EXPECT_EQ(TunerName(0, 12), "+E");
    EXPECT_EQ(TunerPitch(5, "-D"), 38);
    Tuner.Tuning = *Tunings.Find("Dropped D");
    Tuner.Chk[3] = false;
    Tuner.Pause = 1000;
    std::vector<int> shown;
    Tuner.StringSounds = [&shown](int string) { shown.push_back(string); };
    PlayTuningUp();
    EXPECT_TRUE(IsTuningPlaying());
    RunOut();
    EXPECT_FALSE(IsTuningPlaying());
    EXPECT_EQ(shown, (std::vector<int>{5, 4, 2, 1, 0, -1}));
    ASSERT_EQ(heard.size(), 5U);
    EXPECT_EQ(heard[0].second, 38);
    EXPECT_EQ(heard[1].first - heard[0].first, 1000);
    EXPECT_LE(heard[2].first - heard[1].first, 1001) << "a string without its tick takes no time";
    heard.clear();
    PlayTuningDown();
    RunOut();
    EXPECT_EQ(heard.front().second, 64);
}

TEST_F(ToneTest, ARunStopsWithItsSilence) {
    std::vector<int> told;
    PlayRun({.Pitches = {60, 200, 64}, .Pause = 100, .Sounds = [&told](int index) { told.push_back(index); }});
    clock.Step(clock.Now() + 100);
    PlayRun({.Pitches = {50}});
    EXPECT_EQ(told.back(), -1);
    RunOut();
    EXPECT_FALSE(IsRunPlaying());
    EXPECT_EQ(heard.front().second, 60);
    EXPECT_EQ(heard.back().second, 50);
}

}  // namespace
}  // namespace Quillon::Library
