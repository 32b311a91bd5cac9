// quillon-cli layout FILE
#include <CLI/CLI.hpp>
#include <charconv>
#include <memory>
#include <optional>
#include <utility>

#include "cli/Commands.h"
#include "cli/DocumentFiles.h"
#include "cli/LayoutReport.h"
#include "drawing/mod_PageLayout.h"
#include "platform/RunTimeError.h"

namespace Quillon::Cli {

namespace {

constexpr int MostPixels = 32767;

struct Arguments {
    std::string File;
    std::string Click;
    LayoutOptions Options;
};

/// "X,Y", two whole numbers.
std::optional<std::pair<int, int>> PointOf(const std::string& text) {
    std::pair<int, int> point;
    const char* const end = text.data() + text.size();
    const auto [comma, first] = std::from_chars(text.data(), end, point.first);
    if (first != std::errc{} || comma == end || *comma != ',') return std::nullopt;
    const auto [stop, second] = std::from_chars(comma + 1, end, point.second);
    if (second != std::errc{} || stop != end) return std::nullopt;
    return point;
}

void TakeClick(Arguments& arguments) {
    if (arguments.Click.empty()) return;
    const auto point = PointOf(arguments.Click);
    const LayoutOptions& options = arguments.Options;
    if (!point || point->first < 0 || point->first >= options.Width || point->second < 0 ||
        point->second >= options.Height) {
        throw UsageError("--click: X,Y inside the view expected");
    }
    arguments.Options.Click = point;
}

}  // namespace

void AddLayout(CLI::App& app, Work& work) {
    CLI::App* command = app.add_subcommand("layout", "Prints where a track's bars and strums stand, as JSON");
    const auto arguments = std::make_shared<Arguments>();
    LayoutOptions& options = arguments->Options;
    command->add_option("FILE", arguments->File, "Document to open, by its ending")->required()->type_name("");
    command->add_option("--track", options.Track, "Track, from 0")->type_name("N");
    command->add_option("--width", options.Width, "Width of the view in pixels")
        ->check(CLI::Range(1, MostPixels))
        ->type_name("W");
    command->add_option("--height", options.Height, "Height of the view in pixels")
        ->check(CLI::Range(1, MostPixels))
        ->type_name("H");
    command->add_option("--paper", options.Paper, "Entry of the paper list, from 0")
        ->check(CLI::Range(0, Drawing::PaperSizeCount - 1))
        ->type_name("I");
    command->add_flag("--landscape", options.Landscape, "Paper lies on its long side");
    command->add_flag("--stretch", options.Stretch, "Pages take the size of the view");
    command->add_option("--vscroll", options.VScroll, "Vertical scroll value, 8 pixels a unit")
        ->check(CLI::Range(0, MostPixels))
        ->type_name("V");
    command->add_option("--hscroll", options.HScroll, "Horizontal scroll value, 10 pixels a unit")
        ->check(CLI::Range(0, MostPixels))
        ->type_name("H");
    command->add_flag("--detail", options.Detail, "Figures, heads, beam groups and tuplets too");
    command->add_option("--click", arguments->Click, "Click there after the layout and tell where the cursor went")
        ->type_name("X,Y");
    command->callback([arguments, &work] {
        work = [arguments] {
            TakeClick(*arguments);
            OpenWholeDocument(arguments->File);
            ChooseTrack(arguments->Options.Track);
            try {
                Print(LayoutReport(arguments->Options));
            } catch (const RunTimeError& error) {
                throw CommandFailure(arguments->File + ": " + error.Description());
            }
            return static_cast<int>(Done);
        };
    });
}

}  // namespace Quillon::Cli
