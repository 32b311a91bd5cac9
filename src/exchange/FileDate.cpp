#include "exchange/FileDate.h"

#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <string_view>

namespace Quillon::Exchange {

std::string FileDate() {
    std::time_t when = std::time(nullptr);
    std::tm parts{};
    const char* const epoch = std::getenv("SOURCE_DATE_EPOCH");
    const std::string_view text = epoch ? epoch : "";
    constexpr std::int64_t endOfYear9999 = 253'402'300'799;  // the form has four digits for a year
    std::int64_t seconds = 0;
    const auto [end, wrong] = std::from_chars(text.data(), text.data() + text.size(), seconds);
    const bool given = !text.empty() && wrong == std::errc() && end == text.data() + text.size();
    if (given && seconds >= 0 && seconds <= endOfYear9999) {
        when = seconds;
        gmtime_r(&when, &parts);
    } else {
        localtime_r(&when, &parts);
    }
    char date[32];
    const std::size_t length = std::strftime(date, sizeof(date), "%Y%m%d%H%M%S", &parts);
    return {date, length};
}

}  // namespace Quillon::Exchange
