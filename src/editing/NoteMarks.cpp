#include "editing/mod_NoteMarks.h"

#include "editing/mod_NoteEntry.h"

namespace Quillon::Editing {

using Core::Note;
using Core::OpenDocument;
using Core::Strum;

namespace {

template <class Record>
bool Toggle(Record& record, bool Record::*mark) {
    record.*mark = !(record.*mark);
    return true;
}

template <class Record>
bool Toggle(Record& record, std::int32_t Record::*field, std::int32_t code) {
    record.*field = record.*field == code ? 0 : code;
    return true;
}

}  // namespace

const Strum& StrumAtCursor(const OpenDocument& open) {
    return open.TabFile.Tracks[open.CurTrack].Bars[open.CurBar].Strums()[open.CurStrum];
}

Strum& EditStrumAtCursor(OpenDocument& open) {
    return open.TabFile.Tracks[open.CurTrack].Bars.Edit(open.CurBar).EditStrums()[open.CurStrum];
}

const Note& NoteAtCursor(const OpenDocument& open) { return StrumAtCursor(open).Notes[open.CurString]; }

Note& EditNoteAtCursor(OpenDocument& open) { return EditStrumAtCursor(open).Notes.Edit(open.CurString); }

bool IsMet(const OpenDocument& open, Needs needs) {
    switch (needs) {
        case Needs::Note:
            return NoteUnderCursor(open);
        case Needs::Strum:
            return !StrumIsEmpty(open.TabFile, open.CurTrack, open.CurBar, open.CurStrum);
        case Needs::Nothing:
            break;
    }
    return true;
}

bool ToggleMark(OpenDocument& open, bool Note::*mark) { return Toggle(EditNoteAtCursor(open), mark); }

bool ToggleMark(OpenDocument& open, bool Strum::*mark) { return Toggle(EditStrumAtCursor(open), mark); }

bool ToggleCode(OpenDocument& open, std::int32_t Note::*field, std::int32_t code) {
    return Toggle(EditNoteAtCursor(open), field, code);
}

bool ToggleCode(OpenDocument& open, std::int32_t Strum::*field, std::int32_t code) {
    return Toggle(EditStrumAtCursor(open), field, code);
}

bool SetCode(OpenDocument& open, std::int32_t Note::*field, std::int32_t code) {
    return NoteAtCursor(open).*field != code && (EditNoteAtCursor(open).*field = code, true);
}

bool SetCode(OpenDocument& open, std::int32_t Strum::*field, std::int32_t code) {
    return StrumAtCursor(open).*field != code && (EditStrumAtCursor(open).*field = code, true);
}

bool ToggleHash(OpenDocument& open) {
    Strum& strum = EditStrumAtCursor(open);
    strum.Hash = strum.Hash == 0 ? 1 : 0;
    return true;
}

}  // namespace Quillon::Editing
