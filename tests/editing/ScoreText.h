// A score in a line of text, and keys by their names, so that what keys do fits a row of a table.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>

#include "core/mod_Settings.h"
#include "core/mod_TabFileManipulation.h"
#include "drawing/mod_PageLayout.h"
#include "editing/mod_Cursor.h"
#include "editing/mod_NoteEntry.h"
#include "editing/mod_Undo.h"
#include "platform/Services.h"
#include "tests/support/RememberingBox.h"

namespace Quillon::Editing {

/// "2.t0{0:5bg 1:x}V1" : length, dot, tuplet kind, notes by string with their marks, and the strum's.
inline std::string TextOf(const Core::Strum& strum) {
    std::ostringstream text;
    text << strum.Length << (strum.Dotted ? "." : "");
    if (strum.HasTuplet) text << 't' << strum.Tuplet;
    std::string notes;
    for (int s = 0; s < Core::StringCount; ++s) {
        const Core::Note& note = strum.Notes[s];
        if (note == Core::Note{}) continue;
        notes += (notes.empty() ? "" : " ") + std::to_string(s) + ":" + note.Fret;
        if (note.HasBend) notes += 'b';
        if (note.Ghost) notes += 'g';
        if (note.LetRing) notes += 'r';
        if (note.Tied) notes += 'l';
        if (note.Accentuate) notes += 'a';
        if (note.Technique != 0) notes += "h" + std::to_string(note.Technique);
        if (note.LeftFinger != 0) notes += "f" + std::to_string(note.LeftFinger);
    }
    if (!notes.empty()) text << '{' << notes << '}';
    if (strum.Technique != 0) text << 'V' << strum.Technique;
    if (strum.Stroke != 0) text << 'S' << strum.Stroke;
    if (!strum.Text.empty()) text << '"' << strum.Text << '"';
    return text.str();
}

/// The strums of a track, bars divided by "|".
inline std::string TextOf(const Core::TabFile& file, int track = 0) {
    std::string text;
    for (int b = 0; b < file.Tracks[track].Bars.Count(); ++b) {
        if (b > 0) text += " |";
        for (const Core::Strum& strum : file.Tracks[track].Bars[b].Strums()) {
            text += (text.empty() ? "" : " ") + TextOf(strum);
        }
    }
    return text;
}

/// Sends keys by name: letters and digits, "Right", "Pad-"; with "+" before them shift is held, with "^" control.
inline void Type(const std::string& keys) {
    static const std::map<std::string, int> names = {
        {"Left", KeyLeft},  {"Right", KeyRight}, {"Up", KeyUp},          {"Down", KeyDown}, {"Del", KeyDelete},
        {"Ins", KeyInsert}, {"Enter", KeyEnter}, {"Back", KeyBackspace}, {"Pad-", 109},     {"Pad+", 107},
        {"Pad.", 110},      {"Minus", 189},      {"Plus", 187},          {"Period", 190},   {"Pad0", 96},
        {"Pad9", 105},      {"ShiftItself", 16}, {"ControlItself", 17}};
    std::istringstream words(keys);
    for (std::string word; words >> word;) {
        int shift = 0;
        for (; word.size() > 1 && (word[0] == '+' || word[0] == '^'); word.erase(0, 1)) shift |= word[0] == '+' ? 1 : 2;
        const auto found = names.find(word);
        ASSERT_TRUE(found != names.end() || word.size() == 1) << word;
        picDocument_KeyDown(found != names.end() ? found->second : word[0], shift);
    }
}

/// One track of one empty quarter in 4/4, on services that ask nobody.
class EntryTest : public testing::Test {
protected:
    EntryTest() {
        Reset();
        Services.Messages = &box;
        New();
    }
    ~EntryTest() override {
        Services = {};
        Reset();
    }
    static void New() {
        Core::Open = {};
        Core::EditStrum(0, 0, 0).Length = 2;
        ResetCursor(Core::Open);
        ClearUndo();
    }
    static void NewDrums() {
        New();
        Core::Track& track = Core::Open.TabFile.Tracks[0];
        track.IsDrum = true;
        track.PercStrings = DefaultDrumSounds();
        ResetCursor(Core::Open);
    }
    static int Steps() {
        int steps = 0;
        for (const UndoSlot& slot : Undone.UndoStack) steps += slot.Valid;
        return steps;
    }
    static std::string Score(int track = 0) { return TextOf(Core::Open.TabFile, track); }
    static std::string Cursor() {
        using Core::Open;
        return std::to_string(Open.CurBar) + " " + std::to_string(Open.CurStrum) + " " + std::to_string(Open.CurString);
    }

    Testing::RememberingBox box;

private:
    static void Reset() {
        Core::Open = {};
        Core::Settings = {};
        Drawing::Page = {};
        Entry = {};
        Undone = {};
        MayEdit = [] { return true; };
    }
};

}  // namespace Quillon::Editing
