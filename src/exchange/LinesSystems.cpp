#include "exchange/LinesSystems.h"

#include <algorithm>
#include <array>
#include <map>

#include "core/mod_Common.h"
#include "core/mod_TabFileManipulation.h"

namespace Quillon::Exchange {

namespace {

constexpr int MostStrings = Core::StringCount;

/// Runs of neighbouring lines that are strings.
using Run = std::vector<StringLine>;

/// True when most lines that are strings stand alone with one empty line between them: the text is set double.
bool IsDoubleSpaced(const std::vector<TextColumns>& lines, const std::vector<std::optional<StringLine>>& strings) {
    int beside = 0, apart = 0;
    for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
        if (!strings[i]) continue;
        if (strings[i + 1]) ++beside;
        if (i + 2 < lines.size() && lines[i + 1].IsBlank() && strings[i + 2]) ++apart;
    }
    return apart > 4 * beside;
}

std::vector<Run> RunsOf(const std::vector<TextColumns>& lines) {
    std::vector<std::optional<StringLine>> strings(lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        strings[i] = StringLineOf(lines[i]);
        if (strings[i]) strings[i]->Line = static_cast<int>(i);
    }
    const std::size_t step = IsDoubleSpaced(lines, strings) ? 2 : 1;
    std::vector<Run> runs;
    std::size_t next = lines.size();  // the line that would go on with the last run
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (!strings[i]) continue;
        const bool goesOn = i == next || (step == 2 && i + 1 == next);
        if (!goesOn) runs.emplace_back();
        next = i + step;
        runs.back().push_back(std::move(*strings[i]));
    }
    return runs;
}

/// Cuts a run where its labels begin anew.
std::vector<Run> CutAtLabels(Run run) {
    std::vector<Run> parts(1);
    for (std::size_t i = 0; i < run.size(); ++i) {
        const Run& part = parts.back();
        const bool again = part.size() >= static_cast<std::size_t>(FewestStrings) && !run[i].Label.empty() &&
                           run[i].Label == part[0].Label &&
                           (i + 1 == run.size() ? false : run[i + 1].Label == part[1].Label);
        if (again) parts.emplace_back();
        parts.back().push_back(std::move(run[i]));
    }
    return parts;
}

bool HasLabels(const Run& run) {
    return 2 * std::ranges::count_if(run, [](const auto& line) { return !line.Label.empty(); }) >
           static_cast<std::ptrdiff_t>(run.size());
}

bool HasFrets(const StringLine& line, const std::vector<TextColumns>& lines) {
    const std::string& columns = lines[static_cast<std::size_t>(line.Line)].Columns;
    return std::any_of(columns.begin() + line.Body, columns.begin() + line.End,
                       [](char c) { return (c >= '0' && c <= '9') || c == 'x' || c == 'X'; });
}

/// The commonest number of strings of the runs that are of a size for one system; 6 without any.
std::size_t CommonSize(const std::vector<Run>& runs) {
    std::array<int, MostStrings + 1> counts{};
    for (const Run& run : runs) {
        if (run.size() >= FewestStrings && run.size() <= MostStrings) ++counts[run.size()];
    }
    counts[6] += 1;  // of equals, as most guitars have
    const auto* const most = std::max_element(counts.begin(), counts.end());
    return counts[6] > 1 && *most == counts[6] ? 6 : static_cast<std::size_t>(most - counts.begin());
}

/// How many lines each system of a run without labels has.
std::size_t SizeToCut(std::size_t lines, std::size_t common) {
    for (const std::size_t size : {common, std::size_t{6}, std::size_t{4}, std::size_t{7}, std::size_t{5}}) {
        if (lines % size == 0) return size;
    }
    return common;
}

class Finder {
public:
    explicit Finder(const std::vector<TextColumns>& of) : lines(of) {}

    FoundSystems Find() {
        found.Used.assign(lines.size(), false);
        std::vector<Run> runs;
        for (Run& run : RunsOf(lines)) {
            DropRulers(run);
            for (Run& part : CutAtLabels(std::move(run))) runs.push_back(std::move(part));
        }
        const std::size_t common = CommonSize(runs);
        std::vector<Run> parts;
        for (Run& run : runs) {
            if (run.size() > MostStrings) {
                CutEvenly(run, SizeToCut(run.size(), common), parts);
            } else {
                parts.push_back(std::move(run));
            }
        }
        ReadLabels(parts, common);
        for (Run& part : parts) Take(std::move(part));
        return std::move(found);
    }

private:
    /// A line without a label and without frets beside labelled ones is drawn there for the eye.
    void DropRulers(Run& run) const {
        if (HasLabels(run)) {
            std::erase_if(run, [&](const auto& line) { return line.Label.empty() && !HasFrets(line, lines); });
        } else if (run.size() > 1 && !HasBarLines(run.front()) && HasBarLines(run[1])) {
            if (!HasFrets(run.front(), lines)) run.erase(run.begin());
        }
    }

    bool HasBarLines(const StringLine& line) const {
        const std::string& columns = lines[static_cast<std::size_t>(line.Line)].Columns;
        return columns.find('|') != std::string::npos;
    }

    void CutEvenly(Run& run, std::size_t size, std::vector<Run>& parts) {
        for (std::size_t at = 0; at < run.size(); at += size) {
            const auto from = run.begin() + static_cast<std::ptrdiff_t>(at);
            const auto to = run.begin() + static_cast<std::ptrdiff_t>(std::min(at + size, run.size()));
            parts.emplace_back(std::make_move_iterator(from), std::make_move_iterator(to));
        }
    }

