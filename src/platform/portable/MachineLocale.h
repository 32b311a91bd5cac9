// The one place that asks the machine for its decimal convention.
#pragma once

namespace Quillon {

/// The decimal sign of the locale of the environment: "." or ",". Any other counts as ".". The program's own locale
/// stays "C".
char MachineDecimalSign();

}  // namespace Quillon
