// Notes one after the other on channel 0: how a chord, a scale or a tuning is heard.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

namespace Quillon::Library {

struct NoteRun {
    std::vector<int> Pitches;   ///< MIDI numbers; what lies outside 0 to 127 passes in silence
    std::int32_t Pause = 120;   ///< ms from one note to the next
    std::int16_t Program = 24;  ///< General MIDI, from 0
    std::int16_t Velocity = 110;
    bool LetRing = false;  ///< a note sounds on while the next begins
    bool Reverb = false;
    std::int32_t LastRings = 1500;      ///< ms from the last note to silence
    std::function<void(int)> Sounds{};  ///< told the index of each note as it begins, and -1 at the end
};

/// Plays it on the open device, after silencing what was heard before. Does nothing while a song plays.
void PlayRun(NoteRun run);
/// Silences it. `Sounds` is told -1.
void StopRun();
bool IsRunPlaying();

}  // namespace Quillon::Library
