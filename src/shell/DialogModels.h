// What the dialogs edit, without a window: loaded from the program's state, checked, and applied to it.
//
// Validate gives the text key of the first complaint, "" when all is well. Apply says whether anything changed, and
// sets FileChanged and LayoutDirty just then.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/mod_Settings.h"
#include "core/mod_TabFileStructure.h"
#include "drawing/mod_PageLayout.h"
#include "platform/Picture.h"

namespace Quillon::Shell {

/// Title, names and texts, fonts and colours of the open file.
struct FilePropertiesModel {
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

struct TrackPropertiesModel {
    int Index = 0;
    Core::Track Track;                                    ///< a copy, all but its bars is edited
    Core::Row<std::string, Core::StringCount> OpenNotes;  ///< per string, string 0 first: "E4"
    std::vector<std::string> TrackNames;                  ///< of all tracks, to choose the lyrics from

    void Load(int track);
    std::string_view Validate() const;
    bool Apply() const;
    /// Takes a General MIDI program 0 to 127 with its name; raises outside.
    void ChooseInstrument(int program);
};

struct OptionsModel {
    Core::SettingsRecord Settings;  ///< AutoScroll and AutoPageStretch are edited
    std::int16_t MinTabX = 0;
    std::int16_t MaxTabX = 0;
    std::int16_t Theme = 0;  ///< as ProgramState::Theme
    std::string Language;
    std::vector<std::string> Languages;  ///< to choose from

    void Load();
    std::string_view Validate() const;
    bool Apply() const;
};

struct PageSetupModel {
    Drawing::PageSetup Page;  ///< a copy, of which paper, orientation, margins and scale are edited

    void Load();
    std::string_view Validate() const;
    bool Apply() const;
};

}  // namespace Quillon::Shell
