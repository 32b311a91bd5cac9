// What typing sounds like, on a virtual clock; and keys while a song plays.
#include "platform/VirtualClock.h"
#include "platform/headless/RecordingMidi.h"
#include "playback/MIDI_OUT.h"
#include "playback/mod_TabPlayer.h"
#include "tests/editing/ScoreText.h"

namespace Quillon::Editing {
namespace {

using Core::Open;

class TypedNoteTest : public EntryTest {
protected:
    TypedNoteTest() {
        Services.Midi = &outputs;
        Services.Timers = &clock;
        outputs.Receive = [this](const SentMessage& sent) {
            if ((sent.Status & 0xF0) == 0x90 && sent.Data2 > 0) {
                notes += (notes.empty() ? "" : " ") + std::to_string(sent.Data1) + "@" + std::to_string(clock.Now());
            }
            if (sent.Data1 == 123) silenced = clock.Now();
        };
        Playback::MidiOpen(MidiMapper);
        Entry.SoundStrum = SoundTypedNote;
    }
    ~TypedNoteTest() override {
        EndTypedNote();
        Playback::Player = {};
        Playback::MidiOut = {};
    }
    void RunTo(std::int64_t time) {
        while (clock.Step(time)) {
        }
    }

    VirtualClock clock;
    RecordingMidi outputs;
    std::string notes;
    std::int64_t silenced = -1;
};

TEST_F(TypedNoteTest, SoundsTheStrumForTwiceItsLength) {
    Type("5 Down 3 Right");
    EXPECT_EQ(notes, "69@0 62@0 69@0") << "the whole strum each time";
    silenced = -1;
    RunTo(1'999);
    EXPECT_EQ(silenced, -1);
    RunTo(3'000);
    EXPECT_EQ(silenced, 2'000) << "a quarter at 60 lasts a second";
    EXPECT_FALSE(Playback::IsPlaying());
}

TEST_F(TypedNoteTest, TheSecondDigitIsNotTakenForAStop) {
    Type("1 2");
    EXPECT_EQ(Score(), "2{0:12}");
    EXPECT_EQ(notes, "65@0 76@0");
}

TEST_F(TypedNoteTest, AKeyStopsASongAndIsNotEntered) {
    Playback::PlayTab(0, 0);
    ASSERT_TRUE(Playback::IsPlaying());
    Type("ShiftItself");
    EXPECT_TRUE(Playback::IsPlaying()) << "a key that is held for another's sake";
    Type("7");
    EXPECT_FALSE(Playback::IsPlaying());
    EXPECT_EQ(Score(), "2");
    EXPECT_EQ(Steps(), 0);
    Type("7");
    EXPECT_EQ(Score(), "2{0:7}");
}

}  // namespace
}  // namespace Quillon::Editing
