#include "playback/frmPlayMemory.h"

#include <algorithm>

#include "playback/mod_Effects.h"
#include "playback/mod_TabPlayer.h"

namespace Quillon::Playback {

namespace {

/// As fine as the system can.
constexpr std::int32_t FinestResolution = 1;

void SetUp(ctlHiPreTimer& timer) {
    timer.SetResolution(FinestResolution);
    timer.SetPeriodic(true);
}

}  // namespace

TimerPool::TimerPool(Handler timer) : handler(timer) { Load(); }

void TimerPool::Load() {
    const int index = Count();
    tracks.push_back(0);
    SetUp(*elements.emplace_back(std::make_unique<ctlHiPreTimer>([act = handler, index] { act(index); })));
}

int TimerPool::Take() {
    const auto found = std::ranges::find_if(elements, [](const auto& each) { return !each->Enabled(); });
    const auto index = static_cast<int>(found - elements.begin());
    if (index == Count()) Load();
    return index;
}

void TimerPool::StopOf(int track) {
    for (std::size_t i = 0; i < elements.size(); ++i) {
        if (tracks[i] == track) elements[i]->SetEnabled(false);
    }
}

int TimerPool::Running() const {
    return static_cast<int>(std::ranges::count_if(elements, [](const auto& each) { return each->Enabled(); }));
}

frmPlayMemory::frmPlayMemory()
    : PlayTimer([] { PlayTimer_Timer(); }),
      tmrMetronome([] { tmrMetronome_Timer(); }),
      tmrBend(&tmrBend_Timer),
      tmrTremBend(&tmrTremBend_Timer),
      tmrVibrato(&tmrVibrato_Timer),
      tmrSlide(&tmrSlide_Timer),
      tmrTremPick(&tmrTremPick_Timer),
      tmrTrill(&tmrTrill_Timer),
      tmrGrace(&tmrGrace_Timer) {
    SetUp(PlayTimer);
    SetUp(tmrMetronome);
}

void frmPlayMemory::StopEffectsOf(int track) {
    for (TimerPool* pool : {&tmrBend, &tmrTremBend, &tmrVibrato, &tmrSlide, &tmrTremPick, &tmrTrill, &tmrGrace}) {
        pool->StopOf(track);
    }
}

}  // namespace Quillon::Playback
