// What the dialogs edit, without a window: loaded from the program's state, checked, and applied to it.
//
// Validate gives the text key of the first complaint, "" when all is well. Apply says whether anything changed, and
// sets FileChanged and LayoutDirty just then.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/mod_Settings.h"
#include "core/mod_TabFileStructure.h"
#include "drawing/mod_PageLayout.h"
#include "platform/Picture.h"
#include "platform/Synthesizer.h"
#include "playback/mod_TabPlayer.h"
#include "shell/DialogModel.h"

namespace Quillon::Shell {

/// Title, names and texts, fonts and colours of the open file.
struct FilePropertiesModel : DialogModel {
    Core::TabFile File;          ///< a copy, of which the header fields are edited
    bool UseAsDefaults = false;  ///< new files start with these values

    void Load();
    std::string_view Validate() const;
    bool Apply() const;

    Font TitleFont() const;
    void SetTitleFont(const Font& font);
    Font NoteFont() const;
    void SetNoteFont(const Font& font);
};

struct TrackPropertiesModel : DialogModel {
    int Index = 0;
    Core::Track Track;                                    ///< a copy, all but its bars is edited
    Core::Row<std::string, Core::StringCount> OpenNotes;  ///< per string, string 0 first: "E4"
    std::vector<std::string> TrackNames;                  ///< of all tracks, to choose the lyrics from
    bool DrumsFirst = false;                              ///< opens on what the drum letters play

    void Load(int track);
    std::string_view Validate() const;
    bool Apply() const;
    /// Takes a General MIDI program 0 to 127 with its name; raises outside.
    void ChooseInstrument(int program);
};

struct OptionsModel : DialogModel {
    Core::SettingsRecord Settings;  ///< its flags, the wide vibrato and the vibrato's count are edited
    std::int16_t MinTabX = 0;
    std::int16_t MaxTabX = 0;
    std::int16_t Theme = 0;  ///< as ProgramState::Theme
    std::string Language;
    std::vector<std::string> Languages;  ///< to choose from
    bool ImportAtStart = false;          ///< an address on the clipboard is imported when the program starts
    std::string BendCoefficient;         ///< as typed
    std::string VibratoBend;
    SynthesizerSettings Synthesizer;
    std::vector<std::filesystem::path> SoundFonts;  ///< to choose from, the best first

    void Load();
    std::string_view Validate() const;
    bool Apply() const;

    /// Takes the two bends that are numbers above 1 and below 50 into Settings; another gets its old value back.
    /// The text key of a complaint, or "".
    std::string_view CheckBends();
    /// The synthesizer's settings at once, to be heard. Revert takes them back.
    void Preview() const;
    static void Revert();
};

/// The fields of ntne_frmSpeedTrainer. At first the selected bars, or all, from six tenths of the song's tempo up to
/// it.
struct SpeedTrainerModel : DialogModel {
    Playback::TrainerFields Fields;

    static constexpr int MostTempo = 1000;  ///< quarter notes a minute
    /// The song's tempo as a whole number that the fields take.
    static int TempoOfSong();
    void Load();
    std::string_view Validate() const;
};

struct PageSetupModel : DialogModel {
    Drawing::PageSetup Page;  ///< a copy, of which paper, orientation, margins and scale are edited

    void Load();
    std::string_view Validate() const;
    bool Apply() const;
};

}  // namespace Quillon::Shell
