#include "exchange/LinesSystems.h"

#include <algorithm>
#include <array>
#include <limits>
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

/// Takes doubtful lines where they stand among enough others with labels, one of them sure. The rest goes to `strays`.
void SettleDoubtful(const std::vector<TextColumns>& lines, std::vector<std::optional<StringLine>>& strings,
                    std::vector<StringLine>& strays) {
    const auto isLabelled = [&](std::size_t i) {
        return i < strings.size() && strings[i] && !strings[i]->Label.empty();
    };
    for (std::size_t from = 0; from < strings.size(); ++from) {
        if (!isLabelled(from)) continue;
        std::size_t to = from;  // of a block of labelled lines, single blank lines in it
        int labelled = 0;
        bool sure = false;
        while (isLabelled(to) || (to < lines.size() && lines[to].IsBlank() && isLabelled(to + 1))) {
            if (isLabelled(to)) {
                ++labelled;
                sure = sure || !strings[to]->Doubtful;
            }
            ++to;
        }
        const bool taken = sure && labelled >= FewestStrings;
        for (; from < to; ++from) {
            if (!strings[from] || !strings[from]->Doubtful) continue;
            if (taken) {
                strings[from]->Doubtful = false;
            } else {
                strays.push_back(std::move(*strings[from]));
                strings[from].reset();
            }
        }
    }
}

