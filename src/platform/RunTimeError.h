// The one exception of the system. It carries the number and the description that a message box shows.
#pragma once

#include <stdexcept>
#include <string>

namespace Quillon {

class RunTimeError : public std::runtime_error {
public:
    RunTimeError(int number, const std::string& description) : std::runtime_error(description), Number(number) {}
    std::string Description() const { return what(); }

    int Number;
};

[[noreturn]] void RaiseOverflow();             // 6, "Overflow"
[[noreturn]] void RaiseOutOfMemory();          // 7, "Out of memory"
[[noreturn]] void RaiseSubscriptOutOfRange();  // 9, "Subscript out of range"
[[noreturn]] void RaiseTypeMismatch();         // 13, "Type mismatch"

}  // namespace Quillon
