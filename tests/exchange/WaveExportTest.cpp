#include "exchange/WaveExport.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/mod_Settings.h"
#include "platform/RunTimeError.h"
#include "playback/mod_TabPlayer.h"
#include "tests/support/Fixture.h"

namespace Quillon::Exchange {
namespace {

/// Sounds at a steady level while any note is on, and a little longer.
struct ToneRenderer : WaveRenderer {
    bool Sounds = false;
    int Ring = 0;  ///< frames
    std::int64_t Frames = 0;
    std::vector<std::int64_t> Starts;  ///< in frames

    int ShortMessage(std::int16_t status, std::int16_t data1, std::int16_t data2) override {
        const int kind = status & 0xF0;
        const bool ends = (kind == 0x90 && data2 == 0) || (kind == 0xB0 && data1 == 120);
        if (kind == 0x90 && data2 > 0) Starts.push_back(Frames);
        if (Sounds && ends) Ring = 10000;
        if (kind == 0x90 && data2 > 0) Sounds = true;
        if (ends) Sounds = false;
        return MidiOk;
    }
    void Render(std::span<std::int16_t> samples) override {
        for (std::size_t at = 0; at < samples.size(); at += 2) {
            samples[at] = samples[at + 1] = Sounds || Ring > 0 ? 1000 : 1;
            if (!Sounds && Ring > 0) --Ring;
        }
        Frames += static_cast<std::int64_t>(samples.size() / 2);
    }
};

class WaveExportTest : public testing::Test {
protected:
    WaveExportTest() { Core::Settings = {}; }
    ~WaveExportTest() override {
        Core::Settings = {};
        Core::Open = {};
    }

    /// Bars of four crotchets on the open first string, at 60 beats a minute.
    static void MakeSong(int bars) {
        Core::TabFile& file = Core::Open.TabFile;
        file.Tempo = 60;
        Core::Track& track = file.Tracks[0];
        track.Bars.Resize(bars);
        file.BarInfos.Resize(bars);
        for (int bar = 0; bar < bars; ++bar) {
            auto& strums = track.Bars.Edit(bar).EditStrums();
            strums.Resize(4);
            for (int strum = 0; strum < 4; ++strum) {
                strums[strum].Length = 2;
                strums[strum].Notes.Edit(0).Fret = "0";
            }
        }
    }
    static std::uint32_t Number(const std::string& bytes, std::size_t at) {
        std::uint32_t number = 0;
        for (std::size_t byte = 4; byte-- > 0;) number = number * 256 + static_cast<unsigned char>(bytes.at(at + byte));
        return number;
    }

