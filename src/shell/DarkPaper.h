// The colours of a page on dark paper, for the screen alone.
#pragma once

#include "platform/Picture.h"

namespace Quillon::Shell {

/// White becomes the dark paper, black the light ink; every other colour keeps its hue and about its distance from the
/// paper.
Color OnDarkPaper(Color color);

}  // namespace Quillon::Shell
