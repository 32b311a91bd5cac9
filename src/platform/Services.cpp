#include "platform/Services.h"

namespace Quillon {

ServicesInUse Services;

}  // namespace Quillon