    Testing::ServicesForTest services;
    Testing::ScratchFolder folder;
    std::filesystem::path target = folder / "song.wav";
    ToneRenderer renderer;
};

TEST_F(WaveExportTest, WritesEveryNoteAtItsSampleAndTheRestOfItsSound) {
    MakeSong(3);
    Core::Settings.Metronome = Core::Settings.CountIn = true;
    std::vector<int> percents;
    const auto goOn = [&](int percent) {
        percents.push_back(percent);
        return true;
    };
    ASSERT_EQ(ExportWave(target, renderer, goOn), WaveOutcome::Written);
    EXPECT_TRUE(Core::Settings.Metronome && Core::Settings.CountIn);

    const std::string bytes = Testing::Slurp(target);
    EXPECT_EQ(bytes.substr(0, 4) + bytes.substr(8, 8) + bytes.substr(36, 4), "RIFFWAVEfmt data");
    EXPECT_EQ(Number(bytes, 4), bytes.size() - 8);
    EXPECT_EQ(Number(bytes, 16), 16U);
    EXPECT_EQ(Number(bytes, 20), 0x00020001U);  // plain samples, two channels
    EXPECT_EQ(Number(bytes, 24), 44100U);
    EXPECT_EQ(Number(bytes, 28), 44100U * 4);
    EXPECT_EQ(Number(bytes, 32), 0x00100004U);
    EXPECT_EQ(Number(bytes, 40), bytes.size() - 44);
    EXPECT_EQ(static_cast<std::int64_t>(bytes.size()), 44 + renderer.Frames * 4);

    // A tick of a 64th lasts 62 ms at this tempo, a crotchet 16 of them: to the frame, without drift.
    ASSERT_EQ(renderer.Starts.size(), 12U);
    for (std::size_t note = 1; note < renderer.Starts.size(); ++note) {
        const auto ms = static_cast<std::int64_t>(note) * 16 * 62;
        EXPECT_NEAR(static_cast<double>(renderer.Starts[note] - renderer.Starts[0]), static_cast<double>(ms) * 44.1, 1);
    }
    // What still rings is there, and the silence after it is not.
    EXPECT_LT(renderer.Frames - renderer.Starts.back(), 44100 + 10000 + 5000);
    EXPECT_EQ(static_cast<unsigned char>(bytes[bytes.size() - 2]), 1);
    EXPECT_EQ(renderer.Ring, 0);

    ASSERT_GE(percents.size(), 20U);
    EXPECT_TRUE(std::ranges::is_sorted(percents));
    EXPECT_EQ(percents.front(), 0);
    EXPECT_GE(percents.back(), 66);
    EXPECT_LE(percents.back(), 100);
}

TEST_F(WaveExportTest, WhatIsNotFinishedLeavesTheOldFile) {
    MakeSong(3);
    Testing::Spill(target, "old");
    int asked = 0;
    EXPECT_EQ(ExportWave(target, renderer, [&](int) { return ++asked < 5; }), WaveOutcome::Stopped);
    EXPECT_EQ(asked, 5);

    // A coda that is never marked: the song jumps to its start for ever.
    Core::Open.TabFile.BarInfos.Edit(1).ToCoda = 1;
    Core::Open.TabFile.BarInfos.Edit(1).DalSegno = 1;
    EXPECT_EQ(ExportWave(target, renderer), WaveOutcome::NeverEnds);

    struct FailingRenderer : ToneRenderer {
        void Render(std::span<std::int16_t> samples) override {
            if (Frames > 100000) throw RunTimeError(61, "full");
            ToneRenderer::Render(samples);
        }
    } failing;
    MakeSong(3);
    Core::Open.TabFile.BarInfos.Edit(1) = {};
    EXPECT_THROW(ExportWave(target, failing), RunTimeError);
    EXPECT_EQ(Testing::Slurp(target), "old");
    EXPECT_EQ(services.Files.FilesIn(folder.Path()), std::vector<std::string>{"song.wav"});
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
    EXPECT_FALSE(Playback::IsPlaying());
    EXPECT_THROW(ExportWave(folder / "missing" / "song.wav", renderer), RunTimeError);
}

TEST_F(WaveExportTest, ASongThatIsTooLongIsNotWritten) {
    MakeSong(3);
    Core::Open.TabFile.BarInfos.Edit(1).RepeatOpen = true;
    Core::Open.TabFile.BarInfos.Edit(1).RepeatClose = 99;
    EXPECT_EQ(ExportWave(target, renderer, {}, 10'000), WaveOutcome::TooLong);
    EXPECT_FALSE(services.Files.Exists(target));
    EXPECT_LT(renderer.Frames, 441'000 + 44'100);

    // Ticks of ten hours, and of four days: nothing of the wait is rendered.
    MakeSong(1);
    for (const float tempo : {1e-4F, 1e-5F}) {
        Core::Open.TabFile.Tempo = tempo;
        renderer = {};
        EXPECT_EQ(ExportWave(target, renderer), WaveOutcome::TooLong);
        EXPECT_EQ(renderer.Frames, 0);
    }
    EXPECT_FALSE(services.Files.Exists(target));
}

}  // namespace
}  // namespace Quillon::Exchange
