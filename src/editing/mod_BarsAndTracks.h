// Strums, bars and tracks as wholes: the primitive operations that keys, dialogs and imports are made of.
//
// Engines work on a document given and know no cursor. Fronts of the same names work on the open document, set
// FileChanged and keep the cursor on what is left. A bad index raises "Subscript out of range", a count past 16 bits
// "Overflow", before anything has changed.
#pragma once

#include "core/mod_TabFileStructure.h"

namespace Quillon::Editing {

// Strums -------------------------------------------------------------------------------------------------------------

/// Opens a place: strums from there on move one up, as whole records. What ClearStrum leaves stays in the new one, so
/// that an inserted beat has the rhythm of the one that it pushes on. The place may be one past the last.
void InsertStrum(Core::TabFile& file, int track, int bar, int strum);
/// Raises "Subscript out of range" for the only strum of a bar.
void DeleteStrum(Core::TabFile& file, int track, int bar, int strum);
/// Puts what stands at the place, and all that follows it to the end of the track, one place on; the last bar gains a
/// strum. A cleared strum stays at the place.
void ShiftStrums(Core::TabFile& file, int track, int bar, int strum);

// Bars ---------------------------------------------------------------------------------------------------------------

enum class Dropped { Nothing, Strum, Bar };

/// Drops the bar's last strum. When it is the only one, the bar itself goes, but not bar 0, and only in a document of
/// one track: bars of tracks stand side by side.
Dropped ShrinkBar(Core::TabFile& file, int track, int bar);
/// Leaves one strum, cleared.
void ClearBar(Core::TabFile& file, int track, int bar);
/// One bar more at the end of every track and of BarInfos. It takes time signature and key of the last bar and no
/// marks; its strum is a quarter.
void AppendBar(Core::TabFile& file);
/// One bar more before `bar` on every track, with time signature and key of the bar that it stands before. At the
/// number of bars it is AppendBar.
void InsertBar(Core::TabFile& file, int bar);
void InsertBars(Core::TabFile& file, int bar, int count);
/// Takes a bar out of one track alone.
void RemoveBarAt(Core::Track& track, int bar);
/// Takes a bar out of every track and BarInfos. The document's only bar is emptied instead.
void RemoveBar(Core::TabFile& file, int bar);

// Filling bars -------------------------------------------------------------------------------------------------------

enum class Fullness { Under, Full, Over };

/// Compares what the strums of a bar last with what its time signature asks for, in 64ths, both rounded to three
/// decimals so that tuplets that add up do add up.
Fullness BarFullness(const Core::TabFile& file, int track, int bar);
/// The same of two lengths.
Fullness FullnessOf(double filled, double asked);
/// Fills a bar that is under with rests at its end, each the largest value that fits. What is less than the shortest
/// tuplet of a 64th is filled with a whole note, over the bar's end: bars are told apart by thousandths, and no
/// shorter value is there.
void FixBar(Core::TabFile& file, int track, int bar);
/// A bar that is over loses its last strums until it is not, then it is filled. A bar's only strum stays: it takes the
/// longest plain value that fits.
void FixThisBar(Core::TabFile& file, int track, int bar);
/// FixThisBar for each bar of a track.
void FixAllBars(Core::TabFile& file, int track);

// Tracks -------------------------------------------------------------------------------------------------------------

/// Adds a track behind the others, with as many bars as they have, all empty, in the keys of track 0.
void AddTrack(Core::TabFile& file, Core::Track track);
/// False for the only track, which stays. Tracks that showed its lyrics show their own again.
bool DeleteTrack(Core::TabFile& file, int track);
/// Changes places with the track before, or behind; false at the end. Borrowed lyrics follow their tracks.
bool MoveTrackUp(Core::TabFile& file, int track);
bool MoveTrackDown(Core::TabFile& file, int track);

// Fronts over the open document --------------------------------------------------------------------------------------

void InsertStrum(int track, int bar, int strum);
void DeleteStrum(int track, int bar, int strum);
/// With its bar gone, the cursor stands on the last strum of the bar before.
Dropped ShrinkBar(int track, int bar);
void ClearBar(int track, int bar);
void AppendBar();
void InsertBar(int bar);
void RemoveBar(int bar);
Fullness BarFullness(int track, int bar);
void FixBar(int track, int bar);
void FixThisBar(int track, int bar);
void FixAllBars(int track);
void AddTrack(Core::Track track);  ///< the cursor goes to it
bool DeleteTrack(int track);
bool MoveTrackUp(int track);  ///< the cursor stays on the music that it was on
bool MoveTrackDown(int track);

}  // namespace Quillon::Editing
