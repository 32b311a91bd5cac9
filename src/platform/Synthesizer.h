// The built-in synthesizer, beyond what it takes as a MIDI device: what it sounds with, and rendering to memory.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "platform/MidiDevice.h"

namespace Quillon {

struct SynthesizerSettings {
    std::filesystem::path SoundFont;  ///< "" for the first of the found ones
    double Gain = 0.5;                ///< 0 to LoudestGain; above this one songs with many notes clip
    bool Reverb = true;
    bool Chorus = true;
    bool operator==(const SynthesizerSettings&) const = default;
};
constexpr double LoudestGain = 2;

enum class SynthesizerState : std::uint8_t {
    Closed,   ///< no output of it is open
    Loading,  ///< messages are taken, and heard once the SoundFont is there
    Sounding,
    NoSoundFont,  ///< none was found, or the chosen one can't be read
    NoAudio       ///< the machine has no audio system that could be opened
};

/// Sounds rendered as fast as the machine can, without any audio system.
struct WaveRenderer : MidiDevice {
    /// Frames a second.
    static constexpr int Rate = 44100;
    /// The next frames, left and right in turn, from the messages taken so far.
    virtual void Render(std::span<std::int16_t> samples) = 0;
};

struct Synthesizer {
    virtual ~Synthesizer() = default;
    /// Takes effect at once also on an open output; a new SoundFont is loaded beside the windows' thread.
    virtual void Apply(const SynthesizerSettings& settings) = 0;
    virtual SynthesizerState State() const = 0;
    /// The SoundFont in use or being loaded, and the audio system; "" when there is none.
    virtual std::filesystem::path SoundFont() const = 0;
    virtual std::string AudioSystem() const = 0;
    /// SoundFonts of the usual folders, the best choice first.
    virtual std::vector<std::filesystem::path> SoundFonts() const = 0;
    /// A renderer with the applied settings; raises RunTimeError 53 with the reason when there is no SoundFont.
    virtual std::unique_ptr<WaveRenderer> NewRenderer() = 0;
};

}  // namespace Quillon
