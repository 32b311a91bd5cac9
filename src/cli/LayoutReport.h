// The layout of a track as numbers, for scripts and tests.
#pragma once

#include <optional>
#include <string>
#include <utility>

namespace Quillon::Cli {

struct LayoutOptions {
    int Track = 0;
    int Width = 1000;  ///< of the view, in pixels
    int Height = 800;
    int Paper = 0;  ///< index into the paper list
    bool Landscape = false;
    bool Stretch = false;
    int VScroll = 0;
    int HScroll = 0;
    bool Detail = false;
    std::optional<std::pair<int, int>> Click;  ///< one click after the layout, in view pixels
};

/// Lays the open document out and tells its bars as JSON; then clicks, when asked to, and tells where the cursor went.
/// The bars are those that were clicked on. Raises RunTimeError for a track or paper size that is not there.
std::string LayoutReport(const LayoutOptions& options);

}  // namespace Quillon::Cli
