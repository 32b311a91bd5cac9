#include "shell/BatchFixModel.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "core/mod_TabFileManipulation.h"
#include "editing/mod_Cursor.h"
#include "shell/mod_Shell.h"

namespace Quillon::Shell {

using Core::Open;
using Editing::Fullness;

namespace {

constexpr std::int64_t Whole = 64;

/// A length in 64ths as people write it: "3/8", or in quarters what no fraction tells.
std::string LengthText(double length) {
    if (length != std::floor(length)) {
        return Core::LanguageText("str_Quarters", {Core::FormatDouble(std::round(length * 100 / 16) / 100)});
    }
    const std::int64_t count = std::llround(length);  // of a time signature as large as a file may say
    const std::int64_t common = std::gcd(count, Whole);
    return std::to_string(count / common) + "/" + std::to_string(Whole / common);
}

}  // namespace

void BatchFixModel::Load() { *this = {}; }

std::vector<BatchFixModel::BarState> BatchFixModel::Bars() const {
    std::vector<BarState> bars;
    const Core::TabFile& file = Open.TabFile;
    for (int t = 0; t < file.Tracks.Count(); ++t) {
        if (Tracks == 0 && t != Open.CurTrack) continue;
        for (int b = 0; b < file.Tracks[t].Bars.Count(); ++b) {
            const double filled = Core::BarLength64ths(file.Tracks[t].Bars[b]);
            bars.push_back(
                {t, b, Editing::BarFullness(file, t, b), std::abs(filled - Core::BarLengthIn64ths(file, b))});
        }
    }
    return bars;
}

std::string BatchFixModel::StateText(const BarState& bar) {
    if (bar.Is == Fullness::Full) return Core::LanguageText("str_BarFull");
    return Core::LanguageText(bar.Is == Fullness::Under ? "str_BarUnder" : "str_BarOver", {LengthText(bar.Difference)});
}

int BatchFixModel::Count(const std::vector<BarState>& bars, Fullness which) {
    return static_cast<int>(std::ranges::count(bars, which, &BarState::Is));
}

bool BatchFixModel::Apply() const {
    Core::TabFile fixed = Open.TabFile;  // a bar that can't be filled leaves all as they were
    for (const BarState& bar : Bars()) Editing::FixThisBar(fixed, bar.Track, bar.Bar);
    if (fixed == Open.TabFile) return false;
    Open.TabFile = std::move(fixed);
    MarkEdited();
    Editing::ClampCursor();
    return true;
}

}  // namespace Quillon::Shell
