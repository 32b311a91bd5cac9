// Devices, and what the store remembers of sound.
#include "shell/mod_Sound.h"

#include <algorithm>
#include <cmath>

#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "core/mod_Settings.h"
#include "platform/RunTimeError.h"
#include "platform/Services.h"
#include "platform/SettingsStore.h"
#include "playback/MIDI_CMD.h"
#include "playback/ctlHiPreTimer.h"
#include "playback/mod_TabPlayer.h"
#include "shell/ToolWindows.h"
#include "shell/mod_Shell.h"

namespace Quillon::Shell {

using Core::LanguageText;
using Core::ToInt16;
using Playback::DeviceEntry;
using Playback::MidiOut;

SoundState::SoundState() = default;
SoundState::~SoundState() = default;
SoundState::SoundState(SoundState&&) noexcept = default;
SoundState& SoundState::operator=(SoundState&&) noexcept = default;

SoundState Sound;

namespace {

constexpr std::string_view Section = "Sound";
constexpr std::int16_t NylonGuitar = 24;

int PositionOf(auto wanted) {
    const auto found = std::ranges::find_if(Sound.Devices, wanted);
    return found == Sound.Devices.end() ? -1 : static_cast<int>(found - Sound.Devices.begin());
}

int MapperPosition() {
    return PositionOf([](const DeviceEntry& entry) { return entry.ItemData == MidiMapper; });
}

bool IsInList(int position) { return position >= 0 && position < static_cast<int>(Sound.Devices.size()); }

const DeviceEntry& Device(int position) { return Sound.Devices[static_cast<std::size_t>(position)]; }

int RememberedPosition() {
    const int position = Core::Settings.OutputDevice;
    if (IsInList(position) && (Sound.DeviceName.empty() || Device(position).Name == Sound.DeviceName)) return position;
    const int named = PositionOf([](const DeviceEntry& entry) { return entry.Name == Sound.DeviceName; });
    if (named >= 0) return named;
    if (!Sound.DeviceName.empty() && !Sound.ToldGone) {
        Sound.ToldGone = true;
        const int mapper = MapperPosition();
        Program.View->ShowStatus(mapper >= 0
                                     ? LanguageText("str_SoundDeviceGone", {Sound.DeviceName, Device(mapper).Name})
                                     : LanguageText("str_SoundDeviceGoneSilent", {Sound.DeviceName}));
        Sound.ToldSilent = Sound.ToldSilent || mapper < 0;
    }
    return MapperPosition();
}

bool OpenDevice(int position) {
    Sound.Position = position;
    Sound.OpenError.clear();
    if (!IsInList(position)) return Playback::MidiClose(), false;
    if (Playback::MidiOpen(ToInt16(Device(position).ItemData))) return true;
    Sound.OpenError = Playback::MidiOutErrorText();  // messages sent all the same have another
    return false;
}

bool PlaysSynthesizer() {
    return Services.Synth && IsInList(Sound.Position) && Device(Sound.Position).ItemData == MidiMapper;
}

std::string SilentBecause(std::string_view reason) { return LanguageText("str_SoundSilent", {reason}); }

bool StoredFlag(std::string_view key, bool otherwise) {
    const std::string text = Services.Settings->Get(Section, key);
    return text == "1" || (text != "0" && otherwise);
}

double StoredGain(double otherwise) {
    const auto text = Services.Settings->Find(Section, "Gain");
    if (!text) return otherwise;
    try {
        const double gain = Core::ParseDouble(*text);
        return std::isfinite(gain) && gain >= 0 && gain <= LoudestGain ? gain : otherwise;
    } catch (const RunTimeError&) {
        return otherwise;
    }
}

}  // namespace

void LoadMIDI() {
    Playback::MidiClose();
    if (Services.Synth) Services.Synth->Apply(Sound.Synthesizer);
    Playback::MidiFillDeviceList(Sound.Devices);
    if (OpenDevice(RememberedPosition())) Playback::MidiSetInstrument(0, Core::Settings.OutputBank, NylonGuitar);
    TellSilence();
}

void FillDevices() {
    const DeviceEntry now = IsInList(Sound.Position) ? Device(Sound.Position) : DeviceEntry{};
    const bool any = IsInList(Sound.Position);
    Playback::MidiFillDeviceList(Sound.Devices);
    Sound.Position = any ? PositionOf([&](const DeviceEntry& entry) { return entry == now; }) : -1;
    // A port's number changes when one before it comes or goes.
    if (any && Sound.Position < 0) {
        Sound.Position = PositionOf([&](const DeviceEntry& entry) { return entry.Name == now.Name; });
    }
}

void lstDevices_Click(int position) {
    if (!IsInList(position)) return;
    OpenDevice(position);
    Core::Settings.OutputDevice = ToInt16(position);
    Sound.DeviceName = Device(position).Name;
    KeepSettings();
}

void EndSound() {
    Sound.tmrTestTone.reset();
    Playback::StopTab();
    SilenceTools();
    Playback::MidiClose();
    Sound.Position = -1;
}

std::string WhySilent() {
    if (PlaysSynthesizer()) {
        const SynthesizerState state = Services.Synth->State();
        if (state == SynthesizerState::NoAudio) return SilentBecause(LanguageText("str_SoundNoAudio"));
        if (state == SynthesizerState::NoSoundFont) {
            const auto& chosen = Sound.Synthesizer.SoundFont;
            return SilentBecause(chosen.empty() ? LanguageText("str_SoundNoSoundFont")
                                                : LanguageText("str_SoundFontUnreadable", {chosen.string()}));
        }
        if (state == SynthesizerState::Loading) return "";
    }
    if (MidiOut.MidiHandle == 0) {
        return SilentBecause(Sound.OpenError.empty() ? LanguageText("str_SoundNoDevice") : Sound.OpenError);
    }
    const std::string error = Playback::MidiOutErrorText();
    return error.empty() ? "" : SilentBecause(error);
}

std::string SoundText() {
    const bool noFont = PlaysSynthesizer() && Services.Synth->State() == SynthesizerState::NoSoundFont;
    if (noFont && Sound.Synthesizer.SoundFont.empty()) return SilentBecause(LanguageText("str_SoundFontMissing"));
    if (std::string silent = WhySilent(); !silent.empty()) return silent;
    const std::string& name = Device(Sound.Position).Name;
    if (!PlaysSynthesizer()) return LanguageText("str_SoundDevice", {name});
    const std::string font = Services.Synth->SoundFont().filename().string();
    if (Services.Synth->State() == SynthesizerState::Loading) return LanguageText("str_SoundLoading", {name, font});
    return LanguageText("str_SoundSynthesizer", {name, font, Services.Synth->AudioSystem()});
}

void TellSilence() {
    if (Sound.ToldSilent) return;
    const std::string why = WhySilent();
    if (why.empty()) return;
    Sound.ToldSilent = true;
    Program.View->ShowStatus(why);
}

void cmdTestTone_Click() { SoundForAWhile(NylonGuitar, {40, 47, 52, 56, 59, 64}); }

void SoundForAWhile(std::int16_t program, const std::vector<std::int16_t>& pitches) {
    constexpr std::int16_t Velocity = 90;
    constexpr int Lasts = 1500;  // ms
    if (Sound.Playing) return;
    Playback::MidiChannelOff(0);
    Playback::MidiSetInstrument(0, Core::Settings.OutputBank, program);
    for (const std::int16_t note : pitches) Playback::MidiNoteOn(0, note, Velocity);
    Sound.tmrTestTone = std::make_unique<Playback::ctlHiPreTimer>([] {
        if (!Sound.Playing) Playback::MidiChannelOff(0);
    });
    Sound.tmrTestTone->SetInterval(Lasts);
    Sound.tmrTestTone->SetEnabled(true);
}

void LoadSoundSettings() {
    const SynthesizerSettings usual;
    Sound.DeviceName = Services.Settings->Get(Section, "Device");
    Sound.Synthesizer.SoundFont = Services.Settings->Get(Section, "SoundFont");
    Sound.Synthesizer.Gain = StoredGain(usual.Gain);
    Sound.Synthesizer.Reverb = StoredFlag("Reverb", usual.Reverb);
    Sound.Synthesizer.Chorus = StoredFlag("Chorus", usual.Chorus);
}

void SaveSoundSettings() {
    const auto save = [](std::string_view key, std::string_view value) {
        Services.Settings->Save(Section, key, value);
    };
    save("Device", Sound.DeviceName);
    save("SoundFont", Sound.Synthesizer.SoundFont.string());
    std::string gain = Core::FormatDouble(Sound.Synthesizer.Gain);
    std::ranges::replace(gain, ',', '.');  // the store is the same on every machine
    save("Gain", gain);
    save("Reverb", Sound.Synthesizer.Reverb ? "1" : "0");
    save("Chorus", Sound.Synthesizer.Chorus ? "1" : "0");
}

}  // namespace Quillon::Shell
