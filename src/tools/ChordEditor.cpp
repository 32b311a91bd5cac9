#include "tools/ChordEditor.h"

#include <algorithm>
#include <cmath>
#include <sstream>

#include "core/mod_Common.h"
#include "core/mod_TabFileManipulation.h"
#include "drawing/mod_NotationDrawing.h"
#include "library/ChordNaming.h"
#include "platform/Services.h"
#include "shell/CursorState.h"
#include "shell/mod_Shell.h"
#include "tools/ChordManager.h"
#include "tools/Questions.h"

namespace Quillon::Tools {

using Core::Open;
using Core::StringCount;
using Library::ChordRec;

namespace {

constexpr const char* Muted = "x";

/// -1 for what is no fret.
int FretOf(const std::string& text) {
    const bool isNumber = !text.empty() && text.size() < 3 &&
                          std::ranges::all_of(text, [](unsigned char c) { return c >= '0' && c <= '9'; });
    return isNumber ? std::stoi(text) : -1;
}

}  // namespace

void ChordEditorModel::LoadNew() {
    *this = {};
    if (!Shell::InScore() || Shell::OnDrumTrack()) return;
    const Core::Track& track = Open.TabFile.Tracks[Open.CurTrack];
    if (track.Strings < LeastStrings) return;
    const Core::Strum& strum = track.Bars[Open.CurBar].Strums()[Open.CurStrum];
    Strings = track.Strings;
    int notes = 0;
    for (int string = 0; string < StringCount; ++string) {
        Tuning[string] = Core::ToInt16(Core::OpenPitch(track, string));
        const std::string& fret = strum.Notes[string].Fret;
        notes += FretOf(fret) >= 0 ? 1 : 0;
        if (string < Strings) Frets[string] = FretOf(fret) >= 0 && FretOf(fret) <= Library::MostNeckFret ? fret : Muted;
    }
    if (notes < 2) Frets = {};
    const auto names = Names();
    if (!names.empty()) Name = names.front();
    FollowShape();
}

bool ChordEditorModel::LoadChord(const std::string& name) {
    const ChordRec* const chord = Library::Chords.Find(name);
    if (!chord) return false;
    *this = {};
    Name = Before = name;
    Strings = chord->NumStrings;
    Tuning = chord->Tuning;
    Fingers = chord->Fingers;
    Barre = chord->ChordFlag;
    for (int string = 0; string < Strings; ++string) {
        const auto fret = Library::AbsoluteFret(*chord, string);
        Frets[string] = fret ? std::to_string(*fret) : Library::IsMuted(*chord, string) ? Muted : "";
    }
    FollowShape();
    return true;
}

ChordRec ChordEditorModel::Chord() const {
    Library::Row<std::string, StringCount> frets;
    for (int string = 0; string < Strings; ++string) frets[string] = Frets[string];
    ChordRec chord = Library::MakeChord(Strings, Barre, frets);
    chord.Tuning = Tuning;
    for (int string = 0; string < Strings; ++string) chord.Fingers[string] = Fingers[string];
    return chord;
}

std::string_view ChordEditorModel::Validate() const {
    if (Library::FileNameOf(Name).empty()) return "str_ChordNameMissing";
    if (Library::FileNameOf(Name) != Name) return "str_ChordNameSigns";
    return Library::PitchesOf(Chord()).empty() ? "str_ChordNoFrets" : "";
}

std::vector<std::string> ChordEditorModel::Names() const {
    const bool flats = Shell::InScore() && Drawing::KeyUsesFlats(Core::ReadBar(Open.CurTrack, Open.CurBar).Key);
    std::vector<std::string> names = Library::ChordNames(Library::PitchesOf(Chord()), flats);
    // No file name holds a "/".
    for (std::string& name : names) std::ranges::replace(name, '/', '-');
    return names;
}

std::string ChordEditorModel::FretsText() const {
    std::string text;
    for (int string = Strings - 1; string >= 0; --string) {
        text += Frets[string].empty() ? "-" : Frets[string];
        if (string > 0) text += ' ';
    }
    return text;
}

bool ChordEditorModel::SetFretsText(std::string_view text) {
    std::string words(text);
    std::ranges::replace(words, ',', ' ');
    // "x32010", as people write shapes of low frets.
    const bool parted = words.find(' ') != std::string::npos;
    std::vector<std::string> frets;
    std::istringstream in(words);
    for (std::string word; in >> word;) {
        if (parted)
            frets.push_back(word);
        else
            for (const char sign : word) frets.emplace_back(1, sign);
    }
    if (std::ssize(frets) != Strings) return false;
    for (std::string& fret : frets) {
        if (fret == "X") fret = Muted;
        if (fret == "-") fret.clear();
        if (fret.empty() || fret == Muted) continue;
        if (FretOf(fret) < 0 || FretOf(fret) > Library::MostNeckFret) return false;
        fret = std::to_string(FretOf(fret));
    }
    for (int string = 0; string < Strings; ++string) {
        Frets[string] = frets.at(static_cast<std::size_t>(Strings - 1 - string));
    }
    FollowShape();
    return true;
}

std::string ChordEditorModel::NoteOf(int string) const {
    const auto pitch = Library::PitchOn(Chord(), string);
    return pitch ? Library::PitchClassName(*pitch, Library::PrefersFlats(Name)) : std::string();
}

void ChordEditorModel::Press(int string, int row) {
    if (string < 0 || string >= Strings || row >= Rows) return;
    std::string& fret = Frets[string];
    if (row >= 0) {
        const std::string held = std::to_string(Top + row);
        fret = fret == held ? std::string() : held;
    } else {
        fret = fret == "0" ? Muted : fret == Muted ? "" : "0";
    }
    if (FretOf(fret) <= 0) Fingers[string] = 0;
}

void ChordEditorModel::MoveTop(int by) { Top = std::clamp(Top + by, 1, Library::MostNeckFret - Rows + 1); }

void ChordEditorModel::SetFinger(int string, int finger) {
    constexpr int Thumb = 5;
    if (string < 0 || string >= Strings || finger < 0 || finger > Thumb) return;
    Fingers[string] = Core::ToInt16(FretOf(Frets[string]) > 0 ? finger : 0);
}

void ChordEditorModel::SetStrings(int strings) {
    Strings = std::clamp(strings, LeastStrings, StringCount);
    for (int string = Strings; string < StringCount; ++string) {
        Frets[string].clear();
        Fingers[string] = 0;
    }
}

void ChordEditorModel::FollowShape() {
    int lowest = 0, highest = 0;
    for (int string = 0; string < Strings; ++string) {
        const int fret = FretOf(Frets[string]);
        if (fret > 0 && (lowest == 0 || fret < lowest)) lowest = fret;
        highest = std::max(highest, fret);
    }
    if (lowest == 0 || (lowest >= Top && highest < Top + Rows)) return;
    Top = highest <= Rows ? 1 : lowest;
    MoveTop(0);
}

double EditorBox::X(int string) const { return Left() + (Lefthanded ? string : Strings - 1 - string) * StringStep; }

double EditorBox::Y(int row) const { return row < 0 ? Top - 12 : Top + (row + 0.5) * FretStep; }

std::optional<EditorBox::Place> EditorBox::At(double x, double y) const {
    const int column = static_cast<int>(std::lround((x - Left()) / StringStep));
    if (column < 0 || column >= Strings || std::abs(x - Left() - column * StringStep) > StringStep / 2.0) return {};
    if (y < 0 || y >= Top + ChordEditorModel::Rows * FretStep) return {};
    const int row = y < Top ? -1 : static_cast<int>((y - Top) / FretStep);
    return Place{Lefthanded ? column : Strings - 1 - column, row};
}

namespace {

bool Save(const ChordEditorModel& model) {
    const std::filesystem::path file = Library::Chords.FileOf(model.Name);
    const bool renamed = model.Name != model.Before;
    if (renamed && Services.Files->Exists(file) && !Agrees("str_ChordReplace", {file.string()})) return false;
    Library::SaveChord(model.Name, model.Chord());
    if (renamed && !model.Before.empty()) Services.Files->Delete(Library::Chords.FileOf(model.Before));
    return true;
}

void EditAndSave(ChordEditorModel model) {
    if (!EditUntilSaved(model, [&model] { return Save(model); })) return;
    ChordFolderChanged();
    ShowChord(model.Name);
}

}  // namespace

void mnuAddNewChord_Click() {
    ChordEditorModel model;
    model.LoadNew();
    EditAndSave(std::move(model));
}

void mnuEditChord_Click() {
    ChordEditorModel model;
    if (model.LoadChord(CurrentChord())) EditAndSave(std::move(model));
}

}  // namespace Quillon::Tools
