// The settings of the program, kept line by line in QL4.ini of the base folder.
//
// The file is positional: six header lines, then one value a line, in the order of one table that drives reader and
// writer. Header and labels are for people; the reader looks at neither.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/Values.h"

namespace Quillon::Core {

constexpr int ToolbarCount = 18;

/// Name of a toolbar as the file's labels have it, 0 to 17; raises outside. That of 1 is doubled: this is meant.
const char* ToolbarName(int toolbar);
/// Index of a toolbar by that name; -1 for none.
int ToolbarIndex(std::string_view name);

/// All that has a line in QL4.ini. A fresh record holds the first-run values.
struct SettingsRecord {
    SettingsRecord() {
        for (bool& visible : ToolbarVisible) visible = true;
        for (bool& docked : ToolbarDocked) docked = true;
    }

    Row<bool, ToolbarCount> ToolbarVisible;
    Row<bool, ToolbarCount> ToolbarDocked;
    std::string FTPPassword;
    std::string FTPUsername;
    std::string FTPAddress;
    bool FTPBinary = true;
    bool PlayChordsOnLoad = false;
    bool ChordReverb = false;
    bool ScaleReverb = false;
    bool LoadFirstLesson = false;
    bool FollowTabPlayback = true;
    bool AlternatePlayback = false;  ///< follows OutputBank, which wins when they disagree
    bool HiPrecision = true;
    bool StaffAddition = true;
    bool ShowPercussionAssistant = false;
    std::int16_t OutputDevice = 0;
    std::int16_t OutputBank = 128;  ///< "Output Program ID": 127 in alternate playback, else 128, past 7 bits as meant
    std::int16_t UndoLevels = 100;
    bool HideChordManager = false;
    bool IncludeCopyrightWarning = false;
    bool PlayNotesAsTyped = true;
    std::string LatestUpdate;
    bool CheckForUpdates = false;
    double BendCoefficient = 7.9;  ///< wheel steps of 128 to a unit of a bend curve
    double VibratoBend = 4;
    double WideVibratoBend = 12;
    std::int16_t VibratoCount = 6;
    bool Metronome = false;
    bool CountIn = false;
    std::int16_t MaxLineLength = 80;  ///< characters of a line of text tab
    bool CheckDiary = false;
    bool AutoScroll = true;
    bool ShowTips = false;
    bool AutoPageStretch = false;
    bool AutoASCII = false;
    bool ShowProjectSelector = false;
    bool AutosaveLesson = false;

    bool operator==(const SettingsRecord&) const = default;
};

extern SettingsRecord Settings;

/// Text of QL4.ini: 77 lines, Windows-1252, each ended by CR LF. A line end within a text becomes a blank.
std::string FormatINISettings(const SettingsRecord& settings);
/// Reads up to the first line that can't be read; what follows it keeps its first-run value. Gives the number of
/// values read, 71 for a whole file.
int ParseINISettings(std::string_view bytes, SettingsRecord& settings);

/// Reads QL4.ini of the base folder; without one the settings have their first-run values.
void LoadINISettings();
/// Writes QL4.ini; raises when it can't be written.
void SaveINISettings();
bool INISettingsExist();
/// First-run settings, and the fonts of new files in section "DefaultInfo" of the store.
void SetDefaultVars();

}  // namespace Quillon::Core
