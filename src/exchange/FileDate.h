// The date that files are given.
#pragma once

#include <string>

namespace Quillon::Exchange {

/// "YYYYMMDDHHNNSS": that of SOURCE_DATE_EPOCH, seconds since 1970, in UTC where that is set, else the clock's here.
std::string FileDate();

}  // namespace Quillon::Exchange
