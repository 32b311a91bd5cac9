// The brackets over a repeat's endings: "|1.-------|2.-------|".
#pragma once

#include <string>
#include <vector>

namespace Quillon::Exchange {

struct EndingAbove {
    int Column = 0;
    std::string Text;  ///< "1.", "2nd time"
};

/// The endings that a line tells of, from the left; none when the line is anything else.
std::vector<EndingAbove> EndingsOf(const std::string& columns);

}  // namespace Quillon::Exchange
