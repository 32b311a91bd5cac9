// Where the parts of a fretboard, a piano keyboard and a drum map lie in a box of a size given, and what a point means.
// Measures are pixels of the box, from its top left corner.
#pragma once

#include <optional>
#include <vector>

#include "core/mod_TabFileStructure.h"

namespace Quillon::Shell {

/// A place where a note can stand on the fretboard. Frets count from the nut, or from the capo when there is one.
struct BoardCell {
    int String = 0;
    int Fret = 0;
    bool operator==(const BoardCell&) const = default;
};

/// The fretboard with string 0 at the top, as the tab has it. At the left the open strings, then the neck with frets in
/// true spacing: each string length is the one before less its 17.8th part.
class FretboardGeometry {
public:
    static constexpr int MostInView = 24;

    FretboardGeometry(const Core::Track& track, int scroll, double width, double height);

    int Strings() const { return strings; }
    int Capo() const { return capo; }
    /// Frets of the neck, counted from the nut: those in view are First() to Last().
    int First() const { return first; }
    int Last() const { return first + count - 1; }
    int MostScroll() const { return mostScroll; }
    /// The scroll, of 0 to MostScroll(), nearest to the one in use that brings a fret into view.
    int ScrollTo(int fret) const;
    bool Shows(int fret) const;

    double NutX() const { return nutX; }
    double Right() const { return right; }
    double Top() const { return top; }
    double Bottom() const { return bottom; }
    /// The wire at the far end of a fret counted from the nut, 0 being the nut. Where the view begins further up, its
    /// left edge stands at the wire before First().
    double WireX(int neckFret) const;
    /// Middle of the place where a note stands. Fret 0 is at the capo when that is in view, else left of the nut.
    double NoteX(int fret) const;
    double StringY(int string) const;
    double Gap() const { return gap; }  ///< from string to string
    std::optional<BoardCell> At(double x, double y) const;

private:
    double Scale(int neckFret) const;

    int strings, capo, first = 1, count = 1, mostScroll = 0;
    double nutX, right, top, bottom, gap;
};

/// The keyboard of a piano: all 88 keys, or in a narrow box the octaves that the track reaches.
class PianoGeometry {
public:
    PianoGeometry(const Core::Track& track, double width, double height);

    struct Key {
        int Pitch = 0;  ///< MIDI note number
        bool Black = false;
        double X = 0;
        double Width = 0;
        double Height = 0;
    };
    const std::vector<Key>& Whites() const { return whites; }
    const std::vector<Key>& Blacks() const { return blacks; }
    int Lowest() const { return lowest; }
    int Highest() const { return highest; }
    /// nullptr for a pitch that is not in view.
    const Key* Find(int pitch) const;
    /// The pitch of a point; a black key lies over the white ones.
    std::optional<int> At(double x, double y) const;

    static constexpr double KeyTop = 6;   ///< of every key
    static constexpr int LowestKey = 21;  ///< A0
    static constexpr int HighestKey = 108;

private:
    int lowest, highest;
    double bottom;
    std::vector<Key> whites;
    std::vector<Key> blacks;
};

/// True when a click on the key can write a note: the track's strings reach it, or a letter plays that drum sound.
bool PianoReaches(const Core::Track& track, int pitch);

/// The sounds of a drum track: a row for each string, and in it a cell for each letter that plays something.
class DrumGeometry {
public:
    DrumGeometry(const Core::Track& track, double width, double height);

    struct Cell {
        int String = 0;
        int Letter = 0;  ///< place among Core::PercussionLetters
        int Sound = 0;   ///< place among Core::DrumSoundNames
        double X = 0;
        double Y = 0;
        double Width = 0;
        double Height = 0;
    };
    const std::vector<Cell>& Cells() const { return cells; }
    /// nullptr where no cell lies.
    const Cell* At(double x, double y) const;

private:
    std::vector<Cell> cells;
};

}  // namespace Quillon::Shell
