// What was typed sounds at once, and ends by a timer: nothing else would end it.
#include <algorithm>
#include <memory>

#include "core/mod_Common.h"
#include "core/mod_TabFileManipulation.h"
#include "editing/mod_NoteEntry.h"
#include "editing/mod_NoteMarks.h"
#include "playback/MIDI_CMD.h"
#include "playback/ctlHiPreTimer.h"
#include "playback/mod_TabPlayer.h"

namespace Quillon::Editing {

using Core::Open;

namespace {

constexpr double MillisecondsOf64th = 3750;  // at a quarter note a minute

std::unique_ptr<Playback::ctlHiPreTimer> tmr_stop;

}  // namespace

void SoundTypedNote(double length) {
    EndTypedNote();
    const std::int32_t stroke = Core::ReadStrum(Open.CurTrack, Open.CurBar, Open.CurStrum).Stroke;
    Playback::PlayChord(Open.CurTrack, Open.CurBar, Open.CurStrum, true, stroke == UpStroke);
    // Twice what it is written for: one listens to a note that stands alone.
    constexpr double longest = 60'000;
    const double lasts = 2 * MillisecondsOf64th / static_cast<double>(Open.TabFile.Tempo) * length;
    tmr_stop = std::make_unique<Playback::ctlHiPreTimer>(&tmr_stop_Timer);
    tmr_stop->SetInterval(Core::CLng(std::clamp(lasts, 1.0, longest)));
    tmr_stop->SetEnabled(true);
}

void EndTypedNote() { tmr_stop.reset(); }

void tmr_stop_Timer() {
    EndTypedNote();
    if (!Playback::IsPlaying()) Playback::MidiAllChannelsOff();
}

}  // namespace Quillon::Editing
