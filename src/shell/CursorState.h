// What the rows of the command table ask about the note, and the strum, under the cursor.
//
// While a document is replaced, commands may be asked about a cursor of the one before: it stands on nothing then.
#pragma once

#include "core/mod_TabFileStructure.h"
#include "editing/mod_NoteMarks.h"

namespace Quillon::Shell {

/// True when the open document has the cursor's track, and that has frets, or drums.
bool OnFrettedTrack();
bool OnDrumTrack();
/// True when it has a bar where the cursor stands.
bool OnBar();
/// The same for a strum.
bool InScore();
/// The same for a string in use.
bool OnStrum();
/// The same on a track that is not drums, whose strings have frets.
bool OnFrets();

/// True when the cursor stands on a note: of any track, or of one with frets.
bool OnNote();
bool OnFrettedNote();
/// True when a track with frets has a note, or a slash, on the cursor's strum.
bool OnFrettedChord();

template <bool Core::Note::*Mark>
bool NoteHas() {
    return OnStrum() && Editing::NoteAtCursor(Core::Open).*Mark;
}

/// A code is a note's only where there is a note.
template <std::int32_t Core::Note::*Field, std::int32_t Code>
bool NoteIs() {
    return OnNote() && Editing::NoteAtCursor(Core::Open).*Field == Code;
}

template <std::int32_t Core::Strum::*Field, std::int32_t Code>
bool StrumIs() {
    return OnStrum() && Editing::StrumAtCursor(Core::Open).*Field == Code;
}

/// The handler of a list with one of its entries.
template <void (*Handler)(std::int32_t), std::int32_t Entry>
void RunEntry() {
    Handler(Entry);
}

}  // namespace Quillon::Shell
