// A string of the tuner, drawn: at rest, sounding, or left out of the run.
#pragma once

#include "platform/Picture.h"

namespace Quillon::Library {

struct TunerStringLook {
    int String = 0;  ///< 0 is the highest, and the thinnest
    bool Checked = true;
    bool Sounding = false;
};

/// Draws a string from edge to edge of a box from 0, 0. One that sounds swings.
void DrawTunerString(Picture& picture, const TunerStringLook& look, double width, double height);

}  // namespace Quillon::Library
