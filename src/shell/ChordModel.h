// A chord symbol written by hand above a strum: its name, and the chart of its frets and fingers.
#pragma once

#include <string>
#include <string_view>

#include "shell/StrumModel.h"

namespace Quillon::Shell {

struct ChordModel : StrumModel {
    std::string Name;
    Core::Row<std::string, Core::StringCount> Frets;    ///< "0" to "29", "x", or "" for a string that is left out
    Core::Row<std::string, Core::StringCount> Fingers;  ///< "T", "1" to "4", or ""
    bool Barre = false;                                 ///< one finger lies over the lowest fret
    bool WriteFrets = false;                            ///< the strum's notes become those of the chart

    void Load();
    /// Strings of the chart: those of the track.
    int Strings() const;
    /// Letter of the open string, "E".
    std::string OpenNote(int string) const;
    /// The chart becomes what the strum plays. False when it has no frets.
    bool TakeFrets();
    bool Exists() const override { return Before().HasChord; }
    std::string_view Validate() const override;
    Drawing::ExcerptOf Shown() const override;

protected:
    void Write(Core::Strum& strum) const override;
    void Clear(Core::Strum& strum) const override;

private:
    bool HasChart() const;
    bool IsAsLoaded(const Core::Strum& strum) const;
    void WriteNotes(Core::Strum& strum) const;
};

}  // namespace Quillon::Shell
