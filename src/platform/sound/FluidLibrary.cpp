#include "platform/sound/FluidLibrary.h"

#include <optional>

#include "platform/sound/SharedLibrary.h"

namespace Quillon {

namespace {

void Ignore(int, const char*, void*) {}

std::optional<FluidLibrary> Load() {
    SharedLibrary library(QUILLON_FLUIDSYNTH);
    FluidLibrary fluid{};
    library.Find("new_fluid_settings", fluid.NewSettings);
    library.Find("delete_fluid_settings", fluid.DeleteSettings);
    library.Find("fluid_settings_setint", fluid.SetInteger);
    library.Find("fluid_settings_setnum", fluid.SetNumber);
    library.Find("fluid_settings_setstr", fluid.SetText);
    library.Find("fluid_settings_foreach_option", fluid.ForEachOption);
    library.Find("new_fluid_synth", fluid.NewSynth);
    library.Find("delete_fluid_synth", fluid.DeleteSynth);
    library.Find("new_fluid_audio_driver", fluid.NewDriver);
    library.Find("delete_fluid_audio_driver", fluid.DeleteDriver);
    library.Find("fluid_synth_sfload", fluid.LoadSoundFont);
    library.Find("fluid_synth_noteon", fluid.NoteOn);
    library.Find("fluid_synth_noteoff", fluid.NoteOff);
    library.Find("fluid_synth_cc", fluid.Controller);
    library.Find("fluid_synth_program_change", fluid.Program);
    library.Find("fluid_synth_pitch_bend", fluid.PitchBend);
    library.Find("fluid_synth_system_reset", fluid.Reset);
    library.Find("fluid_synth_set_gain", fluid.SetGain);
    library.Find("fluid_synth_reverb_on", fluid.SetReverb);
    library.Find("fluid_synth_chorus_on", fluid.SetChorus);
    library.Find("fluid_synth_write_s16", fluid.Write);
    library.Find("fluid_set_log_function", fluid.SetLog);
    if (!library.Complete()) return {};
    for (const int level : {FLUID_PANIC, FLUID_ERR, FLUID_WARN, FLUID_INFO, FLUID_DBG}) {
        fluid.SetLog(level, &Ignore, nullptr);
    }
    QuietSoundSystems(library);
    return fluid;
}

}  // namespace

const FluidLibrary* Fluid() {
    static const std::optional<FluidLibrary> library = Load();
    return library ? &*library : nullptr;
}

}  // namespace Quillon