    static std::vector<std::string> LabelsOf(const Run& run) {
        std::vector<std::string> labels;
        for (const StringLine& line : run) labels.push_back(line.Label);
        return labels;
    }

    /// The labels that most systems bear tell the tuning, and whether the lowest string stands at the top.
    void ReadLabels(const std::vector<Run>& parts, std::size_t common) {
        std::map<std::vector<std::string>, int> counts;
        int systems = 0;
        for (const Run& part : parts) {
            if (part.size() != common) continue;
            ++systems;
            if (HasLabels(part)) ++counts[LabelsOf(part)];
        }
        if (systems > 0) found.Strings = static_cast<int>(common);
        const auto most = std::ranges::max_element(counts, {}, [](const auto& entry) { return entry.second; });
        if (most == counts.end()) return;
        labels = most->first;
        int distance = 0, turned = 0;
        const auto tuning = TuningOf(labels, &distance);
        std::vector<std::string> reversed(labels.rbegin(), labels.rend());
        const auto other = TuningOf(reversed, &turned);
        const bool numbers = labels.front() > labels.back() && !labels.back().empty() && labels.back().front() == '1' &&
                             labels.front().front() >= '4';
        upsideDown = numbers || (other && turned < distance && turned <= 2);
        found.Tuning = upsideDown ? other : tuning;
        if (upsideDown) labels = reversed;
    }

    /// Lines of fewer strings than a system has, each placed by its label.
    bool PlaceByLabels(Run& run) const {
        if (run.size() >= FewestStrings || labels.empty()) return false;
        Run placed(labels.size());
        std::size_t next = 0;
        for (const StringLine& line : run) {
            const auto at = std::find(labels.begin() + static_cast<std::ptrdiff_t>(next), labels.end(), line.Label);
            if (line.Label.empty() || at == labels.end()) return false;
            next = static_cast<std::size_t>(at - labels.begin()) + 1;
            placed[next - 1] = line;
        }
        for (StringLine& line : placed) {
            if (line.Label.empty()) line.Line = -1;  // a string that is not written
        }
        run = std::move(placed);
        return true;
    }

    void Take(Run run) {
        for (const StringLine& line : run) found.Used[static_cast<std::size_t>(line.Line)] = true;
        const int first = run.front().Line;
        const int last = run.back().Line;
        if (upsideDown && (HasLabels(run) || static_cast<int>(run.size()) == found.Strings)) {
            std::reverse(run.begin(), run.end());
        }
        if (run.size() < FewestStrings && !PlaceByLabels(run)) {
            std::ranges::move(run, std::back_inserter(found.Strays));
            return;
        }
        if (found.Strings == 0) found.Strings = static_cast<int>(run.size());
        found.Systems.push_back({std::move(run), first, last});
    }

    const std::vector<TextColumns>& lines;
    FoundSystems found;
    std::vector<std::string> labels;  ///< of a system, the highest string first
    bool upsideDown = false;
};

/// Pitch class 0 to 11 of a label such as "e", "Eb", "F#2"; -1 for none.
int PitchClass(const std::string& label) {
    if (label.empty()) return -1;
    const std::string name = Core::UpperAscii(label.substr(0, 1)) + label.substr(1);
    const bool octave = name.back() >= '0' && name.back() <= '9';
    const int pitch = Core::PitchOfNoteName(octave ? name : name + "4");
    return pitch < 0 ? -1 : pitch % 12;
}

struct Instrument {
    int Strings;
    int Pitches[MostStrings];
};
/// What labels are held against; of equally near ones the first. A ukulele is one by its own labels alone.
constexpr Instrument Instruments[] = {
    {4, {43, 38, 33, 28}},         {5, {43, 38, 33, 28, 23}}, {6, {64, 59, 55, 50, 45, 40}},
    {6, {48, 43, 38, 33, 28, 23}}, {4, {64, 59, 55, 50}},     {7, {64, 59, 55, 50, 45, 40, 35}},
    {5, {64, 59, 55, 50, 45}},
};
constexpr Instrument Ukulele = {4, {69, 64, 60, 67}};

}  // namespace

std::optional<Core::Row<std::int16_t, Core::StringCount>> TuningOf(const std::vector<std::string>& names,
                                                                   int* distance) {
    std::optional<Core::Row<std::int16_t, Core::StringCount>> best;
    int bestDistance = 0;
    const auto hold = [&](const Instrument& instrument, int most) {
        if (std::cmp_not_equal(names.size(), instrument.Strings)) return;
        Core::Row<std::int16_t, Core::StringCount> tuning;
        int sum = 0;
        for (std::size_t s = 0; s < names.size(); ++s) {
            const int note = PitchClass(names[s]);
            if (note < 0) return;
            int off = (note - instrument.Pitches[s] % 12 + 12) % 12;
            if (off > 5) off -= 12;  // rather lower than higher: strings are let down
            sum += std::abs(off);
            tuning[s] = static_cast<std::int16_t>(instrument.Pitches[s] + off - Core::StandardPitches[s]);
        }
        if (sum > most || (best && sum >= bestDistance)) return;
        best = tuning;
        bestDistance = sum;
    };
    constexpr int any = 1000;
    hold(Ukulele, 0);
    for (const Instrument& instrument : Instruments) hold(instrument, any);
    if (distance) *distance = best ? bestDistance : any;
    return best;
}

Core::Row<std::int16_t, Core::StringCount> UsualTuning(int strings) {
    if (strings == 4) return *TuningOf({"G", "D", "A", "E"});
    if (strings == 5) return *TuningOf({"G", "D", "A", "E", "B"});
    return {};
}

FoundSystems FindSystems(const std::vector<TextColumns>& lines) { return Finder(lines).Find(); }

}  // namespace Quillon::Exchange
