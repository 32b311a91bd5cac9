// Bars cut, copied and pasted, on one track or on all.
//
// What was copied is a value: it outlives its document and can go into another.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "core/mod_TabFileStructure.h"
#include "editing/mod_Selection.h"

namespace Quillon::Editing {

struct CopiedBars {
    struct Part {
        bool IsDrum = false;
        std::vector<Core::Bar> Bars;
    };
    std::vector<Part> Parts;           ///< a part for each track copied
    std::vector<Core::BarInfo> Infos;  ///< as many as each part has bars
    bool AllTracks = false;            ///< copied from all tracks: parts go to tracks of the same numbers

    int BarCount() const { return static_cast<int>(Infos.size()); }
};

/// `track` is an index, or AllTracks.
constexpr int AllTracks = -1;

/// Copies a run of bars; raises "Subscript out of range" for bars that are not there.
CopiedBars CopyBars(const Core::TabFile& file, BarRange bars, int track);
/// Takes out what was copied: bars of all tracks go, the document's last one is emptied; those of one track are
/// emptied, as bars of tracks stand side by side.
void CutBars(Core::TabFile& file, BarRange bars, int track);

enum class PasteFault : std::uint8_t {
    None,
    TooFewTracks,    ///< copied from more tracks than the document has
    DrumsAndStrings  ///< drums onto a track of strings, or the other way round
};
PasteFault CanPaste(const Core::TabFile& file, const CopiedBars& copied, int track);

enum class PasteMode : std::uint8_t { Insert, Overwrite };

/// Puts the bars before a bar, or over what stands from there on, growing the document at its end; `times` times in a
/// row. Bars of one track go to `track`; inserted, they are empty on the others and take the copied time signatures
/// but no signs; written over, they leave signatures and signs alone. Bars of all tracks bring both.
/// Raises "Overflow" past 32767 bars, before anything has changed.
void PasteBars(Core::TabFile& file, const CopiedBars& copied, int track, int bar, PasteMode mode, int times);

struct BarClipboardState {
    std::optional<CopiedBars> Copied;
    bool PastesOver = false;  ///< how they were pasted last: over what stood there
};
extern BarClipboardState BarClipboard;

}  // namespace Quillon::Editing
