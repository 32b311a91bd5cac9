// Songs given as JSON, played on a virtual clock.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/mod_Settings.h"
#include "core/mod_TabFileStructure.h"
#include "exchange/JsonDocument.h"
#include "platform/VirtualClock.h"
#include "platform/headless/MemoryStore.h"
#include "platform/headless/RecordingMidi.h"
#include "playback/MIDI_OUT.h"
#include "playback/frmPlayMemory.h"
#include "playback/mod_Effects.h"
#include "playback/mod_OfflinePlay.h"
#include "playback/mod_TabPlayer.h"
#include "tests/support/Fixture.h"

namespace Quillon::Playback {

inline bool operator==(const TimedMessage& a, const TimedMessage& b) {
    return a.Time == b.Time && a.Status == b.Status && a.Data1 == b.Data1 && a.Data2 == b.Data2;
}

class PlayTest : public testing::Test {
protected:
    PlayTest() {
        Services.Midi = &outputs;
        Services.Timers = &clock;
        Core::Settings = {};
        outputs.Receive = [this](const SentMessage& sent) {
            messages.push_back({clock.Now() - started, sent.Status, sent.Data1, sent.Data2});
        };
        MidiOpen(MidiMapper);
        Player = {};
        Player.View = &view;
        Effects = {};
    }
    ~PlayTest() override {
        Player = {};
        MidiOut = {};
        Core::Settings = {};
    }

    /// What the player told its window.
    struct View : PlayView {
        struct Place {
            int Bar, Strum;
            bool operator==(const Place&) const = default;
        };
        std::vector<Place> Marks;
        std::vector<int> Scrolled;
        int Starts = 0, Stops = 0, TimesPlaysOn = 0;

        void PlayingStarts() override { ++Starts; }
        void PlayingStopped() override { ++Stops; }
        void ScrollToBar(int bar) override { Scrolled.push_back(bar); }
        void MoveMarker(int, int bar, int strum) override { Marks.push_back({bar, strum}); }
        void PlaysOn() override { ++TimesPlaysOn; }
    };

    static void Load(const std::string& json) { Core::Open.TabFile = Exchange::ReadJson(json, MemoryStore()); }
    /// A song of one track at a tempo of 3750, where a tick is a millisecond, with these bars and bar infos.
    static void LoadBars(const std::string& bars, const std::string& infos = "") {
        Load(R"({"Tempo": 3750, "Tracks": [{"Bars": [)" + bars + "]}]" +
             (infos.empty() ? "" : R"(, "BarInfos": [)" + infos + "]") + "}");
    }
    static std::int16_t LastBar() { return static_cast<std::int16_t>(Core::Open.TabFile.BarInfos.UpperBound()); }

    /// Plays until all is silent or `limit` milliseconds are past, and gives what was sent.
    std::vector<TimedMessage> Run(std::int64_t limit = 1'000'000) {
        while (clock.Step(started + limit)) {
        }
        return std::exchange(messages, {});
    }
    void Begin(std::int16_t from = 0, std::int16_t to = LastBar()) {
        messages.clear();
        started = clock.Now();
        PlayTab(from, to);
    }
    std::vector<TimedMessage> Play(std::int64_t limit = 1'000'000) {
        Begin();
        return Run(limit);
    }
    /// Those of one status and, when given, one first data byte.
    static std::vector<TimedMessage> Only(const std::vector<TimedMessage>& all, int status, int data1 = -1) {
        std::vector<TimedMessage> found;
        for (const TimedMessage& each : all) {
            if (each.Status == status && (data1 < 0 || each.Data1 == data1)) found.push_back(each);
        }
        return found;
    }
    /// Note strikes as "time:note", in their order; note offs are left out.
    static std::string Strikes(const std::vector<TimedMessage>& all, int channel) {
        std::string text;
        for (const TimedMessage& each : Only(all, 144 + channel)) {
            if (each.Data2 == 0) continue;
            text += (text.empty() ? "" : " ") + std::to_string(each.Time) + ":" + std::to_string(each.Data1);
        }
        return text;
    }

    Testing::ServicesForTest services;
    RecordingMidi outputs;
    VirtualClock clock;
    View view;
    std::vector<TimedMessage> messages;
    std::int64_t started = 0;
};

}  // namespace Quillon::Playback
