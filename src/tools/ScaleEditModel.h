// A scale that a person makes: its pattern, its strings, its keywords and its name.
#pragma once

#include <string>
#include <string_view>

#include "library/NeckView.h"
#include "library/mod_Scales.h"
#include "shell/DialogModel.h"

namespace Quillon::Tools {

struct ScaleEditModel : Shell::DialogModel {
    std::string Before;  ///< name of the scale that is edited, "" for a new one
    std::string Name;
    std::string Keywords;
    Core::Row<std::string, Core::StringCount> OpenNotes;  ///< as typed: "E4", the highest string first
    Library::ScaleRec Scale;                              ///< its strings and pattern

    void LoadNew(const Library::ScaleRec* like);
    void LoadFrom(const std::string& name, const Library::ScaleRec& scale);
    /// Strings count from the highest, positions from the lowest fret of the pattern, 0 to 6.
    bool IsSet(int string, int position) const;
    void Toggle(int string, int position);
    void ClearPattern();
    void SetStrings(int strings);
    /// MIDI pitch of an open string, as typed or, while that is no note, as before.
    int OpenPitch(int string) const;
    /// The neck's first seven positions with the pattern on it: names where the pattern stands at the nut.
    std::vector<Library::NeckDot> Dots() const;
    /// The notes and the degrees of the pattern, from its tonic.
    std::string TonesText() const;
    /// Sounds a place of the pattern.
    void Sound(int string, int position) const;

    std::string_view Validate() const;
    /// Writes the file; asks before another scale is written over. False when that was refused.
    bool Apply();

private:
    Library::ScaleRec Wanted() const;
};

}  // namespace Quillon::Tools
