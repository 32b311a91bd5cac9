// Chords that a hand struck string by string.
#pragma once

#include <vector>

#include "exchange/MidiGrid.h"

namespace Quillon::Exchange {

/// Gives one start to notes that follow each other too fast to be meant one by one: three or more, up or down, a few
/// hundredths of a second between them, which all sound on behind the last of them. `notes` by start, and so they stay;
/// `tempos` by start, 120 quarters a minute before the first.
void GatherStrokes(std::vector<GridNote>& notes, const std::vector<GridTempo>& tempos);

}  // namespace Quillon::Exchange
