#include "platform/RunTimeError.h"

namespace Quillon {

void RaiseOverflow() { throw RunTimeError(6, "Overflow"); }
void RaiseOutOfMemory() { throw RunTimeError(7, "Out of memory"); }
void RaiseSubscriptOutOfRange() { throw RunTimeError(9, "Subscript out of range"); }
void RaiseTypeMismatch() { throw RunTimeError(13, "Type mismatch"); }

}  // namespace Quillon
