// The scale manager without its window: what is listed, which scale is shown in which key, and how it is played.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "library/ScaleView.h"
#include "library/mod_Scales.h"

namespace Quillon::Tools {

struct ScaleManagerState {
    std::vector<std::string> lstScales{};    ///< names that pass the filter
    int PassedBy = 0;                        ///< files of the folder that are no scales
    Library::ScaleFilter::Kind Panel{};      ///< which of picSearchName, picSearchKeywords and picSearchStrings shows
    std::string txtSearch{}, txtKeywords{};  ///< of the panels
    int Strings = 6;                         ///< of the panel of strings
    std::string Chosen{};                    ///< name of the scale that is shown, "" for none
    Library::ScaleView View{};               ///< the key and how the neck is drawn
    Library::ScaleOctave Octave = Library::ScaleOctave::Low;
    bool Descending = false;
    int NotesAMinute = 160;           ///< 40 to 600
    std::function<void()> Changed{};  ///< what is listed or shown has changed; the window paints it
};
extern ScaleManagerState ScaleManager;

constexpr int LeastNotesAMinute = 40;
constexpr int MostNotesAMinute = 600;

/// The window comes: makes the library where it is missing, takes what was kept, and lists all scales.
void frmScaleManager_Load();
/// It goes: what sounds stops.
void frmScaleManager_Unload();

namespace ScaleSearch {

/// Lists what passes the panel's filter. The chosen scale stays when it does.
void RefreshFilter();
void mnuSearchName_Click();
void mnuSearchKeywords_Click();
void mnuSearchStrings_Click();
/// Shows all.
void mnuSearchClear_Click();

}  // namespace ScaleSearch

/// Lists anew when the folder is not as it was.
void LookAtScaleFolder();
/// "3 of 38 scales", and how many files were passed by.
std::string ScaleCountText();

/// Brings the scale finder up.
void mnuFindScale_Click();
void SetSearch(const std::string& text);  ///< of the panel that shows
void SetSearchStrings(int strings);

/// The chosen scale; nothing when there is none or its file went.
const Library::ScaleRec* ChosenScale();
void ChooseScale(const std::string& name);
/// Shows a scale in a key, whatever the filter says.
void OpenScale(const std::string& name, int key);
void SetScaleKey(int key);
/// The chosen scale's name, " - " and the key; "" without one.
std::string ShownScaleCaption();
/// "C D E F G A B" with the degrees below; "" without a scale.
std::string ScaleTonesText();

void mnuLow_Click();
void mnuHigh_Click();
void mnuBothOctaves_Click();
void mnuAscend_Click();
void mnuDescending_Click();
/// "Scale Reverb On:" of the settings.
void SetScaleReverb(bool on);
void SetNotesAMinute(int notes);
void mnuLefty_Click();
/// As kept for all necks, also while the manager's window never came.
bool NeckIsLeftHanded();
void mnuDegrees_Click();
void mnuWholeNeck_Click();

/// Plays the chosen scale as set, or stops what plays.
void PlayScale();
/// Sounds one place of the neck.
void SoundNeckPlace(const Library::NeckPlace& place);
void StopScale();

/// The editor of a new scale, which begins as the chosen one or empty; and of the chosen one.
void mnuNewScale_Click();
void mnuEditScale_Click();
/// Asks first.
void mnuDeleteScale_Click();
/// Asks, then writes the default scales anew.
void mnuRestoreScales_Click();

}  // namespace Quillon::Tools
