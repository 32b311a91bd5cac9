// A FluidSynth synthesizer with its SoundFont, and where it sounds.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "platform/MidiDevice.h"
#include "platform/Synthesizer.h"
#include "platform/sound/FluidLibrary.h"

namespace Quillon {

/// Everything below needs Fluid() to be there.
class FluidSound {
public:
    enum class Use : std::uint8_t { Live, Offline };
    /// A silent one: without a SoundFont and without an audio system.
    FluidSound(const SynthesizerSettings& applied, Use use);

    /// False when the file can't be read as a SoundFont.
    bool Load(const std::filesystem::path& soundFont);
    /// Opens the first audio system of this machine that takes it; false when there is none.
    bool OpenAudio();

    /// Gain, reverb and chorus.
    void Apply(const SynthesizerSettings& applied);
    void Play(const MidiBytes& message);
    /// Ends all notes; all channels are as at the start.
    void Reset();
    /// Left and right in turn.
    void Render(std::int16_t* samples, int frames);

    const std::filesystem::path& SoundFont() const { return font; }
    const std::string& AudioSystem() const { return audio; }

private:
    std::filesystem::path font;
    std::string audio;
    // Each uses those above it, and goes before them.
    FluidSettings settings;
    FluidSynth synth;
    FluidDriver driver;
};

}  // namespace Quillon
