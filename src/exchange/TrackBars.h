// Bars of tracks that an import has written, made as many for all of them.
#pragma once

#include "core/mod_TabFileStructure.h"

namespace Quillon::Exchange {

/// As many bars for each track, and for BarInfos, as the longest of them has; the added ones are empty, and filled with
/// rests when `fill` is set. A bar info that is added has the time signature of the one before.
void EvenOutBars(Core::TabFile& file, bool fill);

}  // namespace Quillon::Exchange
