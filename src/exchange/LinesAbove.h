// The lines right above a system: note lengths, chords, words, and signs for beats.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "exchange/LinesBars.h"
#include "exchange/LinesEndings.h"
#include "exchange/NoteValues.h"

namespace Quillon::Exchange {

/// A note length above a column, "Q." and so on. `Triplet`: one of three under a bracket.
struct LengthAbove {
    int Column = 0;
    std::int8_t Code = 2;  ///< as Strum::Length
    bool Dotted = false;
    bool Triplet = false;
};
/// Words above a column: the name of a chord, or a syllable.
struct WordAbove {
    int Column = 0;
    std::string Text;  ///< UTF-8
};
/// A sign over one column, or from one to another.
struct SignAbove {
    int From = 0;
    int To = 0;
    std::int8_t Beat = 0;  ///< Core::StrumTechnique; 0: the notes ring on
};
/// "3x" over the end of a bar.
struct TimesAbove {
    int Column = 0;
    int Times = 0;
};

/// Words over a system that may be sung, or say something else.
struct LyricLine {
    std::vector<WordAbove> Syllables;
    int Line = 0;  ///< of the text, from 0
    int Words = 0;
    int OverNotes = 0;      ///< words that begin at a column with notes
    bool Indented = false;  ///< they begin no further left than the strings
};

struct AboveSystem {
    std::vector<LengthAbove> Lengths;
    std::vector<WordAbove> Chords;
    std::vector<LyricLine> Lyrics;  ///< from the top, at most Core::LyricLines
    std::vector<SignAbove> Signs;
    std::vector<TimesAbove> Repeats;
    std::vector<EndingAbove> Endings;
    std::string Section;    ///< "Chorus"; "" for none
    int Times = 0;          ///< that the system is played, 0 for no word of it
    std::vector<int> Used;  ///< lines that went into it, from 0
};

/// The lines above a system down from `from`, which is behind the system before it. `columns` are those with notes in
/// them, ascending, in columns of the lines.
AboveSystem AboveOf(const std::vector<TextColumns>& lines, const TabSystem& system, int from,
                    const std::vector<bool>& used, const std::vector<int>& columns);

/// Words are sung where they stand over notes, unless they are a single line of a whole text that begins further left
/// than the strings: those head their systems, as do words over no notes.
void SettleWords(const std::vector<TextColumns>& lines, std::vector<AboveSystem>& above);
/// The systems right below that of another player, as their headings name them: both sound at once.
std::vector<int> OtherPlayers(const std::vector<TabSystem>& systems, const std::vector<AboveSystem>& above);

/// True for what is written for chords: "Am7", "F#m7b5", "C/G", "N.C.".
bool IsChordName(std::string_view word);

}  // namespace Quillon::Exchange
