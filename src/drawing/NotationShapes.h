// The shapes of the staff: heads, rests, flags, accidentals and clefs, worked out once from curves. There is no music
// font.
//
// Measures are pixels with staff lines 7 apart. The anchor of each shape is told beside it.
#pragma once

#include "platform/Picture.h"

namespace Quillon::Drawing {

enum class HeadKind { Whole, Half, Filled, DiamondOpen, Diamond, Slash };
enum class Accidental { None, Sharp, Flat, Natural };
/// Of heads, as columns that stand near each other need them.
enum class HeadSize { Full, Small, Tiny };
/// How large a head of this size is, 1 for a full one.
double ScaleOf(HeadSize size);
enum class Clef { Treble, Bass, Percussion };

/// Anchor: the middle.
const Shape& HeadShape(HeadKind kind, HeadSize size = HeadSize::Full);
/// The head of a grace note. Anchor: the middle.
const Shape& GraceHeadShape();
/// Anchor: the middle of the place that it belongs to.
const Shape& AccidentalShape(Accidental kind, bool small = false);
/// One flag of an eighth, or one of several. Anchor: the stem's end.
const Shape& FlagShape(bool stemUp, bool several);
/// The flag of a grace note, upward. Anchor: the stem's end.
const Shape& GraceFlagShape();
/// Rest of a length code 0 to 6. Anchor: the middle of the column on the staff's top line.
const Shape& RestShape(int length, HeadSize size = HeadSize::Full);
/// Anchor: the left end on the staff's top line.
const Shape& ClefShape(Clef clef);
/// Half of a pair of parentheses around a head. Anchor: the middle of the head.
const Shape& ParenthesesShape();

}  // namespace Quillon::Drawing
