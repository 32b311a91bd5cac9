// The lyrics of a track as its editor shows them: five lines of running text over one grid of syllables.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/mod_TabFileStructure.h"
#include "editing/mod_Lyrics.h"
#include "shell/DialogModel.h"

namespace Quillon::Shell {

struct LyricsModel : DialogModel {
    using Syllables = Core::Row<std::string, Core::LyricLines>;

    int Track = 0;
    std::vector<Editing::LyricPlace> Places;  ///< where syllables may stand, in order
    std::vector<Syllables> Grid;              ///< those of each place
    int Cursor = 0;                           ///< the first place at or behind the cursor; their number for none
    bool FromCursor = false;                  ///< texts begin at the cursor; what stands before it stays

    // What stands under the track's rows.
    bool OfOther = false;  ///< the lyrics of another track
    std::int16_t LyricsTrack = 0;
    bool ShowStaff = false;               ///< with that track's staff
    std::vector<std::string> TrackNames;  ///< of all tracks, to choose from

    void Load();
    /// The line from its beginning, or from the cursor, with the syllables that found no place.
    std::string LineText(int line) const;
    /// Spreads a text over the places of the line, from its beginning or from the cursor.
    void SetLineText(int line, std::string_view text);
    /// Moves a syllable to the next place (1) or the one before (-1), and with it those that stand in the way, as far
    /// as the next place that is free. False when there is none, or nothing to move.
    bool MoveSyllable(int line, int place, int by);
    int FirstPlace() const { return FromCursor ? Cursor : 0; }
    /// Syllables of the line that found no place.
    int LeftOver(int line) const { return static_cast<int>(rest[static_cast<std::size_t>(line)].size()); }

    std::string BarText(int place) const;    ///< "3"
    std::string BeatText(int place) const;   ///< "2.5"
    std::string NotesText(int place) const;  ///< what is played there, by frets

    std::string_view Validate() const;
    /// The sentence of a complaint of Validate.
    std::string ComplaintText(std::string_view key) const;
    bool Apply() const;

private:
    const Core::Strum& StrumAt(std::size_t place) const;
    std::string_view Complaint(std::string* about) const;

    std::array<std::vector<std::string>, Core::LyricLines> rest;
};

}  // namespace Quillon::Shell
