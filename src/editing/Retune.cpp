#include <algorithm>
#include <utility>

#include "core/mod_TabFileManipulation.h"
#include "editing/Fingering.h"
#include "editing/mod_Cursor.h"
#include "editing/mod_Retune.h"

namespace Quillon::Editing {

using Core::Strum;
using Core::Track;

std::optional<UnplayableBeat> Retune(Core::TabFile& file, int track, const Retuning& wanted) {
    const Track& before = file.Tracks[track];
    Track after = before;
    after.Tuning = wanted.Tuning;
    after.Strings = wanted.Strings;
    const bool drums = before.IsDrum;
    const Refingering how{before, after, 0, drums || !wanted.KeepPitches,
                          drums || wanted.OnLostStrings == LostNotes::Remove};
    StringsTo links;
    links.fill(NoString);
    for (int b = 0; b < after.Bars.Count(); ++b) {
        for (int s = 0; s < after.Bars[b].Strums().Count(); ++s) {
            Strum strum = after.Bars[b].Strums()[s];
            if (!Refinger(how, strum, links)) return UnplayableBeat{track, b, s};
            // Bars that keep their frets stay shared with the document's earlier states.
            if (!(strum == after.Bars[b].Strums()[s])) after.Bars.Edit(b).EditStrums()[s] = std::move(strum);
        }
    }
    file.Tracks[track] = std::move(after);
    return {};
}

int NotesOnLostStrings(const Track& track, int strings) {
    int notes = 0;
    for (const Core::Bar& bar : track.Bars) {
        for (const Strum& strum : bar.Strums()) {
            for (int s = std::max(0, strings); s <= LastString(track); ++s)
                notes += strum.Notes[s].Fret.empty() ? 0 : 1;
        }
    }
    return notes;
}

}  // namespace Quillon::Editing
