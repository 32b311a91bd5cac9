// A small score for tests of the staves.
#pragma once

#include <initializer_list>
#include <utility>

#include "core/mod_TabFileManipulation.h"
#include "drawing/mod_TabDrawing.h"

namespace Quillon::Testing {

struct Written {
    int Length;
    std::initializer_list<std::pair<int, const char*>> Notes;
    bool Dotted = false;
};

/// One bar that stands alone, its columns 40 pixels apart, and what the staff makes of it.
struct Score {
    Core::TabFile File;

    explicit Score(std::initializer_list<Written> strums, std::int32_t key = 1) {
        Core::Track& track = File.Tracks[0];
        Core::Bar& bar = track.Bars.Edit(0);
        const int count = static_cast<int>(strums.size());
        bar.Key = key;
        bar.EditStrums().Resize(count);
        bar.Place.StrumX.Resize(count);
        bar.Place.BarX = 100;
        bar.Place.BarWidth = static_cast<std::int16_t>(9 + 40 * count);
        int at = 0;
        for (const Written& strum : strums) {
            bar.Place.StrumX[at] = static_cast<std::int16_t>(109 + 40 * at);
            Core::Strum& edited = bar.EditStrums()[at++];
            edited.Length = strum.Length;
            edited.Dotted = strum.Dotted;
            for (const auto& [string, fret] : strum.Notes) edited.Notes.Edit(string).Fret = fret;
        }
    }
    Drawing::BarContext Context() const { return {File, 0, 0, 100, 0, File.Tracks[0].Bars[0].Place.BarWidth}; }
};

}  // namespace Quillon::Testing
