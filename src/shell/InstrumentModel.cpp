#include "shell/InstrumentModel.h"

#include <algorithm>
#include <array>
#include <sstream>

#include "core/mod_Common.h"
#include "core/mod_Instruments.h"
#include "core/mod_Language.h"
#include "core/mod_TabFileStructure.h"
#include "shell/mod_Shell.h"
#include "shell/mod_Sound.h"

namespace Quillon::Shell {

using Core::Open;

namespace {

constexpr int FamilySize = 8;
constexpr int Basses = 4;

std::string NameOf(int program) { return Core::InstrumentNames()[static_cast<std::size_t>(program)]; }
bool IsOnList(int program) { return program >= 0 && program < static_cast<int>(Core::InstrumentNames().size()); }

}  // namespace

void InstrumentModel::Load() { Program = Open.TabFile.Tracks[Open.CurTrack].Instrument; }

int InstrumentModel::FamilyOf(int program) { return program / FamilySize; }

std::string InstrumentModel::FamilyName(int family) {
    static constexpr std::array<std::string_view, FamilyCount> keys = {
        "str_Family0",  "str_Family1",  "str_Family2",  "str_Family3", "str_Family4",  "str_Family5",
        "str_Family6",  "str_Family7",  "str_Family8",  "str_Family9", "str_Family10", "str_Family11",
        "str_Family12", "str_Family13", "str_Family14", "str_Family15"};
    return Core::LanguageText(keys.at(static_cast<std::size_t>(family)));
}

std::vector<int> InstrumentModel::Matching(const std::string& words) {
    std::vector<int> programs;
    for (int program = 0; IsOnList(program); ++program) {
        const std::string all =
            Core::LowerAscii(std::to_string(program + 1) + " " + NameOf(program) + " " + FamilyName(FamilyOf(program)));
        std::istringstream each(Core::LowerAscii(words));
        std::string word;
        bool holds = true;
        while (each >> word) holds = holds && all.find(word) != std::string::npos;
        if (holds) programs.push_back(program);
    }
    return programs;
}

std::string_view InstrumentModel::Validate() const {
    const bool unchanged = Program == Open.TabFile.Tracks[Open.CurTrack].Instrument;
    return unchanged || IsOnList(Program) ? "" : "str_InstrumentOutOfRange";
}

bool InstrumentModel::Apply() const {
    Core::Track& track = Open.TabFile.Tracks[Open.CurTrack];
    // The name that a person gave to the instrument stays with it.
    if (Program == track.Instrument) return false;
    track.Instrument = Program;
    track.InstrumentName = NameOf(Program);
    MarkEdited();
    return true;
}

void ListenToInstrument(int program) {
    if (!IsOnList(program)) return;
    const bool bass = InstrumentModel::FamilyOf(program) == Basses;
    SoundForAWhile(static_cast<std::int16_t>(program),
                   bass ? std::vector<std::int16_t>{28, 40} : std::vector<std::int16_t>{52, 59, 64, 68, 71, 76});
}

}  // namespace Quillon::Shell
