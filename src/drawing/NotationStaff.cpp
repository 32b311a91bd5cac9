// The staves of a row, their clefs and key signatures.
#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>

#include "drawing/NotationParts.h"
#include "drawing/mod_PageLayout.h"

namespace Quillon::Drawing {

namespace {

constexpr int LowerStaff = 123;  ///< from a treble staff to the bass staff of the same row

/// Half steps above the treble staff's bottom line, in the order in which a key gathers its signs.
constexpr std::array<int, 7> SharpSteps = {8, 5, 9, 6, 3, 7, 4};
constexpr std::array<int, 7> FlatSteps = {4, 7, 3, 6, 2, 5, 1};
constexpr int BassDrop = 2;  ///< of the same sign on the bass staff

Clef OwnClef(const Core::Track& track) {
    if (track.IsDrum) return Clef::Percussion;
    return track.ShowBass && !track.ShowTreble ? Clef::Bass : Clef::Treble;
}

/// Signs from `left` to `right`, as near each other as they must.
void DrawKeySigns(Picture& picture, int count, Accidental sign, Clef clef, int top, double left, double right) {
    constexpr double width = 5.4, widest = 5.6;
    const int signs = std::abs(count);
    const double step = signs > 1 ? std::min(widest, (right - left - width) / (signs - 1)) : 0;
    // What is left over stands between the clef and the first sign.
    const double first = left + width / 2 + std::min(2.0, (right - left - width - step * (signs - 1)) / 2);
    const auto& steps = count > 0 ? SharpSteps : FlatSteps;
    for (int i = 0; i < signs; ++i) {
        const int place = steps[static_cast<std::size_t>(i)] - (clef == Clef::Bass ? BassDrop : 0);
        picture.Stamp(AccidentalShape(sign), first + step * i, top + StaffLineSpan - HalfStep * place);
    }
}

/// An octave's shift of the whole track, above or below its clef.
void DrawOctaveFigure(Picture& picture, const Core::Track& track, Clef clef, double x, int top) {
    if (track.OctaveUp == track.OctaveDown) return;
    const Font font{.Name = "Times New Roman", .Size = 6, .Bold = true, .Italic = true};
    const bool treble = clef == Clef::Treble;
    const double above = treble ? -9 : -3, below = treble ? 45 : 33;
    Print(picture, font, x + (treble ? 8 : 6), top + (track.OctaveUp ? above : below), "8", Anchor::Center);
}

}  // namespace

std::vector<StaffPlace> StaffPlacesOf(const BarContext& bar) {
    const Core::Track& track = bar.ItsTrack();
    std::vector<StaffPlace> staves;
    const bool both = track.ShowTreble && track.ShowBass;
    const Clef clef = OwnClef(track);
    if (track.ShowTreble) staves.push_back({track, clef, bar.Y, true, !both || track.IsDrum});
    if (track.ShowBass) {
        const int top = bar.Y + (both ? LowerStaff : 0);
        const bool lowest = both && !track.IsDrum;
        staves.push_back({track, track.IsDrum ? clef : Clef::Bass, top, !both, !both || lowest, !both});
    }
    if (ShowsStaffOfOther(bar.File, track)) {
        const Core::Track& other = bar.File.Tracks[track.LyricsTrack];
        staves.push_back({other, OwnClef(other), bar.Y + RowHeight(track) - StaffHeadroom, true, true, true, true});
    }
    return staves;
}

int KeySigns(std::int32_t key) {
    if (key >= 1 && key <= 8) return key - 1;
    return KeyUsesFlats(key) ? 8 - key : 0;
}

int KeyAlteration(std::int32_t key, int step, Clef clef) {
    const int signs = KeySigns(key);
    const auto& steps = signs > 0 ? SharpSteps : FlatSteps;
    const int onTreble = step + (clef == Clef::Bass ? BassDrop : 0);
    for (int i = 0; i < std::abs(signs); ++i) {
        if ((onTreble - steps[static_cast<std::size_t>(i)]) % 7 == 0) return signs > 0 ? 1 : -1;
    }
    return 0;
}

void DrawSignatures(Picture& picture, const BarContext& bar, const StaffPlace& place) {
    constexpr double clefLeft = 2, timeRight = 40, digit = 8.5, gap = 1;
    static constexpr std::array<double, 3> clefWidths = {13, 15.5, 12};
    picture.SetColor(bar.File.NoteFontColor);
    picture.Stamp(ClefShape(place.Clef), bar.X + clefLeft, place.Top);
    DrawOctaveFigure(picture, place.Track, place.Clef, bar.X + clefLeft, place.Top);
    if (place.Clef == Clef::Percussion) return;

    const int bars = place.Track.Bars.UpperBound();
    if (bar.Bar > bars) return;
    int signs = KeySigns(place.Track.Bars[bar.Bar].Key);
    Accidental sign = signs > 0 ? Accidental::Sharp : Accidental::Flat;
    if (signs == 0 && bar.Bar > 0) {  // the key before is taken back
        signs = KeySigns(place.Track.Bars[bar.Bar - 1].Key);
        sign = Accidental::Natural;
    }
    const std::size_t digits =
        std::max(std::to_string(bar.Info().TimeSigTop).size(), std::to_string(bar.Info().TimeSigBottom).size());
    const double left = bar.X + clefLeft + clefWidths[static_cast<std::size_t>(place.Clef)] + gap;
    const double right = bar.X + timeRight - digit * static_cast<double>(digits) - gap;
    DrawKeySigns(picture, signs, sign, place.Clef, place.Top, left, std::max(right, left + 6));
}

}  // namespace Quillon::Drawing
