// Notes of a strum on other strings: the search that moving music and retuning strings share.
#pragma once

#include "core/mod_TabFileStructure.h"
#include "editing/mod_Transpose.h"

namespace Quillon::Editing {

/// What a strum's notes are to become.
struct Refingering {
    const Core::Track& From;  ///< the strings that its frets are written for
    const Core::Track& To;    ///< the strings that are to play them
    int Semitones = 0;        ///< higher than they are
    bool KeepFrets = false;   ///< of notes whose string stays; else they keep their pitch
    bool DropLost = false;    ///< takes out the notes of strings that To lacks; else those go to other strings
};

/// Puts the notes on strings where their frets lie from 0 to HighestFret, grace notes and trills with them, as near to
/// their strings as can be. A dead note stays on its string while there is one. `links` as for TransposeStrum. False
/// when there is no way; then nothing has changed.
bool Refinger(const Refingering& wanted, Core::Strum& strum, StringsTo& links);

}  // namespace Quillon::Editing
