#include <algorithm>
#include <array>
#include <charconv>

#include "core/mod_Common.h"
#include "core/mod_TabFileStructure.h"
#include "editing/mod_Selection.h"
#include "shell/DialogModels.h"

namespace Quillon::Shell {

using Core::Open;

namespace {

/// Whole numbers alone, as a person types them; nothing else, and nothing that 16 bits can't hold.
std::optional<int> Whole(const std::string& field) {
    const std::string_view text = Core::TrimBlanks(field);
    int value = 0;
    const auto [stop, problem] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (problem != std::errc{} || stop != text.data() + text.size() || value > 32767) return {};
    return value;
}

}  // namespace

int SpeedTrainerModel::TempoOfSong() {
    return std::clamp(Core::CLng(static_cast<double>(Open.TabFile.Tempo)), 1, MostTempo);
}

void SpeedTrainerModel::Load() {
    const auto whole = Editing::BarRange{0, Core::ToInt16(Open.TabFile.BarInfos.UpperBound())};
    const auto bars = Editing::SelectedBars().value_or(whole);
    const int tempo = TempoOfSong();
    Fields.txtFromBar = std::to_string(bars.From + 1);
    Fields.txtToBar = std::to_string(bars.To + 1);
    Fields.txtLoops = "10";
    Fields.txtInitialTempo = std::to_string(std::max(1, tempo * 6 / 10));
    Fields.txtFinalTempo = std::to_string(tempo);
    Fields.txtTempoIncrease = std::to_string(std::max(1, tempo * 5 / 100));
}

std::string_view SpeedTrainerModel::Validate() const {
    const int bars = Open.TabFile.BarInfos.Count();
    const auto within = [](const std::optional<int>& value, int least, int most) {
        return value && *value >= least && *value <= most;
    };
    const auto from = Whole(Fields.txtFromBar);
    const auto to = Whole(Fields.txtToBar);
    const auto initial = Whole(Fields.txtInitialTempo);
    const auto final = Whole(Fields.txtFinalTempo);
    if (!within(from, 1, bars) || !within(to, 1, bars)) return "str_TrainerBarMissing";
    if (*from > *to) return "str_TrainerBarOrder";
    if (!within(Whole(Fields.txtLoops), 1, 32767)) return "str_TrainerLoops";
    if (!within(initial, 1, MostTempo) || !within(final, 1, MostTempo)) return "str_TrainerTempo";
    if (*initial > *final) return "str_TrainerTempoOrder";
    if (!within(Whole(Fields.txtTempoIncrease), 0, MostTempo)) return "str_TrainerIncrease";
    return "";
}

}  // namespace Quillon::Shell
