// The functions of FluidSynth that Quillon calls, and their objects as owners.
#pragma once

#include <fluidsynth.h>

#include <memory>

namespace Quillon {

struct FluidLibrary {
    decltype(&::new_fluid_settings) NewSettings;
    decltype(&::delete_fluid_settings) DeleteSettings;
    decltype(&::fluid_settings_setint) SetInteger;
    decltype(&::fluid_settings_setnum) SetNumber;
    decltype(&::fluid_settings_setstr) SetText;
    decltype(&::fluid_settings_foreach_option) ForEachOption;
    decltype(&::new_fluid_synth) NewSynth;
    decltype(&::delete_fluid_synth) DeleteSynth;
    decltype(&::new_fluid_audio_driver) NewDriver;
    decltype(&::delete_fluid_audio_driver) DeleteDriver;
    decltype(&::fluid_synth_sfload) LoadSoundFont;
    decltype(&::fluid_synth_noteon) NoteOn;
    decltype(&::fluid_synth_noteoff) NoteOff;
    decltype(&::fluid_synth_cc) Controller;
    decltype(&::fluid_synth_program_change) Program;
    decltype(&::fluid_synth_pitch_bend) PitchBend;
    decltype(&::fluid_synth_system_reset) Reset;
    decltype(&::fluid_synth_set_gain) SetGain;
    decltype(&::fluid_synth_reverb_on) SetReverb;
    decltype(&::fluid_synth_chorus_on) SetChorus;
    decltype(&::fluid_synth_write_s16) Write;
    decltype(&::fluid_set_log_function) SetLog;
};

/// Loaded at the first call, which takes some milliseconds, and made quiet; from any thread. Nothing where the library
/// is not installed.
const FluidLibrary* Fluid();

struct FluidDelete {
    void operator()(fluid_settings_t* settings) const { Fluid()->DeleteSettings(settings); }
    void operator()(fluid_synth_t* synth) const { Fluid()->DeleteSynth(synth); }
    void operator()(fluid_audio_driver_t* driver) const { Fluid()->DeleteDriver(driver); }
};
using FluidSettings = std::unique_ptr<fluid_settings_t, FluidDelete>;
using FluidSynth = std::unique_ptr<fluid_synth_t, FluidDelete>;
using FluidDriver = std::unique_ptr<fluid_audio_driver_t, FluidDelete>;

}  // namespace Quillon
