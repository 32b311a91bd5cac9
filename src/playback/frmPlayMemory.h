// The hidden form that holds the player's timers. It is loaded when playing starts and unloaded when it stops, which
// destroys every timer, running or not.
#pragma once

#include <memory>
#include <vector>

#include "playback/ctlHiPreTimer.h"

namespace Quillon::Playback {

/// A control array of timers: one gesture of one note each. It grows when all are busy and never shrinks.
class TimerPool {
public:
    using Handler = void (*)(int index);

    /// Element 0 stands on the form from the start.
    explicit TimerPool(Handler timer);
    /// Index of the first element that is not enabled, a new one when all are.
    int Take();
    /// Says whose note an element works on, for StopOf.
    void SetTrack(int index, int track) { tracks.at(static_cast<std::size_t>(index)) = track; }
    /// Stops what works on a track.
    void StopOf(int track);
    ctlHiPreTimer& operator[](int index) { return *elements.at(static_cast<std::size_t>(index)); }
    int Count() const { return static_cast<int>(elements.size()); }
    int Running() const;

private:
    void Load();

    Handler handler;
    std::vector<std::unique_ptr<ctlHiPreTimer>> elements;
    std::vector<int> tracks;
};

struct frmPlayMemory {
    frmPlayMemory();

    ctlHiPreTimer PlayTimer;
    ctlHiPreTimer tmrMetronome;
    TimerPool tmrBend;
    TimerPool tmrTremBend;
    TimerPool tmrVibrato;
    TimerPool tmrSlide;
    TimerPool tmrTremPick;
    TimerPool tmrTrill;
    TimerPool tmrGrace;

    /// The effects that go on for a track end here and now.
    void StopEffectsOf(int track);
};

}  // namespace Quillon::Playback