std::vector<Run> RunsOf(const std::vector<TextColumns>& lines, std::vector<StringLine>& strays) {
    std::vector<std::optional<StringLine>> strings(lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        strings[i] = StringLineOf(lines[i]);
        if (strings[i]) strings[i]->Line = static_cast<int>(i);
    }
    SettleDoubtful(lines, strings, strays);
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

/// True where the labels of a part begin anew at a place of a run. A seventh string after the sixth bears the names of
/// the first two as well: one or two labels alike say nothing yet.
bool BeginsAnew(const Run& run, std::size_t at, const Run& part) {
    const std::size_t alike = std::min({part.size(), run.size() - at, std::size_t{MostStrings}});
    if (part.size() < FewestStrings || alike < 3 || run[at].Label.empty()) return false;
    for (std::size_t i = 0; i < alike; ++i) {
        if (run[at + i].Label != part[i].Label) return false;
    }
    return true;
}

/// Cuts a run where its labels begin anew.
std::vector<Run> CutAtLabels(Run run) {
    std::vector<Run> parts(1);
    for (std::size_t i = 0; i < run.size(); ++i) {
        if (BeginsAnew(run, i, parts.back())) parts.emplace_back();
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

std::vector<std::string> LabelsOf(const Run& run) {
    std::vector<std::string> labels;
    for (const StringLine& line : run) labels.push_back(line.Label);
    return labels;
}

/// The string of each line by its label, ascending; none where one has no place. Small letters may stand for
/// capitals where they don't tell two strings apart.
std::vector<std::size_t> PlacesOf(const Run& run, const std::vector<std::string>& names) {
    for (const bool exactly : {true, false}) {
        std::vector<std::size_t> places;
        std::size_t next = 0;
        for (const StringLine& line : run) {
            const auto isIt = [&](const std::string& name) {
                return exactly ? name == line.Label : Core::UpperAscii(name) == Core::UpperAscii(line.Label);
            };
            while (next < names.size() && !isIt(names[next])) ++next;
            if (line.Label.empty() || next == names.size()) break;
            places.push_back(next++);
        }
        if (places.size() == run.size()) return places;
    }
    return {};
}

/// Labels of the first whole guitar; none where there is no such system.
std::vector<std::string> WholeLabels(const std::vector<Run>& runs) {
    const auto whole = std::ranges::find_if(
        runs, [](const Run& run) { return (run.size() == 6 || run.size() == MostStrings) && HasLabels(run); });
    return whole == runs.end() ? std::vector<std::string>() : LabelsOf(*whole);
}

/// The commonest number of strings of the runs that are of a size for one system; 6 without any.
std::size_t CommonSize(const std::vector<Run>& runs) {
    std::array<int, MostStrings + 1> counts{};
    const std::vector<std::string> whole = WholeLabels(runs);
    for (const Run& run : runs) {
        if (run.size() < whole.size() && !PlacesOf(run, whole).empty()) continue;  // some of its strings
        if (run.size() >= FewestStrings && run.size() <= MostStrings) ++counts[run.size()];
    }
    const auto* const most = std::max_element(counts.begin(), counts.end());
    // Of equals, as most guitars have.
    return *most == counts[6] ? 6 : static_cast<std::size_t>(most - counts.begin());
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
        std::vector<Run> all = RunsOf(lines, found.Strays);
        std::erase_if(found.Strays, [&](const StringLine& line) { return !HasFrets(line, lines); });
        for (const StringLine& stray : found.Strays) found.Used[static_cast<std::size_t>(stray.Line)] = true;
        for (Run& run : all) {
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
    /// A line without a label beside labelled ones is drawn there for the eye when it has no frets or stands on a
    /// whole system.
    void DropRulers(Run& run) {
        if (HasLabels(run)) {
            Run kept;
            for (std::size_t i = 0; i < run.size(); ++i) {
                if (!run[i].Label.empty()) {
                    kept.push_back(std::move(run[i]));
                } else if (HasFrets(run[i], lines)) {
                    const bool ruler = StandsOnSystem(run, i);
                    (ruler ? found.Rulers : kept).push_back(std::move(run[i]));
                }
            }
            run = std::move(kept);
        } else if (run.size() > 1 && !HasBarLines(run.front()) && HasBarLines(run[1])) {
            if (!HasFrets(run.front(), lines)) run.erase(run.begin());
        }
    }

    static bool StandsOnSystem(const Run& run, std::size_t at) {
        std::size_t labelled = 0;
        while (at + 1 + labelled < run.size() && !run[at + 1 + labelled].Label.empty()) ++labelled;
        constexpr std::size_t whole = 6;
        constexpr int elsewhere = 2;  // columns that a string's beginning may slip
        return labelled >= whole ||
               (labelled >= FewestStrings && std::abs(run[at].Body - run[at + 1].Body) > elsewhere);
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
        if (most == counts.end()) {
            if (systems == 0 || common == 6) AssumeGuitar(parts);
            return;
        }
        labels = most->first;
        if (IsInnerPart(labels)) return AssumeGuitar(parts);
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

    /// "B G D A": strings of a guitar without its highest, and no bass.
    static bool IsInnerPart(const std::vector<std::string>& names) {
        constexpr std::string_view inner[] = {"B", "G", "D", "A", "E"};
        return names.size() >= FewestStrings && names.size() <= std::size(inner) &&
               std::equal(names.begin(), names.end(), std::begin(inner));
    }

    /// Where no system is whole, its labels are those of the usual tuning that most lines fit.
    void AssumeGuitar(const std::vector<Run>& parts) {
        static const std::vector<std::string> guitars[] = {
            {"e", "B", "G", "D", "A", "E"},       {"e", "B", "G", "D", "A", "D"}, {"eb", "Bb", "Gb", "Db", "Ab", "Eb"},
            {"d#", "A#", "F#", "C#", "G#", "D#"}, {"d", "A", "F", "C", "G", "D"}, {"d", "A", "F", "C", "G", "C"},
        };
        std::ptrdiff_t most = 0;
        for (const auto& guitar : guitars) {
            const auto fits = std::ranges::count_if(
                parts, [&](const Run& part) { return part.size() > 1 && !PlacesOf(part, guitar).empty(); });
            if (fits <= most) continue;
            most = fits;
            labels = guitar;
        }
        if (most == 0) return;
        found.Strings = static_cast<int>(labels.size());
        found.Tuning = TuningOf(labels);
    }

    /// Lines of fewer strings than a system has, each placed by its label.
    bool PlaceByLabels(Run& run) const {
        if (run.size() >= labels.size()) return false;
        const std::vector<std::size_t> places = PlacesOf(run, labels);
        if (places.empty()) return false;
        Run placed(labels.size());
        for (std::size_t i = 0; i < run.size(); ++i) placed[places[i]] = run[i];
        for (StringLine& line : placed) {
            if (line.Label.empty()) line.Line = -1;  // a string that is not written
        }
        run = std::move(placed);
        return true;
    }

    /// Blanks behind the labels of strings that are drawn as dashes are a tab character's.
    void SkipTab(Run& run) const {
        constexpr int fewest = 2;
        int blanks = std::numeric_limits<int>::max();
        for (const StringLine& line : run) {
            if (line.Line < 0) continue;
            const std::string& columns = lines[static_cast<std::size_t>(line.Line)].Columns;
            const auto from = static_cast<std::size_t>(line.Body);
            if (columns.find('-', from) == std::string::npos) return;
            blanks = std::min(blanks, static_cast<int>(columns.find_first_not_of(' ', from)) - line.Body);
        }
        if (blanks < fewest) return;
        for (StringLine& line : run) line.Body += blanks;
    }

    void Take(Run run) {
        for (const StringLine& line : run) found.Used[static_cast<std::size_t>(line.Line)] = true;
        const int first = run.front().Line;
        const int last = run.back().Line;
        if (upsideDown && (HasLabels(run) || static_cast<int>(run.size()) == found.Strings)) {
            std::reverse(run.begin(), run.end());
        }
        const bool placed = PlaceByLabels(run);
        if (!placed && run.size() < FewestStrings) {
            std::ranges::move(run, std::back_inserter(found.Strays));
            return;
        }
        if (found.Strings == 0) found.Strings = static_cast<int>(run.size());
        SkipTab(run);
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
    {5, {64, 59, 55, 50, 45}},     {5, {59, 55, 50, 45, 40}}, {4, {59, 55, 50, 45}},
};
/// Of a ukulele and of a mandolin, which are such by exactly these labels.
constexpr Instrument Small[] = {{4, {69, 64, 60, 67}}, {4, {76, 69, 62, 55}}};

}  // namespace

std::optional<Core::Row<std::int16_t, Core::StringCount>> TuningOf(const std::vector<std::string>& names,
                                                                   int* distance) {
    constexpr int any = 1000;
    struct Fit {
        Core::Row<std::int16_t, Core::StringCount> Tuning;
        int Distance = any;
        int Cost = any;
    } best;
    // Semitones that the whole is let down by; some tune up a little.
    constexpr int lowest = -7, highest = 3;
    const auto hold = [&](const Instrument& instrument, int let, int most) {
        if (std::cmp_not_equal(names.size(), instrument.Strings)) return;
        Fit fit;
        fit.Distance = 0;
        for (std::size_t s = 0; s < names.size(); ++s) {
            const int note = PitchClass(names[s]);
            if (note < 0) return;
            int off = ((note - instrument.Pitches[s] - let) % 12 + 12) % 12;
            if (off > 5) off -= 12;  // rather lower than higher: strings are let down
            fit.Distance += std::abs(off);
            fit.Tuning[s] = static_cast<std::int16_t>(instrument.Pitches[s] + let + off - Core::StandardPitches[s]);
        }
        fit.Cost = 4 * fit.Distance + (let > 0 ? 2 * let : -let);
        if (fit.Distance <= most && fit.Cost < best.Cost) best = fit;
    };
    for (const Instrument& instrument : Small) hold(instrument, 0, 0);
    const int most = 2 * static_cast<int>(names.size());
    for (const Instrument& instrument : Instruments) {
        for (int let = 0; let >= lowest; --let) hold(instrument, let, most);
        for (int let = 1; let <= highest; ++let) hold(instrument, let, most);
    }
    if (distance) *distance = best.Distance;
    if (best.Cost == any) return {};
    return best.Tuning;
}

Core::Row<std::int16_t, Core::StringCount> UsualTuning(int strings) {
    if (strings == 4) return *TuningOf({"G", "D", "A", "E"});
    if (strings == 5) return *TuningOf({"G", "D", "A", "E", "B"});
    return {};
}

FoundSystems FindSystems(const std::vector<TextColumns>& lines) { return Finder(lines).Find(); }

}  // namespace Quillon::Exchange
