// The chord manager without its window: what of the library is shown and how, which chords are chosen, and what is done
// with them.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "library/mod_Chords.h"

namespace Quillon::Tools {

/// The window as the manager sees it.
struct ChordView {
    virtual ~ChordView() = default;
    /// Other chords are shown, or the same otherwise.
    virtual void RefreshView() = 0;
    /// The chosen ones, or what sounds, are others.
    virtual void RefreshChosen() = 0;
};

struct ChordManagerState {
    ChordView* View = nullptr;
    Library::ChordFilter Filter{};         ///< of the search panel that is active; All without one
    std::vector<std::string> lstChords{};  ///< the names that pass it, in the library's order
    int Current = -1;                      ///< of lstChords, where the keyboard stands; -1 for none
    int Anchor = -1;                       ///< where a range that is being chosen began
    std::set<std::string> Chosen{};        ///< what commands work on; holds the current one
    int DisplayMode = 5;
    bool Lefthanded = false;
    bool WindowsColors = true;
    std::string Sounding{};   ///< the chord that is heard
    bool ShowErrors = false;  ///< the files that are passed by are named, as the file "Data/ShowErrors.txt" asks for
};
extern ChordManagerState ChordManager;

// The window comes and goes ------------------------------------------------------------------------------------------

/// Reads the settings, makes the library where it is missing, and shows all of it.
void ChordManager_Load(ChordView& view);
/// Silences what is heard and writes the settings.
void ChordManager_Unload();
/// Looks at the folder, and shows what changed there.
void ChordFolderChanged();

// What is shown ------------------------------------------------------------------------------------------------------

/// Fills lstChords by the filter; the current chord stays where it is still shown. A name filter reads no files.
void RefreshFilter();
/// Those of the current track may be others now.
void ChordCursorMoved();
/// "12 of 1,555 chords", and how many files were passed by as they can't be read, as far as they were read.
std::string ChordCountText();
/// What the strum at the cursor is called by its notes; "" for a rest, a single note and drums.
std::string ChordAtCursor();

void mnuSearchName_Click();
void mnuSearchTab_Click();
void mnuSearchStrings_Click();
void mnuSearchChordsInCurrentFile_Click();
void mnuSearchClear_Click();
/// The panels' fields; each makes its panel the active one.
void txtSearch_Change(const std::string& text);
/// `box` counts from 0, the lowest string.
void txtTabSearch_Change(int box, const std::string& text);
void optString_Click(int strings);

/// The text key of a display mode's name, with its letter for the keyboard.
std::string DisplayModeKey(int mode);
void mnuDisplay_Click(int mode);
void mnuViewLefty_Click();
void mnuWindowsColors_Click();

// What is chosen -----------------------------------------------------------------------------------------------------

enum class Choose : std::uint8_t { Only, Toggle, Range, Move };
/// Goes to a chord, as a click or an arrow key does: it alone is chosen then, or it is added or taken, or all from the
/// anchor on; Move leaves those that are chosen. Outside the list it does nothing. A chord that is chosen alone is
/// heard when the setting says so.
void ChooseChord(int index, Choose how);
void ChooseAllChords();
/// Goes to a chord by its name; a filter that hides it is cleared.
void ShowChord(const std::string& name);
/// The current chord's name; "" without one.
std::string CurrentChord();
/// The chosen ones in the library's order, of those that are shown.
std::vector<std::string> ChosenChords();

/// "&Restore Chords": the program's own chords again, after a question that tells what would go.
void mnuResetChords_Click();

// What is done with them ---------------------------------------------------------------------------------------------

/// The current chord from its lowest string on, string after string.
void PlayCurrentChord();
void StopChord();
/// Any chord, as of a file that is not there yet; `name` tells which one is heard.
void PlayChordRec(const std::string& name, const Library::ChordRec& chord);
void mnuPlayOnLoad_Click();
void mnuReverb_Click();
void mnuHideAfterAdding_Click();

/// Whether a chord can be added now: not while a song plays, and not on a drum track.
bool CanAddChord();
/// "Add to Music File as Notes", "Add to Music File as Diagram": the current chord into the strum at the cursor. The
/// status bar tells what came of it.
void AddChordAsNotes();
void AddChordAsDiagram();

/// Engines of both, on any strum. Notes keep their pitches where the strings are tuned otherwise than the chord's;
/// false when the track's strings can't play it, and then nothing has changed. Strings that the chord mutes get dead
/// notes.
bool WriteChordNotes(const Library::ChordRec& chord, const Core::Track& track, Core::Strum& strum);
void WriteChordDiagram(const std::string& name, const Library::ChordRec& chord, Core::Strum& strum);

}  // namespace Quillon::Tools
