// The guitar tuner without its window: the list of tunings, the strings that are to sound, and the library's keeping.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "library/mod_Tuner.h"

namespace Quillon::Tools {

struct GuitarTunerState {
    std::vector<std::string> cmbTuning{};  ///< names of the library's tunings; above them stands the track's own tuning
    int PassedBy = 0;                      ///< files of the folder that are no tunings
    std::string Chosen{};                  ///< a name of the list, "" for the tuning of the track under the cursor
    int Sounding = -1;                     ///< the string that sounds, -1 for none
    bool Runs = false;                     ///< from string to string: the tuning and its controls are not to be changed
    std::function<void()> Changed{};
};
extern GuitarTunerState GuitarTuner;

constexpr int LeastTunerPause = 300;  ///< ms from one string to the next
constexpr int MostTunerPause = 6000;

/// The window comes: makes the library where it is missing and takes what was kept.
void frmGuitarTuner_Load();
/// It goes, with its timers.
void frmGuitarTuner_Unload();
void LookAtTuningFolder();
/// The track under the cursor may have another tuning now.
void TunerCursorMoved();

/// What the list shows above the library: "Track 1: Lead". "" while the cursor is on no fretted track.
std::string TrackTuningText();
/// 0 for the track's, then the library's; a tuning whose file is gone is not taken. Not while it plays.
void ChooseTuning(int index);
int ChosenTuning();
/// One entry up or down in the list for each notch.
void MouseWheel(int notches);
std::string TuningCountText();

/// "e", "B", "G", "D", "A", "E", "B".
std::string StringLetter(int string);
/// The note that a string is tuned to and how far that is from standard: "D2  −2".
std::string StringNoteText(int string);
/// A screen reader's word for it: "String 6, D2".
std::string StringSpoken(int string);

void SetString(int string, bool on);  ///< its check box
void SetLetRing(bool on);
void SetTunerPause(int milliseconds);
void PlayUp();
void PlayDown();
void PlayOne(int string);
void StopTuner();

/// The editor of a new tuning, which begins as the one chosen, and of the one chosen.
void mnuNewTuning_Click();
void mnuEditTuning_Click();
/// Asks first.
void mnuDeleteTuning_Click();
/// Asks, then writes the default tunings anew.
void mnuRestoreTunings_Click();

}  // namespace Quillon::Tools
