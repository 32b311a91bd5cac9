#include "shell/BoardGeometry.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/mod_Instruments.h"
#include "core/mod_TabFileManipulation.h"
#include "editing/mod_Cursor.h"
#include "editing/mod_NoteEntry.h"
#include "playback/MIDI_CMD.h"

namespace Quillon::Shell {

using Core::Track;

namespace {

constexpr double Margin = 6;
/// The narrowest fret that can still be pointed at.
constexpr double LeastFret = 14;
constexpr double OpenColumn = 42;   ///< the names of the open strings, and the notes on them
constexpr double NumberBand = 16;   ///< below the neck
constexpr double MostGap = 30;      ///< from string to string
constexpr double EdgeOfNeck = 0.6;  ///< of the gap, beyond the outer strings

/// What is left of a string, stopped at a fret.
double Stopped(int fret) { return std::exp2(-fret / 12.0); }

}  // namespace

FretboardGeometry::FretboardGeometry(const Track& track, int scroll, double width, double height)
    : strings(Editing::LastString(track) + 1), capo(std::clamp<int>(track.Capo, 0, 24)) {
    nutX = OpenColumn;
    right = std::max(nutX + LeastFret, width - Margin);
    const double neck = right - nutX;
    const int all = Editing::HighestFret + capo;
    for (count = std::min(MostInView, all); count > 1; --count) {
        const double last = (Stopped(count - 1) - Stopped(count)) / (1 - Stopped(count)) * neck;
        if (last >= LeastFret) break;
    }
    mostScroll = all - count;
    first = 1 + std::clamp(scroll, 0, mostScroll);
    const double room = std::max(1.0, height - 2 * Margin - NumberBand);
    gap = std::min(MostGap, room / (strings - 1 + 2 * EdgeOfNeck));
    const double neckHeight = gap * (strings - 1 + 2 * EdgeOfNeck);
    top = Margin + (room - neckHeight) / 2;
    bottom = top + neckHeight;
}

bool FretboardGeometry::Shows(int fret) const { return fret == 0 || (fret + capo >= first && fret + capo <= Last()); }

int FretboardGeometry::ScrollTo(int fret) const {
    const int neckFret = fret + capo;
    int scroll = first - 1;
    if (fret == 0) return scroll;
    if (neckFret < first) scroll = neckFret - 1;
    if (neckFret > Last()) scroll = neckFret - count;
    return std::clamp(scroll, 0, mostScroll);
}

double FretboardGeometry::WireX(int neckFret) const {
    const double begin = Stopped(first - 1);
    return nutX + (begin - Stopped(neckFret)) / (begin - Stopped(Last())) * (right - nutX);
}

double FretboardGeometry::NoteX(int fret) const {
    const int neckFret = fret + capo;
    if (neckFret < first) return nutX - 13;
    return (WireX(neckFret - 1) + WireX(neckFret)) / 2;
}

double FretboardGeometry::StringY(int string) const { return top + gap * (EdgeOfNeck + string); }

std::optional<BoardCell> FretboardGeometry::At(double x, double y) const {
    if (x < 0 || x > right || y < top || y > bottom) return {};
    const int string = std::clamp(static_cast<int>(std::floor((y - top) / gap - EdgeOfNeck + 0.5)), 0, strings - 1);
    if (x < nutX) return BoardCell{string, 0};
    for (int neckFret = first; neckFret <= Last(); ++neckFret) {
        if (x > WireX(neckFret)) continue;
        if (neckFret < capo) return {};  // behind the capo nothing sounds
        return BoardCell{string, neckFret - capo};
    }
    return {};
}

// The piano ----------------------------------------------------------------------------------------------------------

namespace {

constexpr double LeastWhite = 11;  ///< pixels of a white key, before keys out of reach are left out
constexpr double BlackWidth = 0.6;
constexpr double BlackHeight = 0.62;

bool IsBlack(int pitch) {
    constexpr std::array<bool, 12> blacks = {false, true,  false, true,  false, false,
                                             true,  false, true,  false, true,  false};
    return blacks[static_cast<std::size_t>(pitch % 12)];
}

int WhiteKeys(int lowest, int highest) {
    int count = 0;
    for (int pitch = lowest; pitch <= highest; ++pitch) count += IsBlack(pitch) ? 0 : 1;
    return count;
}

/// The octaves, from C to B, that hold what the track reaches.
void CutToReach(const Track& track, int& lowest, int& highest) {
    Editing::PitchRange reach = Editing::PitchesInReach(track);
    if (track.IsDrum) {
        reach = {Playback::DrumPitchBase + 1,
                 Playback::DrumPitchBase + static_cast<int>(Core::DrumSoundNames().size()) - 1};
    }
    const int from = reach.Lowest / 12 * 12;
    const int to = reach.Highest / 12 * 12 + 11;
    if (from >= highest || to <= lowest || reach.Lowest < 0) return;
    lowest = std::max(lowest, from);
    highest = std::min(highest, to);
}

}  // namespace

PianoGeometry::PianoGeometry(const Track& track, double width, double height)
    : lowest(LowestKey), highest(HighestKey), bottom(height - KeyTop) {
    const double room = std::max(1.0, width - 2 * Margin);
    if (room / WhiteKeys(lowest, highest) < LeastWhite) CutToReach(track, lowest, highest);
    const double white = room / WhiteKeys(lowest, highest);
    const double tall = std::max(1.0, height - 2 * KeyTop);
    double x = Margin;
    for (int pitch = lowest; pitch <= highest; ++pitch) {
        if (IsBlack(pitch)) {
            blacks.push_back({pitch, true, x - white * BlackWidth / 2, white * BlackWidth, tall * BlackHeight});
        } else {
            whites.push_back({pitch, false, x, white, tall});
            x += white;
        }
    }
}

const PianoGeometry::Key* PianoGeometry::Find(int pitch) const {
    for (const auto* keys : {&whites, &blacks}) {
        const auto found = std::ranges::find(*keys, pitch, &Key::Pitch);
        if (found != keys->end()) return &*found;
    }
    return nullptr;
}

std::optional<int> PianoGeometry::At(double x, double y) const {
    if (y < KeyTop || y > bottom) return {};
    for (const auto* keys : {&blacks, &whites}) {
        for (const Key& key : *keys) {
            if (x >= key.X && x < key.X + key.Width && y < KeyTop + key.Height) return key.Pitch;
        }
    }
    return {};
}

bool PianoReaches(const Track& track, int pitch) {
    for (int string = 0; string <= Editing::LastString(track); ++string) {
        if (!track.IsDrum) {
            const int fret = pitch - Core::OpenPitch(track, string);
            if (fret >= 0 && fret <= Editing::HighestFret) return true;
            continue;
        }
        for (const Core::PercussionLetter& letter : Core::PercussionLetters()) {
            const int sound = track.PercStrings[string].*letter.Sound;
            if (sound > 0 && sound + Playback::DrumPitchBase == pitch) return true;
        }
    }
    return false;
}

// The drum map -------------------------------------------------------------------------------------------------------

DrumGeometry::DrumGeometry(const Track& track, double width, double height) {
    const int strings = Editing::LastString(track) + 1;
    const int sounds = static_cast<int>(Core::DrumSoundNames().size());
    std::array<std::vector<Cell>, Core::StringCount> rows;
    std::size_t longest = 1;
    for (int string = 0; string < strings; ++string) {
        auto& row = rows[static_cast<std::size_t>(string)];
        int index = 0;
        for (const Core::PercussionLetter& letter : Core::PercussionLetters()) {
            const int sound = track.PercStrings[string].*letter.Sound;
            if (sound > 0 && sound < sounds) row.push_back({string, index, sound});
            ++index;
        }
        longest = std::max(longest, row.size());
    }
    constexpr double Between = 3;
    constexpr double Label = 22;      // the number of the string
    constexpr double MostWide = 170;  // room for every name
    constexpr double MostTall = 34;
    const double wide =
        std::clamp((width - 2 * Margin - Label) / static_cast<double>(longest), 1 + Between, MostWide + Between);
    const double tall = std::clamp((height - 2 * Margin) / strings, 1 + Between, MostTall + Between);
    for (int string = 0; string < strings; ++string) {
        double x = Margin + Label;
        for (Cell cell : rows[static_cast<std::size_t>(string)]) {
            cell.X = x;
            cell.Y = Margin + tall * string;
            cell.Width = wide - Between;
            cell.Height = tall - Between;
            cells.push_back(cell);
            x += wide;
        }
    }
}

const DrumGeometry::Cell* DrumGeometry::At(double x, double y) const {
    const auto found = std::ranges::find_if(cells, [&](const Cell& cell) {
        return x >= cell.X && x < cell.X + cell.Width && y >= cell.Y && y < cell.Y + cell.Height;
    });
    return found == cells.end() ? nullptr : &*found;
}

}  // namespace Quillon::Shell
