// The services that the modules under measurement need, and a folder of their own.
#pragma once

#include <string_view>

namespace Quillon::Bench {

/// Fills Services with a fresh base folder, which it removes with itself.
class Setting {
public:
    Setting();
    ~Setting();
    Setting(const Setting&) = delete;
    Setting& operator=(const Setting&) = delete;
};

/// Tells what went wrong and ends the program: a number that was measured on nothing is worth nothing.
[[noreturn]] void Fail(std::string_view why);

}  // namespace Quillon::Bench
