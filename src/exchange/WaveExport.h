// The open song as a sound file: RIFF WAVE, 44,100 frames a second, two channels of 16 bits.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>

#include "platform/Synthesizer.h"

namespace Quillon::Exchange {

/// Music of more hours than these is a slip; it also keeps the file well below the four gigabytes that RIFF can tell.
constexpr int LongestWaveHours = 2;
constexpr std::int64_t LongestWaveMs = std::int64_t{LongestWaveHours} * 60 * 60 * 1000;

enum class WaveOutcome : std::uint8_t {
    Written,
    Stopped,    ///< by `goOn`
    NeverEnds,  ///< the song jumps back for ever, or leaves its last bar behind
    TooLong     ///< than LongestWaveMs
};

/// Plays the whole open song, all repeats included, into the renderer and writes what it sounds like: without count-in
/// and metronome, from the first tick on, and with the reverb that rings on after the end, of at most 2.5 seconds.
/// Only with the outcome Written anything is written; else, and when the file system raises, the target stays as it
/// was. `goOn` is asked twice for every second of music, with 0 to 100 for the bars played; false stops.
WaveOutcome ExportWave(const std::filesystem::path& target, WaveRenderer& renderer,
                       const std::function<bool(int percent)>& goOn = {}, std::int64_t longestMs = LongestWaveMs);

}  // namespace Quillon::Exchange
