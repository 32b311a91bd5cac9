#include "shell/ChordModel.h"

#include <algorithm>

#include "core/mod_Common.h"
#include "core/mod_TabFileManipulation.h"
#include "editing/mod_NoteEntry.h"

namespace Quillon::Shell {

namespace {

constexpr int ChartRows = 5;  ///< frets that a chart shows from its first one

std::string Plain(const std::string& text) {
    std::string plain(Core::TrimBlanks(text));
    return plain == "X" ? "x" : plain == "t" ? "T" : plain;
}

bool IsFret(const std::string& text) {
    const std::string fret = Plain(text);
    const int number = Editing::FretNumber(fret);
    return fret.empty() || fret == "x" || (number >= 0 && number <= Editing::HighestFret);
}

bool IsFinger(const std::string& text) {
    static constexpr std::string_view fingers = "T1234";
    const std::string finger = Plain(text);
    return finger.empty() || (finger.size() == 1 && fingers.find(finger) != std::string_view::npos);
}

}  // namespace

void ChordModel::Load() {
    StrumModel::Load();
    Name.clear();
    Barre = WriteFrets = false;
    Frets = {};
    Fingers = {};
    if (!Exists()) {
        // A single note is no chord yet.
        int notes = 0;
        for (int string = 0; string < Strings(); ++string) notes += !Before().Notes[string].Fret.empty();
        if (notes > 1) TakeFrets();
        return;
    }
    Name = Before().ChordName;
    Frets = Before().ChordFrets.Read();
    Fingers = Before().ChordFingers.Read();
    Barre = Before().ChordFlag;
}

int ChordModel::Strings() const { return std::clamp<int>(ItsTrack().Strings, 1, Core::StringCount); }

std::string ChordModel::OpenNote(int string) const { return Core::NoteName(Core::OpenPitch(ItsTrack(), string)); }

bool ChordModel::TakeFrets() {
    bool any = false;
    for (int string = 0; string < Strings(); ++string) any = any || !Before().Notes[string].Fret.empty();
    if (!any) return false;
    for (int string = 0; string < Core::StringCount; ++string) {
        const Core::Note& note = Before().Notes[string];
        const bool used = string < Strings();
        Frets[string] = !used ? "" : note.Fret.empty() ? "x" : note.Fret;
        static constexpr std::string_view letters = "T1234";
        const bool fingered = used && !note.Fret.empty() && note.LeftFinger >= 1 && note.LeftFinger <= 5;
        Fingers[string] =
            fingered ? std::string(1, letters[static_cast<std::size_t>(note.LeftFinger) - 1]) : std::string();
    }
    return true;
}

bool ChordModel::HasChart() const {
    return std::any_of(Frets.begin(), Frets.end(), [](const std::string& fret) { return !Plain(fret).empty(); });
}

std::string_view ChordModel::Validate() const {
    if (!std::all_of(Frets.begin(), Frets.end(), IsFret)) return "str_ChordFretWrong";
    if (!std::all_of(Fingers.begin(), Fingers.end(), IsFinger)) return "str_ChordFingerWrong";
    if (Name != Before().ChordName && HoldsFileSigns(Name)) return "str_TextReserved";
    return Core::TrimBlanks(Name).empty() && !HasChart() ? "str_ChordEmpty" : "";
}

Drawing::ExcerptOf ChordModel::Shown() const {
    Drawing::ExcerptOf shown = StrumModel::Shown();
    shown.ChartRoom = true;
    return shown;
}

bool ChordModel::IsAsLoaded(const Core::Strum& strum) const {
    return strum.HasChord && Name == strum.ChordName && Frets == strum.ChordFrets.Read() &&
           Fingers == strum.ChordFingers.Read() && Barre == strum.ChordFlag;
}

void ChordModel::WriteNotes(Core::Strum& strum) const {
    for (int string = 0; string < Strings(); ++string) {
        const std::string fret = Plain(Frets[string]);
        const bool sounds = !fret.empty() && fret != "x";
        if (sounds) {
            strum.Notes.Edit(string).Fret = std::to_string(Editing::FretNumber(fret));
        } else if (!strum.Notes.IsDefault(string)) {
            strum.Notes.Clear(string);
        }
    }
}

void ChordModel::Write(Core::Strum& strum) const {
    if (WriteFrets && Validate().empty() && HasChart()) WriteNotes(strum);
    if (IsAsLoaded(strum)) return;  // values that came from elsewhere stay
    strum.HasChord = true;
    strum.ChordName = Core::TrimBlanks(Name);
    strum.ChordFlag = Barre;
    int lowest = 0, highest = 0;
    Core::Row<std::string, Core::StringCount>& frets = strum.ChordFrets.Edit();
    for (int string = 0; string < Core::StringCount; ++string) {
        frets[string] = Plain(Frets[string]);
        strum.ChordFingers.Edit()[string] = Plain(Fingers[string]);
        const int fret = Editing::FretNumber(frets[string]);
        if (fret > 0) lowest = lowest == 0 ? fret : std::min(lowest, fret);
        highest = std::max(highest, fret);
        // The symbol sounds from these pitches; 0 is the string's standard one.
        const bool retuned = string < Strings() && ItsTrack().Tuning[string] != 0;
        const int pitch = retuned ? Core::OpenPitch(ItsTrack(), string) : 0;
        if (pitch != strum.ChordMarks.Read()[string]) strum.ChordMarks.Edit()[string] = Core::ToInt16(pitch);
    }
    strum.ChordValueA = Core::ToInt16(Barre || highest > ChartRows ? lowest : 0);
    strum.ChordValueB = Core::ToInt16(Strings());
}

void ChordModel::Clear(Core::Strum& strum) const {
    strum.HasChord = strum.ChordFlag = false;
    strum.ChordValueA = strum.ChordValueB = 0;
    strum.ChordName.clear();
    strum.ChordFrets.Clear();
    strum.ChordFingers.Clear();
    strum.ChordMarks.Clear();
}

}  // namespace Quillon::Shell
