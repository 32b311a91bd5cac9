// The scale finder without its window: notes that a person clicked, or that selected bars hold, and the scales that
// have them, the best first.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/mod_TabFileStructure.h"
#include "library/NeckView.h"
#include "library/mod_Scales.h"

namespace Quillon::Tools {

struct ScaleFinderState {
    Library::PitchClasses Notes{};
    std::optional<int>
        Tonic{};           ///< pitch class that is preferred among equals: the first clicked, or the last bass note
    std::string Source{};  ///< where the notes come from, "" for clicks
    std::vector<Library::FoundScale> Found{};
    bool Sounds = false;  ///< a note that was clicked is heard
    std::function<void()> Changed{};
};
extern ScaleFinderState ScaleFinder;

/// The window comes; goes.
void frmScaleFinder_Load();
void frmScaleFinder_Unload();
/// Finds anew when the folder of the scales is not as it was.
void LookAtFinderFolder();

/// A click on a note: it comes or goes. It is heard.
void ToggleNote(int pitchClass);
/// The same on a place of a neck in standard tuning.
void ToggleNeckPlace(const Library::NeckPlace& place);
void ClearNotes();
/// Takes the notes of the selected bars of the current track, or those of the cursor's bar. False, with the notes as
/// they were, where there are none.
bool TakeBars();
/// Caption of what takes them now: "From Bars 3 to 5".
std::string TakeBarsText();

/// What bars of a track hold: the pitch classes, and the lowest note of the last strum with notes.
struct BarNotes {
    Library::PitchClasses Notes{};
    std::optional<int> Last;
};
BarNotes NotesOfBars(const Core::Track& track, int from, int to);

/// The clicked notes on a neck in standard tuning, whose open strings these are: MIDI pitches, the highest first.
std::vector<Library::NeckDot> FinderDots();
std::vector<int> FinderStrings();

/// "C", and which notes it lacks and has besides: "C#  G", "" for none.
struct FoundRow {
    std::string Name, Key, Lacks, Besides;
};
FoundRow RowOf(const Library::FoundScale& found);
/// How well the best fit: "12 scales hold all of these notes".
std::string FinderStatus();
/// Shows a found scale in the scale manager, whose window comes up.
void OpenFound(int index);

}  // namespace Quillon::Tools
