// What the dialogs around bars and tracks edit, without a window. As the other models they are loaded from the open
// document and its cursor, complain by the text key of what is wrong, and are applied once nothing is.
//
// Bars are counted from 1 in their fields, as people count them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/mod_TabFileStructure.h"
#include "editing/mod_Selection.h"
#include "shell/DialogModel.h"

namespace Quillon::Shell {

/// The selected bars, or the one of the cursor.
Editing::BarRange BarsInMind();

struct AddTrackModel : DialogModel {
    bool IsDrum = false;
    std::string Name;
    std::int16_t Instrument = 24;  ///< General MIDI program 0 to 127; not of a drum track
    std::int16_t Strings = 6;      ///< 1 to 7

    void Load();
    /// What a track of the kind is called when nobody says otherwise.
    static std::string SuggestedName(bool drum);
    std::string_view Validate() const;
    /// The track goes behind the others, on channels that no other uses while there are any, and becomes the current
    /// one.
    void Apply() const;
};

struct InsertBarModel : DialogModel {
    std::int16_t Count = 1;
    std::int16_t BeforeBar = 1;  ///< one past the last bar: behind it

    static constexpr int MostBars = 999;  ///< at once
    void Load();
    std::string_view Validate() const;
    /// On all tracks. The cursor goes to the first new bar.
    void Apply() const;
};

struct RemoveBarModel : DialogModel {
    std::int16_t FromBar = 1;
    std::int16_t ToBar = 1;

    void Load();
    std::string_view Validate() const;
    /// On all tracks. When no bar would be left, one stays, emptied.
    void Apply() const;
};

/// How far a signature reaches.
enum class SignatureScope : std::int16_t { ThisBar, FromHere, AllBars };

struct BarTimeSigModel : DialogModel {
    std::int16_t Bar = 1;
    std::int16_t Top = 4;
    std::int16_t BottomIndex = 2;  ///< into Bottoms; -1 for one that is none of them
    std::int16_t Scope = 0;        ///< a SignatureScope

    static constexpr int MostTop = 32;  // what documents as JSON hold, too
    static constexpr int Bottoms[] = {1, 2, 4, 8, 16, 32};
    void Load();
    std::string_view Validate() const;
    /// The document as Apply leaves it.
    Core::TabFile Changed() const;
    bool Apply() const;
};

struct BarKeySigModel : DialogModel {
    std::int16_t Bar = 1;
    std::int16_t Key = 0;    ///< index into KeyNames
    std::int16_t Minor = 0;  ///< 1: chosen from the minor keys
    std::int16_t Scope = 0;  ///< a SignatureScope
    bool AllTracks = true;   ///< at first when the bar has one key on all of them

    /// "C", "F# (6#)" and so on behind the one for no key; `none` is the text of that.
    static std::vector<std::string> KeyNames(bool minor, const std::string& none);
    void Load();
    std::string_view Validate() const;
    Core::TabFile Changed() const;
    /// The same for a picture: with a staff to see the key on, where the current track shows none.
    Core::TabFile Shown() const;
    bool Apply() const;
};

struct EndRepeatModel : DialogModel {
    std::int16_t Bar = 1;
    bool Opens = false;
    bool Closes = false;
    std::int16_t Jumps = 1;  ///< back to the repeat's start; 1 plays it twice

    static constexpr int MostJumps = 99;
    void Load();
    std::string_view Validate() const;
    Core::TabFile Changed() const;
    bool Apply() const;
};

struct CodaModel : DialogModel {
    std::int16_t Bar = 1;
    bool Segno = false;
    bool DalSegno = false;
    bool ToCoda = false;
    bool Coda = false;

    void Load();
    /// The document with these signs. A mark that stands keeps its number: files store any.
    Core::TabFile Changed() const;
    bool Apply() const;
    /// What would be wrong with the signs of the piece, sentences in the language in use; empty when they make sense.
    std::vector<std::string> Check() const;
};

/// Bars to be cut or copied, or where those copied are pasted.
struct CutCopyPasteModel : DialogModel {
    enum class Task : std::uint8_t { Cut, Copy, Paste };

    Task Doing = Task::Copy;
    std::int16_t FromBar = 1;  ///< of those cut or copied
    std::int16_t ToBar = 1;
    std::int16_t Tracks = 0;     ///< 0: the current one, 1: all
    std::int16_t BeforeBar = 1;  ///< where to paste; one past the last bar: behind it
    std::int16_t Over = 0;       ///< 1: over what stands there, 0: before it
    std::int16_t Times = 1;

    static constexpr int MostTimes = 99;
    void Load(Task task);
    /// What the copied bars are: "3 bars of all tracks".
    static std::string CopiedText();
    std::string_view Validate() const;
    void Apply() const;
};

struct TransposeModel : DialogModel {
    std::int16_t Semitones = 1;
    std::int16_t FromBar = 1;  ///< the selected bars, else all
    std::int16_t ToBar = 1;
    std::int16_t Tracks = 1;  ///< 0: the current one, 1: all
    bool Keys = true;         ///< key signatures too

    static constexpr int MostSemitones = 24;
    void Load();
    std::string_view Validate() const;
    /// The sentence that says which beat can't be played and that nothing was changed; "" when all were moved.
    std::string Apply() const;
};

}  // namespace Quillon::Shell
