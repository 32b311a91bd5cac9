// The built-in synthesizer: FluidSynth on the audio system of the machine, or rendering to memory.
//
// Whatever takes time is done by a thread of its own: loading the libraries and the SoundFont, opening and closing the
// audio system. Messages never wait for it. Until the sound is there programs, controllers and wheels are kept for it;
// notes go by, as they do where nothing sounds.
#pragma once

#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

#include "platform/Synthesizer.h"
#include "platform/sound/ChannelMemory.h"

namespace Quillon {

class FluidSound;

class FluidSynthesizer : public Synthesizer {
public:
    /// `ownSoundFonts` is a folder whose SoundFonts are found too.
    explicit FluidSynthesizer(std::filesystem::path ownSoundFonts);
    /// Waits for what is being loaded. Devices that are still open must be gone before.
    ~FluidSynthesizer() override;
    FluidSynthesizer(const FluidSynthesizer&) = delete;
    FluidSynthesizer& operator=(const FluidSynthesizer&) = delete;

    /// The mapper's device. All channels start anew; one that found no sound tries again.
    std::unique_ptr<MidiDevice> Open();

    void Apply(const SynthesizerSettings& applied) override;
    SynthesizerState State() const override;
    std::filesystem::path SoundFont() const override;
    std::string AudioSystem() const override;
    std::vector<std::filesystem::path> SoundFonts() const override;
    std::unique_ptr<WaveRenderer> NewRenderer() override;

private:
    class Device;

    void Take(const MidiBytes& message);
    void Close();
    void Wish();
    void Work();
    void MakeSound(std::unique_lock<std::mutex>& guard);
    std::filesystem::path Chosen(const SynthesizerSettings& of) const;

    const std::filesystem::path ownFonts;
    mutable std::mutex lock;  ///< of all below; never held for long
    std::condition_variable wished;
    SynthesizerSettings settings;
    int devices = 0;   ///< open ones
    bool due = false;  ///< something was wished for that the thread has not seen
    bool ends = false;
    ChannelMemory memory;
    std::unique_ptr<FluidSound> sound;  ///< while it sounds
    SynthesizerState state = SynthesizerState::Closed;
    std::filesystem::path font;
    std::thread thread;
};

}  // namespace Quillon
