// The instruments of General MIDI, to choose one for the current track.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "shell/DialogModel.h"

namespace Quillon::Shell {

struct InstrumentModel : DialogModel {
    std::int16_t Program = 24;  ///< from 0; another number than 0 to 127, which a file may hold, is on no list

    static constexpr int FamilyCount = 16;  ///< of eight programs each
    void Load();
    static int FamilyOf(int program);
    static std::string FamilyName(int family);
    /// Programs whose name, number or family holds every word of a text, in any case of letters.
    static std::vector<int> Matching(const std::string& words);
    std::string_view Validate() const;
    bool Apply() const;
};

/// A chord of the instrument for a second and a half; of basses their lowest notes.
void ListenToInstrument(int program);

}  // namespace Quillon::Shell
