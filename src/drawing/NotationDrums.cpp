// The percussion staff: which lane a drum sound takes, and the heads on the lanes.
#include <algorithm>
#include <array>

#include "core/mod_Instruments.h"
#include "drawing/NotationParts.h"

namespace Quillon::Drawing {

namespace {

/// Lanes of the drum sounds by their number in the list of sounds, that of no sound first.
constexpr std::array<std::int8_t, 47> Lanes = {-1, 7, 7, 5, 5, 5, 5, 6, 2, 6, 8, 6, 2, 4, 4, 0, 3, 1, 0, 1, 1, 0, 1, 0,
                                               1,  1, 3, 4, 3, 3, 4, 3, 4, 3, 2, 2, 8, 8, 5, 5, 5, 3, 4, 6, 6, 8, 8};

/// Sounds that are written with an "x": side stick, hi-hats, cymbals, tambourine, cowbell.
constexpr std::array<int, 12> CrossSounds = {3, 8, 10, 12, 15, 17, 18, 19, 20, 21, 22, 23};
constexpr int SecondRide = 25, OpenHiHat = 12;

constexpr int LaneOfNoSound = 5;  ///< a letter that plays nothing still shows

int SoundOfNote(const Core::Track& track, int string, const Core::Note& note) {
    for (const Core::PercussionLetter& letter : Core::PercussionLetters()) {
        if (letter.Letter == note.Fret) return track.PercStrings[string].*letter.Sound;
    }
    return 0;
}

bool IsCross(const Core::Track& track, int string, const Core::Note& note) {
    const int sound = SoundOfNote(track, string, note);
    return LaneOfSound(sound) < 0 || sound == SecondRide || std::ranges::find(CrossSounds, sound) != CrossSounds.end();
}

}  // namespace

int LaneOfSound(int sound) {
    return sound >= 0 && sound < static_cast<int>(Lanes.size()) ? Lanes[static_cast<std::size_t>(sound)] : -1;
}

int LaneOfNote(const Core::Track& track, int string, const Core::Note& note) {
    const int lane = LaneOfSound(SoundOfNote(track, string, note));
    return lane >= 0 ? lane : LaneOfNoSound;
}

int DrumKey(const Core::Track& track, int string, const Core::Note& note) {
    constexpr int beforeFirst = 34;  // the list of sounds begins with the lowest key of the drums, 35
    constexpr int snare = 38;
    const int sound = SoundOfNote(track, string, note);
    return sound > 0 ? beforeFirst + sound : snare;
}

std::vector<Head> DrumHeads(const Core::Track& track, const Core::Strum& strum) {
    constexpr int anchor = 7, aside = 6;
    std::vector<Head> heads;
    std::vector<StaffNote> placed;
    for (int string = 0; string < std::clamp<int>(track.Strings, 0, Core::StringCount); ++string) {
        const Core::Note& note = strum.Notes[string];
        if (note.Fret.empty()) continue;
        const int lane = LaneOfNote(track, string, note);
        StaffNote head{string};
        head.Step = DrumLaneStep(lane);
        head.Cross = IsCross(track, string, note);
        const auto isThere = [&](const StaffNote& other) {
            return other.Step == head.Step && other.Cross == head.Cross;
        };
        if (std::ranges::any_of(placed, isThere)) continue;
        const auto isBeside = [&](const StaffNote& other) {
            return other.X == 0 && std::abs(other.Step - head.Step) <= 1;
        };
        if (std::ranges::any_of(placed, isBeside)) head.X = aside;
        placed.push_back(head);
        heads.push_back({string, DrumLaneY(lane) - anchor, static_cast<int>(head.X)});
    }
    return heads;
}

void PlaceDrumHeads(StaffBar& bar) {
    if (!bar.Place.TakesHigh) return;
    for (int s = 0; s < bar.Count(); ++s) {
        StaffColumn& column = bar.Column(s);
        for (const Head& head : DrumHeads(bar.Track, bar.Strum(s))) {
            const Core::Note& note = bar.Strum(s).Notes[head.String];
            StaffNote placed{head.String};
            placed.Step = DrumLaneStep(LaneOfNote(bar.Track, head.String, note));
            placed.X = column.X + head.DX * column.Scale();
            placed.Y = bar.YOf(placed.Step);
            placed.Cross = IsCross(bar.Track, head.String, note);
            placed.Open = bar.ShowsHands() && SoundOfNote(bar.Track, head.String, note) == OpenHiHat;
            column.Displaced = column.Displaced || head.DX != 0;
            column.Notes.push_back(placed);
        }
    }
}

}  // namespace Quillon::Drawing
