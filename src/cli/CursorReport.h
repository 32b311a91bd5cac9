// The cursor of the open document as JSON.
#pragma once

#include <nlohmann/json_fwd.hpp>

namespace Quillon::Cli {

/// All numbers: flags are 0 and 1.
nlohmann::ordered_json CursorReport();

}  // namespace Quillon::Cli
