#include "exchange/WaveExport.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <exception>
#include <limits>
#include <string>

#include "core/mod_Common.h"
#include "core/mod_Settings.h"
#include "core/mod_TabFileStructure.h"
#include "platform/FileSystem.h"
#include "platform/Services.h"
#include "playback/mod_OfflinePlay.h"

namespace Quillon::Exchange {

namespace {

constexpr std::uint32_t Channels = 2;
constexpr std::uint32_t FrameBytes = Channels * sizeof(std::int16_t);
constexpr std::uint32_t HeaderBytes = 44;
constexpr std::int64_t TailMs = 2500;
constexpr std::int64_t AskEveryMs = 500;
static_assert((LongestWaveMs + TailMs) * WaveRenderer::Rate / 1000 * FrameBytes + HeaderBytes <
              (std::int64_t{1} << 32));

/// The dither of the last bits, which goes on for ever.
constexpr int Silence = 4;
constexpr std::size_t BlockFrames = 2048;

/// An integer's bytes, lowest first.
void Put(std::string& out, std::uint32_t value, int bytes) {
    for (int at = 0; at < bytes; ++at) out += static_cast<char>((value >> (8 * at)) & 0xFF);
}

std::string Header(std::uint32_t dataBytes) {
    constexpr std::uint32_t Rate = WaveRenderer::Rate;
    constexpr std::uint32_t PlainSamples = 1;
    std::string out = "RIFF";
    Put(out, dataBytes + HeaderBytes - 8, 4);
    out += "WAVEfmt ";
    Put(out, 16, 4);
    Put(out, PlainSamples, 2);
    Put(out, Channels, 2);
    Put(out, Rate, 4);
    Put(out, Rate * FrameBytes, 4);
    Put(out, FrameBytes, 2);
    Put(out, 16, 2);
    out += "data";
    Put(out, dataBytes, 4);
    return out;
}

/// What is played, rendered up to the moment of each message.
class Recording {
public:
    Recording(FileWriter& to, WaveRenderer& with) : file(to), renderer(with) { file.Append(Header(0)); }

    /// Counted from the start, so that no rounding adds up.
    void RenderTo(std::int64_t ms) {
        const std::int64_t wanted = ms * WaveRenderer::Rate / 1000;
        while (frames < wanted) Render(static_cast<std::size_t>(std::min<std::int64_t>(wanted - frames, BlockFrames)));
    }
    void Play(const Playback::TimedMessage& message) {
        RenderTo(message.Time);
        renderer.ShortMessage(message.Status, message.Data1, message.Data2);
    }
    void End() {
        const std::int64_t last = frames + TailMs * WaveRenderer::Rate / 1000;
        while (frames < last && Render(BlockFrames) > Silence) {
        }
        file.Overwrite(0, Header(static_cast<std::uint32_t>(frames * FrameBytes)));
    }

private:
    /// Gives the loudest sample.
    int Render(std::size_t count) {
        const std::span<std::int16_t> block(samples.data(), count * Channels);
        renderer.Render(block);
        bytes.resize(count * FrameBytes);
        int loudest = 0;
        char* out = bytes.data();
        for (const std::int16_t sample : block) {
            loudest = std::max(loudest, std::abs(int{sample}));
            *out++ = static_cast<char>(sample & 0xFF);
            *out++ = static_cast<char>((sample >> 8) & 0xFF);
        }
        file.Append(bytes);
        frames += static_cast<std::int64_t>(count);
        return loudest;
    }

    FileWriter& file;
    WaveRenderer& renderer;
    std::int64_t frames = 0;
    std::array<std::int16_t, BlockFrames * Channels> samples{};
    std::string bytes;
};

/// The song alone, for its lifetime.
class WithoutClicks {
public:
    WithoutClicks() : metronome(Core::Settings.Metronome), countIn(Core::Settings.CountIn) {
        Core::Settings.Metronome = Core::Settings.CountIn = false;
    }
    ~WithoutClicks() {
        Core::Settings.Metronome = metronome;
        Core::Settings.CountIn = countIn;
    }
    WithoutClicks(const WithoutClicks&) = delete;
    WithoutClicks& operator=(const WithoutClicks&) = delete;

private:
    bool metronome;
    bool countIn;
};

WaveOutcome Record(FileWriter& file, WaveRenderer& renderer, const std::function<bool(int)>& goOn,
                   std::int64_t longestMs) {
    const WithoutClicks quiet;
    Recording recording(file, renderer);
    const std::int16_t lastBar = Core::ToInt16(Core::Open.TabFile.BarInfos.UpperBound());
    auto outcome = WaveOutcome::Written;
    std::exception_ptr failure;  // kept past the player, which lives with any
    std::int64_t asked = 0;
    int percent = 0;

    const auto receive = [&](const Playback::TimedMessage& message) {
        if (message.Time > longestMs) outcome = WaveOutcome::TooLong;  // before hours of silence are rendered
        if (failure || outcome == WaveOutcome::TooLong) return;
        try {
            recording.Play(message);
        } catch (...) {
            failure = std::current_exception();
        }
    };
    const auto playsOn = [&](std::int64_t ms) {
        if (failure) return false;
        if (Playback::Player.ToldPlaysOn) outcome = WaveOutcome::NeverEnds;
        if (ms > longestMs) outcome = WaveOutcome::TooLong;
        if (ms >= asked + AskEveryMs && outcome == WaveOutcome::Written) {
            asked = ms;
            recording.RenderTo(ms);
            percent = std::clamp(100 * Playback::Player.PlayBar / (lastBar + 1), percent, 100);
            if (goOn && !goOn(percent)) outcome = WaveOutcome::Stopped;
        }
        return outcome == WaveOutcome::Written;
    };
    Playback::OfflineOptions song;
    song.EndBar = lastBar;
    song.MaxMs = std::numeric_limits<std::int64_t>::max();  // longestMs ends it, and tells
    Playback::PlayOffline(song, receive, playsOn);
    if (failure) std::rethrow_exception(failure);
    if (outcome == WaveOutcome::Written) recording.End();
    return outcome;
}

}  // namespace

WaveOutcome ExportWave(const std::filesystem::path& target, WaveRenderer& renderer,
                       const std::function<bool(int)>& goOn, std::int64_t longestMs) {
    auto outcome = WaveOutcome::Written;
    Services.Files->ReplaceWith(target, [&](FileWriter& file) {
        outcome = Record(file, renderer, goOn, longestMs);
        return outcome == WaveOutcome::Written;
    });
    return outcome;
}

}  // namespace Quillon::Exchange
