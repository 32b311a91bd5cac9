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
constexpr int SecondRide = 25;

constexpr int LaneOfNoSound = 5;  ///< a letter that plays nothing still shows

int SoundOfNote(const Core::Track& track, int string, const Core::Note& note) {
    for (const Core::PercussionLetter& letter : Core::PercussionLetters()) {
        if (letter.Letter == note.Fret) return track.PercStrings[string].*letter.Sound;
    }
    return 0;
}

}  // namespace

int LaneOfSound(int sound) {
    return sound >= 0 && sound < static_cast<int>(Lanes.size()) ? Lanes[static_cast<std::size_t>(sound)] : -1;
}

int LaneOfNote(const Core::Track& track, int string, const Core::Note& note) {
    const int lane = LaneOfSound(SoundOfNote(track, string, note));
    return lane >= 0 ? lane : LaneOfNoSound;
}

void PlaceDrumHeads(StaffBar& bar) {
    for (int s = 0; s < bar.Count(); ++s) {
        StaffColumn& column = bar.Column(s);
        if (!bar.Place.TakesHigh) continue;
        for (int string = 0; string < std::clamp<int>(bar.Track.Strings, 0, Core::StringCount); ++string) {
            const Core::Note& note = bar.Strum(s).Notes[string];
            if (note.Fret.empty()) continue;
            StaffNote placed{string};
            placed.Step = DrumLaneStep(LaneOfNote(bar.Track, string, note));
            placed.X = column.X;
            placed.Y = bar.YOf(placed.Step);
            const int sound = SoundOfNote(bar.Track, string, note);
            placed.Cross = LaneOfSound(sound) < 0 || sound == SecondRide ||
                           std::find(CrossSounds.begin(), CrossSounds.end(), sound) != CrossSounds.end();
            // Two sounds of one lane share a head unless they are written differently.
            const bool there = std::any_of(column.Notes.begin(), column.Notes.end(), [&](const StaffNote& other) {
                return other.Step == placed.Step && other.Cross == placed.Cross;
            });
            if (there) continue;
            const bool beside = std::any_of(column.Notes.begin(), column.Notes.end(), [&](const StaffNote& other) {
                return other.X == column.X && std::abs(other.Step - placed.Step) <= 1;
            });
            if (beside) {
                placed.X += 6 * column.Scale();
                column.Displaced = true;
            }
            column.Notes.push_back(placed);
        }
    }
}

}  // namespace Quillon::Drawing
