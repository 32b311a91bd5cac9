#include "platform/portable/MachineLocale.h"

#include <langinfo.h>
#include <locale.h>  // newlocale is no part of <clocale>

#include <string_view>

namespace Quillon {

char MachineDecimalSign() {
    const locale_t machine = newlocale(LC_NUMERIC_MASK, "", nullptr);
    if (!machine) return '.';
    const bool comma = std::string_view(nl_langinfo_l(RADIXCHAR, machine)) == ",";
    freelocale(machine);
    return comma ? ',' : '.';
}

}  // namespace Quillon
