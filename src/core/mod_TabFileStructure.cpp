#include "core/mod_TabFileStructure.h"

namespace Quillon::Core {

OpenDocument Open;

}  // namespace Quillon::Core
