#include "shell/CursorText.h"

#include <cmath>

#include "core/mod_Common.h"
#include "core/mod_Instruments.h"
#include "core/mod_Language.h"
#include "core/mod_TabFileManipulation.h"
#include "core/mod_TabFileStructure.h"
#include "editing/mod_BarsAndTracks.h"
#include "shell/CursorState.h"

namespace Quillon::Shell {

using Core::LanguageText;
using Core::Open;

namespace {

std::string LengthText(const Core::Strum& strum) {
    static constexpr const char* Keys[] = {"str_Length0", "str_Length1", "str_Length2", "str_Length3",
                                           "str_Length4", "str_Length5", "str_Length6"};
    if (strum.Length < 0 || strum.Length > 6) return "";
    std::string text = LanguageText(Keys[strum.Length]);
    if (strum.Dotted) text = LanguageText("str_LengthDotted", {text});
    if (strum.HasTuplet) text = LanguageText("str_LengthInTuplet", {text});
    return text;
}

std::string FullnessText() {
    static constexpr const char* Keys[] = {"str_BarIsUnder", "str_BarIsFull", "str_BarIsOverfull"};
    return LanguageText(Keys[static_cast<int>(Editing::BarFullness(Open.CurTrack, Open.CurBar))]);
}

/// What a letter plays on the cursor's string: on most strings most letters are silent, which nothing else tells.
std::string DrumText(const Core::Track& track, const std::string& fret) {
    std::string text = LanguageText("str_CursorSound", {fret});
    for (const Core::PercussionLetter& each : Core::PercussionLetters()) {
        if (fret != each.Letter) continue;
        const std::int16_t sound = track.PercStrings[Open.CurString].*each.Sound;
        const auto names = Core::DrumSoundNames();
        if (sound == 0) return text + " (" + LanguageText("str_CursorSilent") + ")";
        if (sound > 0 && sound < static_cast<int>(names.size())) {
            return text + " (" + names[static_cast<std::size_t>(sound)] + ")";
        }
    }
    return text;
}

}  // namespace

double BeatOf(int track, int bar, int strum) {
    const auto& strums = Core::ReadBar(track, bar).Strums();
    double elapsed = 0;
    for (int before = 0; before < strum; ++before) elapsed += Core::StrumLength(strums[before]);
    const auto bottom = Open.TabFile.BarInfos[bar].TimeSigBottom;
    const double beatLength = bottom > 0 ? 64.0 / bottom : 16;
    return std::round((elapsed / beatLength + 1) * 100) / 100;
}

std::string PlaceText() {
    if (!InScore()) return "";
    const int bars = Core::NumberOfBars(Open.CurTrack) + 1;
    return LanguageText("str_CursorPlace",
                        {std::to_string(Open.CurBar + 1), std::to_string(bars),
                         Core::FormatDouble(BeatOf(Open.CurTrack, Open.CurBar, Open.CurStrum)), FullnessText()});
}

std::string NoteText() {
    if (!InScore()) return "";
    const Core::Strum& strum = Core::ReadStrum(Open.CurTrack, Open.CurBar, Open.CurStrum);
    const Core::Track& track = Open.TabFile.Tracks[Open.CurTrack];
    std::string where;
    std::string what = LanguageText("str_CursorNoNote");
    if (Open.InputMode == Core::TabInput || track.IsDrum) {
        if (Open.CurString < 0 || Open.CurString >= Core::StringCount) return LengthText(strum);
        where = LanguageText("str_CursorString", {std::to_string(Open.CurString + 1)});
        const std::string& fret = strum.Notes[Open.CurString].Fret;
        if (!fret.empty()) what = track.IsDrum ? DrumText(track, fret) : LanguageText("str_CursorFret", {fret});
    } else {
        if (Open.CurPitch < 0 || Open.CurPitch > 127) return LengthText(strum);
        where = Core::NoteName(Open.CurPitch);
        for (int string = 0; string < Core::StringCount; ++string) {
            const std::string& fret = strum.Notes[string].Fret;
            if (fret.empty() || fret.find_first_not_of("0123456789") != std::string::npos || fret.size() > 3) continue;
            if (Core::OpenPitch(track, string) + std::stoi(fret) == Open.CurPitch) {
                what = LanguageText("str_CursorFret", {fret});
            }
        }
    }
    std::string text = where + ", " + what;
    const std::string length = LengthText(strum);
    if (!length.empty()) text += ", " + length;
    return text;
}

std::string CursorText() {
    if (!InScore()) return "";
    std::string text;
    const std::string track =
        LanguageText("str_CursorTrack", {std::to_string(Open.CurTrack + 1), Open.TabFile.Tracks[Open.CurTrack].Name});
    for (const std::string& part : {NoteText(), PlaceText(), track}) {
        if (part.empty()) continue;
        if (!text.empty()) text += ", ";
        text += part;
    }
    return text;
}

}  // namespace Quillon::Shell
