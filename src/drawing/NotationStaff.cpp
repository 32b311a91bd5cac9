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

/// How wide a key's signs stand. Those that find no room at their full size are small ones.
struct SignWidths {
    double Width, Comfortable, Least;  ///< of a sign; from one to the next
    bool Small;
};
/// Full ones never stand nearer than they are wide; small ones may, as they stand above and below each other.
constexpr SignWidths FullSigns{5.6, 5.6, 5.6, false}, SmallSigns{3.9, 3.2, 2.2, true};

double WidthOf(const SignWidths& signs, int count, double step) { return signs.Width + step * (count - 1); }

constexpr double Breath = 2.5;  ///< between a key and the figures of the time, where there is room

/// Signs from `left` to `right`, as near each other as they must; up to `breath` stays free at the right.
void DrawKeySigns(Picture& picture, int count, Accidental sign, Clef clef, int top, double left, double right,
                  double breath = 0) {
    constexpr double widest = 5.8;
    const int signs = std::abs(count);
    const SignWidths& widths = WidthOf(FullSigns, signs, FullSigns.Least) <= right - left ? FullSigns : SmallSigns;
    right -= std::clamp(right - left - WidthOf(widths, signs, widths.Comfortable), 0.0, breath);
    const double step = signs > 1 ? std::min(widest, (right - left - widths.Width) / (signs - 1)) : 0;
    // What is left over stands between the clef and the first sign.
    const double first = left + widths.Width / 2 + std::min(2.0, (right - left - WidthOf(widths, signs, step)) / 2);
    const auto& steps = count > 0 ? SharpSteps : FlatSteps;
    for (int i = 0; i < signs; ++i) {
        const int place = steps[static_cast<std::size_t>(i)] - (clef == Clef::Bass ? BassDrop : 0);
        picture.Stamp(AccidentalShape(sign, widths.Small), first + step * i, top + StaffLineSpan - HalfStep * place);
    }
}

