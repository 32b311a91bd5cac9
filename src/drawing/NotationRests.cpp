// Rests.
#include <cmath>

#include "drawing/NotationParts.h"

namespace Quillon::Drawing {

void DrawRest(Picture& picture, const StaffBar& bar, int strum) {
    const StaffColumn& column = bar.Column(strum);
    picture.Stamp(RestShape(bar.Strum(strum).Length, column.Size), column.X, bar.Place.Top + column.RestDrop);
}

void DrawBarRest(Picture& picture, const StaffBar& bar) {
    const double left = bar.Count() > 0 ? bar.Column(0).X : bar.Context.X;
    picture.Stamp(RestShape(0), std::round((left + bar.Right()) / 2), bar.Place.Top);
}

}  // namespace Quillon::Drawing
