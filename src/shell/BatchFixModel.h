// Which bars are not as long as their time signature asks, and what fixing them does.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "editing/mod_BarsAndTracks.h"
#include "shell/DialogModel.h"

namespace Quillon::Shell {

struct BatchFixModel : DialogModel {
    struct BarState {
        int Track = 0;
        int Bar = 0;
        Editing::Fullness Is = Editing::Fullness::Full;
        double Difference = 0;  ///< 64ths that are missing, or too many
    };

    std::int16_t Tracks = 0;  ///< 0: the current one, 1: all

    void Load();
    /// The bars of the tracks in mind, by track and bar.
    std::vector<BarState> Bars() const;
    /// "full", or "1/8 short".
    static std::string StateText(const BarState& bar);
    static int Count(const std::vector<BarState>& bars, Editing::Fullness which);
    bool Apply() const;
};

/// Fixes the bars in mind and shows it. Asks first when beats would be dropped.
void FixBars(const BatchFixModel& model);

}  // namespace Quillon::Shell
