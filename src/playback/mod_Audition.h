// One strum heard by itself, with its effects: what a dialog is about to write into the score.
//
// It has a player's timers and arrays of its own, works on a document of the caller's, and does not count as playing.
#pragma once

#include "core/mod_TabFileStructure.h"
#include "playback/PlayScore.h"

namespace Quillon::Playback {

/// Sounds the strum as the player would, its grace notes ahead of it, and silences it once it has lasted. What was
/// heard before ends. Does nothing while a song plays, and for a place outside the document.
void Audition(Core::TabFile file, const StrumPlace& at);
/// Silences it, puts the wheel back, and lets the timers go; before Services.Timers goes.
void EndAudition();
bool IsAuditioning();

}  // namespace Quillon::Playback
