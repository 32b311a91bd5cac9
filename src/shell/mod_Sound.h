// Sound as the program runs it: which device plays, how the built-in synthesizer is set, why it is silent, and the
// commands of the Sound menu.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Synthesizer.h"
#include "playback/MIDI_OUT.h"

namespace Quillon::Playback {
class ctlHiPreTimer;
}

namespace Quillon::Shell {

struct SoundState {
    SoundState();
    ~SoundState();
    SoundState(SoundState&&) noexcept;
    SoundState& operator=(SoundState&&) noexcept;

    Playback::DeviceList Devices;     ///< as the list box shows them
    int Position = -1;                ///< of the device in use among them, -1 for none
    std::string OpenError;            ///< why it could not be opened, "" when it could
    std::string DeviceName;           ///< the remembered one, "" before any was chosen
    SynthesizerSettings Synthesizer;  ///< as kept; options being tried out are not in here
    bool ToldSilent = false;          ///< silence and missing devices are told once a run
    bool ToldGone = false;
    bool Playing = false;  ///< from the player's PlayingStarts to its PlayingStopped
    std::unique_ptr<Playback::ctlHiPreTimer> tmrTestTone;
};
extern SoundState Sound;

// Devices ------------------------------------------------------------------------------------------------------------

/// Closes what is open, fills the list of devices, opens the remembered one and gives it its first sound. The device is
/// found by its remembered name, wherever in the list it stands now; without a name, by its position. One that is gone
/// gives way to the mapper, which is told in the status bar; it stays the remembered one.
void LoadMIDI();
/// Fills the list anew and finds the device in use in it.
void FillDevices();
/// Opens the device at a position of the list and remembers it, at once and for good. Outside the list it does nothing.
void lstDevices_Click(int position);
/// Stops playing and closes the device.
void EndSound();

/// Why nothing is heard, as a sentence; "" when all is well, or still being loaded.
std::string WhySilent();
/// What is in use, or why it is silent: a line of the options.
std::string SoundText();
/// Tells silence in the status bar, once a run, as soon as it is certain. Called now and then.
void TellSilence();

/// A chord for a second and a half.
void cmdTestTone_Click();
/// Notes of an instrument, MIDI pitches of a General MIDI program from 0, for as long. Not while a song plays.
void SoundForAWhile(std::int16_t program, const std::vector<std::int16_t>& pitches);

/// From and to the store's section "Sound". What is damaged or out of range has its default.
void LoadSoundSettings();
void SaveSoundSettings();

// Playing ------------------------------------------------------------------------------------------------------------

/// Makes the program what the player shows its playing in.
void WatchPlaying();

/// Where the play marker stands: from just left of a strum, over the whole height of its row. Document pixels.
struct MarkerPlace {
    int X = 0;        ///< left edge, 4 left of the strum's column
    int AnchorY = 0;  ///< the point that tells the strum's place: 20 below the track's offset in the row
    int Top = 0;
    int Width = 0;
    int Height = 0;
    bool operator==(const MarkerPlace&) const = default;
};
/// Nothing when the strum has no place in the view.
std::optional<MarkerPlace> PlayMarkerPlace(int track, int bar, int strum);
/// The place of the strum that the player reached last; nothing when the marker is hidden.
std::optional<MarkerPlace> PlayMarkerNow();

/// A run of selected bars in one row, in document pixels.
struct SelectionBand {
    int X = 0;
    int Y = 0;
    int Width = 0;
    int Height = 0;
    bool operator==(const SelectionBand&) const = default;
};
/// What a translucent band covers of the current track; empty without a selection.
std::vector<SelectionBand> SelectionBands();

/// The bar and beat that sound, and the tempo: "Bar 3, beat 2 - 120 bpm". Nothing while they are those of the call
/// before, so that it may be asked often.
std::optional<std::string> PlayPlaceChanged();

void mnuSoundPlayFromStart_Click();
void mnuSoundPlayFromHere_Click();
void mnuSoundPlayBar_Click();
/// Plays the selected bars, or the current one, round and round.
void mnuSoundLoop_Click();
void mnuSoundStop_Click();
void mnuSoundSpeedTrainer_Click();
void mnuSoundMetronome_Click();
void mnuSoundCountIn_Click();
void mnuSoundFollow_Click();

// The track list -----------------------------------------------------------------------------------------------------

constexpr int MixRowHeight = 20;  ///< pixels
/// Track of a point `y` pixels below the list's top, when it is scrolled by so many rows; -1 for none.
int MixTableTrack(int y, int scroll);
/// A left click: the track becomes the current one, with the cursor at its beginning. While playing, the row that
/// sounds is scrolled into view.
void picMixTable_MouseDown(int y, int scroll);
/// A double or right click: the track's properties, unless it plays.
void picMixTable_Open(int y, int scroll);

}  // namespace Quillon::Shell
