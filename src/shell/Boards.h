// What the fretboard and the piano show, and what pointing at them does.
//
// Both show the strum at the cursor; while a song plays and is followed, what sounds on the current track, as the
// player reaches it: also on a track that is not heard, which is there to be played along with. Pitches are those
// written, before the track's octave signs.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/mod_TabFileStructure.h"
#include "playback/PlayScore.h"
#include "shell/BoardGeometry.h"

namespace Quillon::Shell {

struct BoardNote {
    enum class Kind : std::uint8_t {
        Plain,
        Ghost,
        Dead,     ///< without a pitch
        Chord,    ///< of the strum's chord symbol, on a string without a note
        Ringing,  ///< tied or let ring by an earlier strum
        Drum
    };
    int String = 0;
    int Fret = 0;   ///< 0 for a dead note and a drum
    int Pitch = 0;  ///< MIDI note number
    Kind Is = Kind::Plain;
    std::string Text;  ///< as the tab has it
    bool operator==(const BoardNote&) const = default;
};

/// The notes of a strum, those of its chord symbol where the strings have none.
std::vector<BoardNote> NotesOfStrum(const Core::Track& track, const Core::Strum& strum);

/// What sounds on the strings of a track, strum by strum as the player goes. Notes that the player keeps on, being tied
/// or let ring, stay. Those of a track whose notes all ring are shown by their strum alone, as they fade away.
class SoundingStrings {
public:
    /// `lastChord` is what a slash repeats when the strum before is one too.
    void Reach(const Core::TabFile& file, const Playback::StrumPlace& place, const Core::Strum& lastChord);
    std::vector<BoardNote> Notes() const;

private:
    std::array<std::optional<BoardNote>, Core::StringCount> strings;
};

/// What both boards show now.
std::vector<BoardNote> BoardNow();
/// The same for a screen reader: "String 2: D4, fret 3. String 3: dead."
std::string BoardText();
/// "D4, string 2, fret 3": what the fretboard says of a cell.
std::string CellText(const BoardCell& cell);
/// "Acoustic Snare, o": what a cell of the drum map plays, and its letter.
std::string DrumText(const DrumGeometry::Cell& cell);
/// "D4", or on a drum track the sounds that the key plays.
std::string KeyText(int pitch);

/// The mouse on the fretboard, or Enter and Del at its cell: enters or takes the fret; clears the string.
void picFretboard_MouseDown(const BoardCell& cell);
void picFretboard_RightMouseDown(int string);
/// On a drum track: enters or takes a letter.
void picFretboard_DrumMouseDown(const DrumGeometry::Cell& cell);
void picPiano_MouseDown(int pitch);

void mnuViewFretboard_Click();
void mnuViewFretboardNames_Click();
void mnuViewPiano_Click();
void mnuTrackMute_Click();
void mnuTrackSolo_Click();
/// Clears the beat's notes and goes to the next.
void mnuChordRest_Click();

/// Mute and solo by track: a bad index does nothing.
void ToggleMute(int track);
void ToggleSolo(int track);
constexpr int MostTrackVolume = 127;
/// Sets a track's volume, 0 to MostTrackVolume. Asks for the password of a locked file; strums to come sound with it.
void SetTrackVolume(int track, int volume);

}  // namespace Quillon::Shell
