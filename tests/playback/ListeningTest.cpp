#include "playback/mod_Listening.h"

#include "playback/MIDI_CMD.h"
#include "tests/playback/PlayFixture.h"

namespace Quillon::Playback {
namespace {

/// Three tracks on channels of their own, each with two quarters; the second one's first is a tremolo.
class ListeningTest : public PlayTest {
protected:
    ListeningTest() {
        std::string tracks;
        for (int t = 0; t < 3; ++t) {
            const std::string technique = t == 1 ? R"(, "Technique": 4)" : "";
            tracks += (t > 0 ? ", " : "") + std::string(R"({"Channel": )") + std::to_string(2 * t) +
                      R"(, "EffectChannel": )" + std::to_string(2 * t + 1) +
                      R"(, "Bars": [{"Strums": [{"Length": 2, "Notes": {"0": {"Fret": "0")" + technique +
                      R"(}}}, {"Length": 2, "Notes": {"0": {"Fret": "2"}}}]}]})";
        }
        Load(R"({"Tempo": 3750, "Tracks": [)" + tracks + "]}");
    }
    static std::string Heard() {
        std::string heard;
        for (int t = 0; t < 3; ++t) heard += Player.Listening.Hears(t) ? std::to_string(t) : "-";
        return heard;
    }
};

TEST_F(ListeningTest, MutedTracksSendNothingAndKeepTime) {
    const auto all = Play();
    SetMute(2, true);  // the one that moves the bars
    const auto some = Play();
    for (const int channel : {0, 1, 2, 3}) EXPECT_EQ(Strikes(some, channel), Strikes(all, channel)) << channel;
    EXPECT_NE(Strikes(all, 4), "");
    EXPECT_EQ(Strikes(some, 4), "");
    EXPECT_EQ(some.back().Time, all.back().Time);

    SetMute(2, false);
    SetSolo(0, true);
    SetSolo(1, true);
    SetMute(1, true);
    EXPECT_EQ(Heard(), "0--") << "mute wins";
    EXPECT_EQ(Strikes(Play(), 0), Strikes(all, 0));
    std::vector<TimedMessage> offline;
    PlayOffline({}, [&](const TimedMessage& message) { offline.push_back(message); });
    EXPECT_EQ(Strikes(offline, 4), Strikes(all, 4)) << "what is written to a file knows nothing of it";
    EXPECT_EQ(Heard(), "0--");
}

TEST_F(ListeningTest, AChoiceWhilePlayingTakesEffectAtOnce) {
    Begin();
    Run(5);
    const auto running = [] { return Player.Memory->tmrTremPick.Running(); };
    EXPECT_EQ(running(), 1);
    SetSolo(0, true);
    EXPECT_EQ(running(), 0) << "its strokes end";
    const auto sent = std::exchange(messages, {});
    EXPECT_EQ(Only(sent, 176 + 3, 120).size(), 1U);
    EXPECT_EQ(Only(sent, 224 + 3).back().Data2, WheelCentre);
    EXPECT_TRUE(Only(sent, 176 + 0, 120).empty());
    const auto rest = Run();
    EXPECT_EQ(Strikes(rest, 2) + Strikes(rest, 3) + Strikes(rest, 4), "");
    EXPECT_EQ(Strikes(rest, 0), "17:66");

    // A track that shares its channels with one that is heard is not cut off there.
    Core::Open.TabFile.Tracks[1].Channel = 0;
    Begin();
    Run(5);
    messages.clear();
    SetMute(1, true);
    EXPECT_TRUE(Only(messages, 176 + 0, 120).empty());
}

TEST_F(ListeningTest, ChoicesGoWithTheirTracks) {
    ListeningState& state = Player.Listening;
    SetMute(2, true);
    const std::vector<int> order = state.Order(3);
    state.TracksSwapped(1, 2);
    EXPECT_EQ(Heard(), "0-2");
    state.TrackDeleted(1);
    EXPECT_EQ(Heard(), "012");
    state.CameBack(order);
    EXPECT_EQ(Heard(), "01-");
    SetSolo(1, true);
    state.TrackDeleted(1);
    EXPECT_EQ(Heard(), "0-2") << "a solo that is gone silences nobody";
    EXPECT_TRUE(state.Hears(99));
}

}  // namespace
}  // namespace Quillon::Playback
