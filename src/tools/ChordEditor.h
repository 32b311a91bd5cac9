// A chord that is being made or changed: its shape on the neck, its names, and where a click on its box goes.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "library/ChordBoxes.h"
#include "library/mod_Chords.h"
#include "shell/DialogModel.h"

namespace Quillon::Tools {

struct ChordEditorModel : Shell::DialogModel {
    std::string Name;
    std::string Before;  ///< the name of the file that is edited; "" for a new chord
    int Strings = 6;
    Library::Row<std::int16_t, Core::StringCount> Tuning = {64, 59, 55, 50, 45, 40, 35};  ///< MIDI pitches
    Library::Row<std::string, Core::StringCount>
        Frets;  ///< from the nut: "0" to "24", "x", or "" for a string left out
    Library::Row<std::int16_t, Core::StringCount> Fingers;  ///< 0 none, 1 to 4, 5 the thumb
    bool Barre = false;
    int Top = 1;  ///< the first fret that the box shows

    static constexpr int Rows = 5;  ///< frets that the box shows
    static constexpr int LeastStrings = 4;

    /// A new one: the strum at the cursor where it holds more than a note, on the track's strings; else an empty box.
    void LoadNew();
    /// A chord of the library; false for one that can't be read.
    bool LoadChord(const std::string& name);

    Library::ChordRec Chord() const;
    /// "" when all is well, else the text key of a complaint.
    std::string_view Validate() const;

    /// What the shape may be called, the most usual first, as the library writes names.
    std::vector<std::string> Names() const;
    /// "x 3 2 0 1 0", the lowest string first; a string left out is "-".
    std::string FretsText() const;
    /// Takes such a text; false, and nothing changes, for one that is none. The box follows the shape.
    bool SetFretsText(std::string_view text);
    /// The note that a string sounds, or "".
    std::string NoteOf(int string) const;

    // The box. Rows count from 0 at the top; row -1 is above the nut.
    /// Holds the fret of a row, or lets go where it is held already. Above the nut: open, then muted, then left out.
    void Press(int string, int row);
    /// Moves the box along the neck.
    void MoveTop(int by);
    void SetFinger(int string, int finger);
    void SetStrings(int strings);
    /// The box shows the shape from its lowest fret where it does not reach down to it.
    void FollowShape();
};

/// Where the box of the editor stands in its picture, and which place of it a point is.
struct EditorBox {
    int Strings = 6;
    bool Lefthanded = false;
    static constexpr int Width = 300, Height = 270;
    static constexpr int StringStep = 34, FretStep = 38, Top = 34;

    struct Place {
        int String = 0;
        int Row = 0;  ///< -1 above the nut
        bool operator==(const Place&) const = default;
    };
    int Left() const { return (Width - (Strings - 1) * StringStep) / 2; }
    double X(int string) const;
    double Y(int row) const;
    std::optional<Place> At(double x, double y) const;
};

/// "&Add New Chord...": edits one and writes its file, after a question where that takes another's place. The manager
/// then shows it.
void mnuAddNewChord_Click();
/// The same for the current chord.
void mnuEditChord_Click();

}  // namespace Quillon::Tools
