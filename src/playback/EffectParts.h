// What the sources of mod_Effects share.
#pragma once

#include <vector>

#include "playback/mod_Effects.h"

namespace Quillon::Playback {

/// The state of element `index`; grows the array to it.
template <class State>
State& ElementOf(std::vector<State>& states, int index) {
    const auto at = static_cast<std::size_t>(index);
    if (states.size() <= at) states.resize(at + 1);
    return states[at];
}

/// Takes the first free element of a pool for a note of `track` and lets `fill` set its state.
template <class State, class Fill>
int TakeElement(TimerPool& pool, std::vector<State>& states, int track, const Fill& fill) {
    const int index = pool.Take();
    pool.SetTrack(index, track);
    pool[index].SetEnabled(false);
    fill(ElementOf(states, index));
    return index;
}

/// Rounds milliseconds to the nearest, and starts the timer.
void StartTimer(ctlHiPreTimer& timer, double milliseconds);

inline const Core::Note& NoteOf(const EffectStage& stage, const EffectNote& note) {
    return stage.StrumOf(note.At).Notes[note.String];
}

/// The note's pitch with the octave shift, as text.
std::string ShiftedPitch(const EffectStage& stage, const EffectNote& note);

}  // namespace Quillon::Playback
