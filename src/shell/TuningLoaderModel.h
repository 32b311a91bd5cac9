// A tuning of the library for the current track.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "library/mod_Tunings.h"
#include "shell/DialogModel.h"

namespace Quillon::Shell {

struct TuningLoaderModel : DialogModel {
    int Track = 0;
    std::vector<std::string> Names;  ///< of the library; files that are no tunings are passed by
    std::string Chosen;              ///< "" for none
    bool HandsOver = false;          ///< to a dialog that asks what becomes of the notes; else Apply writes

    /// Makes the library where it is missing. The tuning that the track has is chosen, when the library knows it.
    void Load();
    /// Nothing when none is chosen, or its file went.
    const Library::TuningRec* Tuning() const;
    /// Its open notes, the lowest string first: "D2 A2 D3 G3 B3 E4".
    std::string NotesText() const;
    /// Notes of the track on strings that the tuning has not; other strings play them.
    int LostNotes() const;
    std::string_view Validate() const;
    /// Writes it into the track; false when nothing changed.
    bool Apply() const;
};

}  // namespace Quillon::Shell
