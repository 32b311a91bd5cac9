// Chords as boxes: the cell of one chord in each way of showing it, painted on any picture.
#pragma once

#include <optional>
#include <string>

#include "library/mod_Chords.h"
#include "platform/Picture.h"

namespace Quillon::Library {

/// Where a panel stands in its cell, in pixels from the cell's corner.
struct PanelPlace {
    int Top = 0;
    int Left = 0;
    bool operator==(const PanelPlace&) const = default;
};

/// What a cell shows below its chord's name, each where it has a place.
struct DisplayMode {
    int CellHeight = 0;
    std::optional<PanelPlace> Box;      ///< a small box, as above a score
    std::optional<PanelPlace> Fingers;  ///< a large one with the fingers below its strings
    std::optional<PanelPlace> Notes;    ///< frets and notes, string by string
    int CellPitch = 0;                  ///< from one row of cells to the next
    static constexpr int Grid = 130;    ///< from one column of cells to the next
    static constexpr int CellWidth = 110;
};
constexpr int DisplayModes = 7;
/// Raises "Subscript out of range" outside 0 to 6.
const DisplayMode& ModeOf(int mode);

struct BoxColors {
    Color Ink = Black;
    Color Faint = PackColor(0x80, 0x84, 0x8A);  ///< frets, strings, and what matters less
    Color Dot = PackColor(0x1F, 0x5F, 0xC4);
};

/// The frets that a box shows: the first, from 1, and how many.
struct BoxFrets {
    int First = 1;
    int Count = 5;
};
/// Five from where the shape lies, or more where it reaches further.
BoxFrets FretsOf(const ChordRec& chord);

/// A box alone: `Left` is its leftmost string, `Top` its uppermost fret line.
struct BoxLook {
    double Left = 0, Top = 0;
    double StringStep = 15, FretStep = 15;  ///< of five frets; more share their height
    bool Fingers = false;                   ///< below the strings
    bool Lefthanded = false;
    BoxColors Colors{};
    std::optional<BoxFrets> Frets{};  ///< other ones than the shape's
};
void DrawChordBox(Picture& picture, const ChordRec& chord, const BoxLook& look);

/// The cell of a chord with its corner at x, y. Without a chord, for a file that can't be read, it shows a question
/// mark. A left-handed person's boxes have their strings the other way round, and nothing else.
void DrawChordCell(Picture& picture, double x, double y, const std::string& name, const ChordRec* chord, int mode,
                   bool lefthanded, const BoxColors& colors);

}  // namespace Quillon::Library
