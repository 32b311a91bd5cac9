#include <gtest/gtest.h>

#include "platform/headless/RecordingMidi.h"
#include "playback/MIDI_CMD.h"
#include "playback/MIDI_OUT.h"
#include "tests/support/Fixture.h"

namespace Quillon::Playback {

namespace {

class MidiTest : public testing::Test {
protected:
    MidiTest() { Services.Midi = &outputs; }
    ~MidiTest() override { MidiOut = {}; }

    Testing::ServicesForTest services;
    RecordingMidi outputs;
};

TEST_F(MidiTest, MessagesGoOutAsTheyAreGiven) {
    ASSERT_TRUE(MidiOpen(MidiMapper));
    MidiNoteOn(3, 200, -5);
    MidiNoteOff(15, 60);
    MidiPitchWheel(2, 0, 300);
    MidiSetInstrument(1, 128, 24);
    MidiChannelOff(4);
    const std::vector<SentMessage> expected = {{147, 200, -5}, {159, 60, 0},  {226, 0, 300}, {177, 0, 128},
                                               {193, 24, 0},   {180, 120, 0}, {180, 123, 0}};
    EXPECT_EQ(outputs.Sent, expected);
}

TEST_F(MidiTest, AllChannelsAreSilencedInTheirOrder) {
    MidiOpen(MidiMapper);
    MidiAllChannelsOff();
    ASSERT_EQ(outputs.Sent.size(), 32U);
    EXPECT_EQ(outputs.Sent.front(), (SentMessage{176, 120, 0}));
    EXPECT_EQ(outputs.Sent[1], (SentMessage{176, 123, 0}));
    EXPECT_EQ(outputs.Sent.back(), (SentMessage{191, 123, 0}));
}

TEST_F(MidiTest, PacksSignedNumbers) {
    EXPECT_EQ(MidiPackMessage(144, 60, 127), 127 * 65536 + 60 * 256 + 144);
    EXPECT_EQ(MidiPackMessage(144, -1, 0), 144 - 256);
}

TEST_F(MidiTest, OpeningClosesWhatWasOpenAndFailuresAreSilent) {
    EXPECT_TRUE(MidiOpen(0));
    const std::int32_t first = MidiOut.MidiHandle;
    EXPECT_TRUE(MidiOpen(MidiMapper));
    EXPECT_NE(MidiOut.MidiHandle, first);
    EXPECT_EQ(outputs.Opened, 1);

    EXPECT_FALSE(MidiOpen(7));
    EXPECT_EQ(MidiOut.MidiHandle, 0);
    EXPECT_EQ(outputs.Opened, 0);
    EXPECT_FALSE(MidiOutErrorText().empty());
    MidiNoteOn(0, 60, 100);

    EXPECT_TRUE(MidiOpen(MidiMapper));
    EXPECT_EQ(MidiOutErrorText(), "");
    outputs.Fails = true;
    MidiNoteOn(0, 60, 100);
    EXPECT_FALSE(MidiOutErrorText().empty());
    EXPECT_TRUE(outputs.Sent.empty());
    MidiClose();
    EXPECT_EQ(outputs.Opened, 0);
}

TEST_F(MidiTest, TheListHoldsTheMapperAndEveryPortThatTellsItsName) {
    struct Ports : RecordingMidi {
        int Count() override { return 3; }
        std::optional<std::string> Name(int number) override {
            if (number == 1) return {};
            return "Port " + std::to_string(number);
        }
    } ports;
    Services.Midi = &ports;
    DeviceList list = {{"old", 5}};
    MidiFillDeviceList(list);
    EXPECT_EQ(list, (DeviceList{{"Port -1", -1}, {"Port 0", 0}, {"Port 2", 2}}));

    Services.Midi = nullptr;
    MidiFillDeviceList(list);
    EXPECT_TRUE(list.empty());
    EXPECT_FALSE(MidiOpen(MidiMapper));
}

TEST(MidiBytesTest, DriversDropOrLimitWhatDoesNotFit) {
    struct Case {
        std::int16_t Status, Data1, Data2;
        std::optional<std::array<int, 3>> Bytes;
    };
    const Case cases[] = {
        {176, 0, 128, {}},
        {176, 0, 127, {{176, 0, 127}}},
        {176, -1, 0, {}},
        {192, 128, 0, {}},
        {144, 128, 90, {}},
        {144, 60, 190, {{144, 60, 127}}},
        {144, 60, -3, {{144, 60, 0}}},
        {224, 0, 144, {{224, 0, 127}}},
        {224, -7, -2, {{224, 0, 0}}},
        {240, 0, 0, {}},
        {100, 0, 0, {}},
    };
    for (const Case& each : cases) {
        const auto bytes = BytesOfMessage(each.Status, each.Data1, each.Data2);
        ASSERT_EQ(bytes.has_value(), each.Bytes.has_value()) << each.Status << " " << each.Data1;
        if (!bytes) continue;
        EXPECT_EQ((std::array<int, 3>{bytes->Status, bytes->Data1, bytes->Data2}), *each.Bytes);
    }
}

}  // namespace

}  // namespace Quillon::Playback
