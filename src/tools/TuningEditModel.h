// A tuning that a person makes, or gives another name.
#pragma once

#include <string>
#include <string_view>

#include "library/mod_Tunings.h"
#include "shell/DialogModel.h"

namespace Quillon::Tools {

struct TuningEditModel : Shell::DialogModel {
    std::string Before;  ///< name of the tuning that is edited, "" for a new one
    std::string Name;
    Library::TuningRec Tuning;

    /// Shows a tuning in the fields: the one that is edited, or what a new one begins as.
    void LoadEditor(const std::string& name, const Library::TuningRec& tuning);
    /// The notes that a string can be given, an octave down to an octave up: "E3" to "E5".
    static std::vector<std::string> NotesOf(int string);
    void Sound(int string) const;

    std::string_view Validate() const;
    /// Writes the file, and asks before another tuning is written over. False when that was refused.
    bool Apply();
};

}  // namespace Quillon::Tools
