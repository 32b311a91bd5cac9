#include "exchange/FileDate.h"

#include <charconv>
#include <cstdlib>
#include <ctime>
#include <string_view>

namespace Quillon::Exchange {

std::string FileDate() {
    std::time_t when = std::time(nullptr);
    std::tm parts{};
    const char* const epoch = std::getenv("SOURCE_DATE_EPOCH");
    const std::string_view text = epoch ? epoch : "";
    if (!text.empty() && std::from_chars(text.data(), text.data() + text.size(), when).ec == std::errc()) {
        gmtime_r(&when, &parts);
    } else {
        localtime_r(&when, &parts);
    }
    char date[32];
    const std::size_t length = std::strftime(date, sizeof(date), "%Y%m%d%H%M%S", &parts);
    return {date, length};
}

}  // namespace Quillon::Exchange
