#include "cli/CursorReport.h"

#include <nlohmann/json.hpp>

#include "core/mod_TabFileStructure.h"

namespace Quillon::Cli {

using Core::Open;

nlohmann::ordered_json CursorReport() {
    return {{"CurTrack", Open.CurTrack},
            {"CurBar", Open.CurBar},
            {"CurStrum", Open.CurStrum},
            {"CurString", Open.CurString},
            {"CurPitch", Open.CurPitch},
            {"InputMode", Open.InputMode},
            {"FileChanged", Open.FileChanged ? 1 : 0}};
}

}  // namespace Quillon::Cli
