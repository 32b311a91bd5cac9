// A strum heard by itself, out of a dialog.
#include "playback/mod_Audition.h"

#include "tests/playback/PlayFixture.h"

using namespace Quillon;
using namespace Quillon::Playback;

namespace {

class AuditionTest : public PlayTest {
protected:
    ~AuditionTest() override { EndAudition(); }
};

TEST_F(AuditionTest, ABentNoteSoundsWithItsCurveAndGraceNotesAheadOfIt) {
    LoadBars(R"({"Strums": [{"Length": 2, "Notes": {"0": {"Fret": "5"}}}]})");
    const Core::TabFile before = Core::Open.TabFile;
    Core::TabFile changed = before;
    Core::Note& note = changed.Tracks[0].Bars.Edit(0).EditStrums()[0].Notes.Edit(0);
    note.HasBend = true;
    note.BendPoints.Edit()[25] = 4;
    note.HasGrace = true;
    note.GraceFret = "3";
    note.GraceDuration = 1;
    Audition(changed, {});
    EXPECT_FALSE(IsPlaying());
    while (clock.Step(clock.Now() + 5000)) {
    }
    EXPECT_FALSE(IsAuditioning());
    EXPECT_TRUE(Core::Open.TabFile == before);

    std::vector<TimedMessage> notes;
    int highest = 0;
    for (const TimedMessage& each : messages) {
        if ((each.Status & 0xF0) == 0x90) notes.push_back(each);
        if (each.Status == 0xE1) highest = std::max<int>(highest, each.Data2);
    }
    const std::vector<TimedMessage> expected = {{1, 0x90, 67, 90}, {2, 0x91, 69, 100}};
    EXPECT_EQ(notes, expected);
    EXPECT_GT(highest, 90) << "half a tone is a quarter of the wheel, half of its upper half";
    EXPECT_EQ(messages.back().Data2, 64) << "the wheel is back";
}

TEST_F(AuditionTest, PlayingASongEndsItAndAPlaceOutsideIsSilent) {
    LoadBars(R"({"Strums": [{"Length": 0, "Notes": {"0": {"Fret": "5"}}}]})");
    Audition(Core::Open.TabFile, {0, 7, 0});
    EXPECT_FALSE(IsAuditioning());
    Audition(Core::Open.TabFile, {});
    EXPECT_TRUE(IsAuditioning());
    PlayTab(0, 0);
    EXPECT_FALSE(IsAuditioning());
    StopTab();
}

}  // namespace