/// An octave's shift of the whole track, above or below its clef.
void DrawOctaveFigure(Picture& picture, const Core::Track& track, Clef clef, double x, int top) {
    if (track.OctaveUp == track.OctaveDown) return;
    const Font font{.Name = "Times New Roman", .Size = 7, .Bold = true, .Italic = true};
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
        // Drums stand on lanes where the track shows a treble staff; on a bass staff alone they are notes like others.
        staves.push_back({track, both && track.IsDrum ? clef : Clef::Bass, top, !both, !both || lowest, !both});
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

namespace {

constexpr double TimeRight = 40, Gap = 1;

/// From the bar's left edge, behind the lines of a repeat.
double ClefLeft(const BarContext& bar) { return bar.Info().RepeatOpen ? 6.5 : 2.5; }

double ClefWidth(Clef clef) {
    static constexpr std::array<double, 3> widths = {13.2, 15.6, 12};
    return widths[static_cast<std::size_t>(clef)];
}

/// The signs of a bar's signature: its key's, or naturals that take the key before back.
struct KeySignature {
    int Count = 0;  ///< below 0 on the places of flats
    Accidental Sign = Accidental::None;
};
KeySignature SignatureOf(const StaffPlace& place, int bar) {
    if (place.Track.IsDrum || bar > place.Track.Bars.UpperBound()) return {};
    const int own = KeySigns(place.Track.Bars[bar].Key);
    if (own != 0) return {own, own > 0 ? Accidental::Sharp : Accidental::Flat};
    return {bar > 0 ? KeySigns(place.Track.Bars[bar - 1].Key) : 0, Accidental::Natural};
}

/// From the clef to the figures of the time signature where they usually stand.
double RoomForKey(const BarContext& bar, const StaffPlace& place) {
    return TimeRight - TimeFiguresWidth(bar) - ClefLeft(bar) - ClefWidth(place.Clef) - 2 * Gap;
}

}  // namespace

double TimeFiguresWidth(const BarContext& bar) {
    constexpr double single = 9.5, digit = 6.8;
    const std::size_t digits =
        std::max(std::to_string(bar.Info().TimeSigTop).size(), std::to_string(bar.Info().TimeSigBottom).size());
    return digits == 1 ? single : digit * static_cast<double>(digits);
}

namespace {

/// From what stands before the first column of the staves to the middle of its heads.
double BeforeFirstNote(const BarContext& bar, const std::vector<StaffPlace>& staves) {
    double most = 0;
    for (const StaffPlace& place : staves) {
        if (bar.Bar > place.Track.Bars.UpperBound()) continue;
        StaffBar staff(bar, place);
        PlaceAccidentals(staff);
        if (staff.All() > 0 && !staff.Silent) most = std::max(most, staff.Column(0).X - staff.Column(0).Left);
    }
    return most;
}

}  // namespace

double SignatureOverhang(const BarContext& bar) {
    // Beside a tab, whose first figure does not move, signs at their full size are few; so they are before the dots of
    // a repeat. A staff alone has the first column make room for all of them.
    constexpr double usual = 5, least = 6, onStaff = 30, beforeDots = 10, besideTab = 9;
    constexpr double behindFigures = 8;  // from them to the first column where they usually stand
    const Core::BarPlace& placed = bar.ItsBar().Place;
    const std::vector<StaffPlace> staves = StaffPlacesOf(bar);
    const auto keySigns = [&](const StaffPlace& place) { return std::abs(SignatureOf(place, bar.Bar).Count); };
    if (!placed.ShowTimeSig || std::ranges::all_of(staves, [&](auto& place) { return keySigns(place) == 0; })) return 0;
    const bool tab = bar.ItsTrack().ShowTab, alone = !tab && !bar.Info().RepeatOpen;
    // No further than the first column can step aside, with what stands before its heads.
    const auto& columns = placed.StrumX;
    const double next = columns.Count() > 1 ? columns[1] - columns[0] : bar.Width - BarStartOffset(bar.ItsBar());
    double most = std::max(0.0, next / 2);
    if (most > least) most = std::max(least, most + behindFigures - BeforeFirstNote(bar, staves));
    most = std::min(most, tab ? besideTab : alone ? onStaff : beforeDots);
    double missing = 0;
    for (const StaffPlace& place : staves) {
        const int signs = keySigns(place);
        if (signs == 0) continue;
        const double room = RoomForKey(bar, place);
        const bool full = WidthOf(FullSigns, signs, FullSigns.Least) <= room + (alone ? most : usual);
        const SignWidths& widths = full ? FullSigns : SmallSigns;
        const double wanted = WidthOf(widths, signs, widths.Comfortable) + (signs > 1 ? Breath : 0);
        missing = std::max(missing, std::min(wanted - room, most));
    }
    return missing;
}

void DrawSignatures(Picture& picture, const BarContext& bar, const StaffPlace& place) {
    picture.SetColor(bar.File.NoteFontColor);
    picture.Stamp(ClefShape(place.Clef), bar.X + ClefLeft(bar), place.Top);
    DrawOctaveFigure(picture, place.Track, place.Clef, bar.X + ClefLeft(bar), place.Top);
    const KeySignature key = SignatureOf(place, bar.Bar);
    if (key.Count == 0) return;
    const double left = bar.X + ClefLeft(bar) + ClefWidth(place.Clef) + Gap;
    const double room = std::max(SmallSigns.Width, RoomForKey(bar, place) + SignatureOverhang(bar));
    DrawKeySigns(picture, key.Count, key.Sign, place.Clef, place.Top, left, left + room, Breath);
}

double RowHeadWidth(const BarContext& bar) {
    constexpr double letters = 18, edge = 2, clearOfNumber = 6, signStep = 5.7;
    const bool changes = bar.ItsBar().Place.ShowTimeSig;
    if (bar.Look.RowHeadRoom <= 0 || changes || TabBar(bar).Beside(-1)) return 0;
    double clefs = bar.ItsTrack().ShowTab ? letters : 0, keys = 0;
    for (const StaffPlace& place : StaffPlacesOf(bar)) {
        clefs = std::max(clefs, edge + ClefWidth(place.Clef) + clearOfNumber);
        const int signs = std::abs(SignatureOf(place, bar.Bar).Count);
        if (place.Track.Bars.UpperBound() < bar.Bar || KeySigns(place.Track.Bars[bar.Bar].Key) == 0) continue;
        keys = std::max(keys, WidthOf(FullSigns, signs, signStep) + Gap);
    }
    if (clefs + keys <= bar.Look.RowHeadRoom) return clefs + keys;
    return clefs <= bar.Look.RowHeadRoom ? clefs : 0;
}

void DrawRowHead(Picture& picture, const BarContext& bar, const StaffPlace& place) {
    constexpr double edge = 2, clearOfNumber = 6;
    const double width = RowHeadWidth(bar), left = bar.X - width + edge;
    picture.SetColor(bar.File.NoteFontColor);
    picture.Stamp(ClefShape(place.Clef), left, place.Top);
    DrawOctaveFigure(picture, place.Track, place.Clef, left, place.Top);
    const double behind = left + ClefWidth(place.Clef) + Gap, right = bar.X - clearOfNumber;
    const KeySignature key = SignatureOf(place, bar.Bar);
    if (key.Count == 0 || key.Sign == Accidental::Natural || right - behind < SmallSigns.Width) return;
    DrawKeySigns(picture, key.Count, key.Sign, place.Clef, place.Top, behind, right);
}

}  // namespace Quillon::Drawing
