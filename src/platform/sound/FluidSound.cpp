#include "platform/sound/FluidSound.h"

#include <algorithm>
#include <new>
#include <vector>

namespace Quillon {

namespace {

/// Where sound systems share a machine, the one that the others run on comes first.
constexpr const char* Preferred[] = {"pipewire",  "pulseaudio", "jack",   "alsa",   "oss",
                                     "coreaudio", "wasapi",     "dsound", "waveout"};
// Left out on purpose: "file", which writes one, and "sdl2", whose silent stand-in passes for sound.

std::vector<std::string> AudioSystems(fluid_settings_t* settings) {
    std::vector<std::string> built;
    const auto add = [](void* data, const char*, const char* option) {
        static_cast<std::vector<std::string>*>(data)->emplace_back(option);
    };
    Fluid()->ForEachOption(settings, "audio.driver", &built, add);
    std::vector<std::string> usable;
    for (const char* name : Preferred) {
        if (std::ranges::find(built, name) != built.end()) usable.emplace_back(name);
    }
    return usable;
}

struct Latency {
    int PeriodSize;  ///< frames
    int Periods;
};
constexpr Latency Latencies[] = {{256, 3}, {1024, 4}};

}  // namespace

FluidSound::FluidSound(const SynthesizerSettings& applied, Use use) : settings(Fluid()->NewSettings()) {
    if (!settings) throw std::bad_alloc();
    const FluidLibrary& fluid = *Fluid();
    fluid.SetNumber(settings.get(), "synth.sample-rate", WaveRenderer::Rate);
    // Whoever renders waits for the disk when a program comes up; whoever sounds must not.
    fluid.SetInteger(settings.get(), "synth.dynamic-sample-loading", use == Use::Offline ? 1 : 0);
    if (use == Use::Offline) fluid.SetInteger(settings.get(), "synth.lock-memory", 0);
    synth.reset(fluid.NewSynth(settings.get()));
    if (!synth) throw std::bad_alloc();
    Apply(applied);
}

bool FluidSound::Load(const std::filesystem::path& soundFont) {
    font = soundFont;
    return Fluid()->LoadSoundFont(synth.get(), soundFont.c_str(), 1) != FLUID_FAILED;
}

bool FluidSound::OpenAudio() {
    const FluidLibrary& fluid = *Fluid();
    for (const std::string& system : AudioSystems(settings.get())) {
        fluid.SetText(settings.get(), "audio.driver", system.c_str());
        for (const Latency& latency : Latencies) {
            fluid.SetInteger(settings.get(), "audio.period-size", latency.PeriodSize);
            fluid.SetInteger(settings.get(), "audio.periods", latency.Periods);
            driver.reset(fluid.NewDriver(settings.get(), synth.get()));
            if (!driver) continue;
            audio = system;
            return true;
        }
    }
    return false;
}

void FluidSound::Apply(const SynthesizerSettings& applied) {
    constexpr int EveryGroup = -1;
    const FluidLibrary& fluid = *Fluid();
    fluid.SetGain(synth.get(), static_cast<float>(std::clamp(applied.Gain, 0.0, LoudestGain)));
    fluid.SetReverb(synth.get(), EveryGroup, applied.Reverb);
    fluid.SetChorus(synth.get(), EveryGroup, applied.Chorus);
}

void FluidSound::Play(const MidiBytes& message) {
    const FluidLibrary& fluid = *Fluid();
    const int channel = message.Status & 0x0F;
    switch (message.Status & 0xF0) {
        case 0x80:
            fluid.NoteOff(synth.get(), channel, message.Data1);
            break;
        case 0x90:  // a velocity of 0 ends the note, there as here
            fluid.NoteOn(synth.get(), channel, message.Data1, message.Data2);
            break;
        case 0xB0:
            fluid.Controller(synth.get(), channel, message.Data1, message.Data2);
            break;
        case 0xC0:
            fluid.Program(synth.get(), channel, message.Data1);
            break;
        case 0xE0:
            fluid.PitchBend(synth.get(), channel, message.Data2 * 128 + message.Data1);
            break;
        default:  // pressure, which nothing here sends
            break;
    }
}

void FluidSound::Reset() { Fluid()->Reset(synth.get()); }

void FluidSound::Render(std::int16_t* samples, int frames) {
    Fluid()->Write(synth.get(), frames, samples, 0, 2, samples, 1, 2);
}

}  // namespace Quillon
