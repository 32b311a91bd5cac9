// The operations on bars that moving and typing need.
#pragma once

#include "core/mod_TabFileStructure.h"

namespace Quillon::Editing {

enum class Fullness { Under, Full, Over };

/// Compares what the strums of a bar last with what its time signature asks for, in 64ths, both rounded to three
/// decimals so that tuplets that add up do add up.
Fullness BarFullness(const Core::TabFile& file, int track, int bar);

/// One bar more at the end of every track, each with one strum; sets FileChanged.
void AppendBar();

}  // namespace Quillon::Editing
