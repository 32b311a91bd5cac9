#include "library/ChordNaming.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <string>
#include <tuple>

#include "core/mod_Common.h"

namespace Quillon::Library {

namespace {

constexpr int Octave = 12;
using Classes = std::bitset<Octave>;

constexpr std::array<std::string_view, Octave> Sharps = {"C",  "C#", "D",  "D#", "E",  "F",
                                                         "F#", "G",  "G#", "A",  "A#", "B"};
constexpr std::array<std::string_view, Octave> Flats = {"C",  "Db", "D",  "Eb", "E",  "F",
                                                        "Gb", "G",  "Ab", "A",  "Bb", "B"};

/// Semitones above the root, in bits.
consteval unsigned long Bits(std::initializer_list<int> steps) {
    unsigned long bits = 0;
    for (const int step : steps) bits |= 1UL << step;
    return bits;
}

struct ChordType {
    std::string_view Symbol;
    unsigned long Needed;
    unsigned long Optional = 0;
    std::array<std::string_view, 4> Aliases{};  ///< other ways to write it
};

/// The more usual first: where two names fit alike, the first wins.
constexpr ChordType Types[] = {
    {"", Bits({0, 4, 7}), 0, {"Maj", "maj", "M"}},
    {"m", Bits({0, 3, 7}), 0, {"min", "-"}},
    {"7", Bits({0, 4, 10}), Bits({7}), {"dom7"}},
    {"m7", Bits({0, 3, 10}), Bits({7}), {"min7", "-7"}},
    {"maj7", Bits({0, 4, 11}), Bits({7}), {"ma7", "M7"}},
    {"5", Bits({0, 7}), 0, {"(no3rd)"}},
    {"sus4", Bits({0, 5, 7}), 0, {"sus"}},
    {"sus2", Bits({0, 2, 7}), 0, {"2(no3rd)"}},
    {"dim", Bits({0, 3, 6}), 0, {"m(b5)"}},
    {"aug", Bits({0, 4, 8}), 0, {"+", "#5"}},
    {"6", Bits({0, 4, 9}), Bits({7}), {"maj6"}},
    {"m6", Bits({0, 3, 9}), Bits({7}), {"min6"}},
    {"dim7", Bits({0, 3, 6, 9}), 0, {"o7", "0"}},
    {"m7b5", Bits({0, 3, 6, 10}), 0, {"halfdim", "m7-5"}},
    {"m(maj7)", Bits({0, 3, 11}), Bits({7}), {"mmaj7", "min(maj7)"}},
    {"7sus4", Bits({0, 5, 10}), Bits({7}), {"7sus"}},
    {"7sus2", Bits({0, 2, 10}), Bits({7})},
    {"add9", Bits({0, 2, 4}), Bits({7}), {"2"}},
    {"m(add9)", Bits({0, 2, 3}), Bits({7}), {"madd9", "m2"}},
    {"6/9", Bits({0, 2, 4, 9}), Bits({7}), {"69", "6-9", "6-add9"}},
    {"m6/9", Bits({0, 2, 3, 9}), Bits({7}), {"m69", "m6-9", "m6-add9"}},
    {"9", Bits({0, 2, 4, 10}), Bits({7}), {"dom9"}},
    {"m9", Bits({0, 2, 3, 10}), Bits({7}), {"min9"}},
    {"maj9", Bits({0, 2, 4, 11}), Bits({7}), {"ma9", "M9"}},
    {"9sus4", Bits({0, 2, 5, 10}), Bits({7}), {"9sus"}},
    {"7#5", Bits({0, 4, 8, 10}), 0, {"7+5", "7aug"}},
    {"7b5", Bits({0, 4, 6, 10}), 0, {"7-5", "dom7b5"}},
    {"7b9", Bits({0, 1, 4, 10}), Bits({7}), {"7-9", "dom7b9"}},
    {"7#9", Bits({0, 3, 4, 10}), Bits({7}), {"7+9", "dom7#9"}},
    {"7#11", Bits({0, 4, 6, 7, 10}), 0},
    {"7#5#9", Bits({0, 3, 4, 8, 10}), 0, {"7aug#9"}},
    {"7b5#9", Bits({0, 3, 4, 6, 10}), 0, {"7+9-5"}},
    {"7b5b9", Bits({0, 1, 4, 6, 10}), 0},
    {"7#5b9", Bits({0, 1, 4, 8, 10}), 0},
    {"9#5", Bits({0, 2, 4, 8, 10}), 0, {"9+5", "9aug"}},
    {"9b5", Bits({0, 2, 4, 6, 10}), 0, {"9-5", "dom9b5"}},
    {"m9b5", Bits({0, 2, 3, 6, 10}), 0, {"m9-5"}},
    {"maj7#5", Bits({0, 4, 8, 11}), 0, {"maj7+5", "ma7#5"}},
    {"maj7b5", Bits({0, 4, 6, 11}), 0, {"maj7-5", "ma7b5"}},
    {"maj7#11", Bits({0, 4, 6, 11}), Bits({2, 7}), {"ma7#11"}},
    {"add11", Bits({0, 4, 5}), Bits({7}), {"add4"}},
    {"13", Bits({0, 4, 9, 10}), Bits({2, 5, 7}), {"dom13"}},
    {"m13", Bits({0, 3, 9, 10}), Bits({2, 5, 7}), {"min13"}},
    {"maj13", Bits({0, 4, 9, 11}), Bits({2, 6, 7}), {"ma13"}},
    {"13b9", Bits({0, 1, 4, 9, 10}), Bits({7}), {"dom13b9"}},
    {"13sus4", Bits({0, 5, 9, 10}), Bits({2, 7}), {"13sus"}},
    {"11", Bits({0, 5, 10}), Bits({2, 4, 7}), {"dom11"}},
    {"m11", Bits({0, 3, 5, 10}), Bits({2, 7}), {"min11"}},
    {"11b9", Bits({0, 1, 5, 10}), Bits({4, 7}), {"11-9"}},
};

int Wrap(int pitch) { return ((pitch % Octave) + Octave) % Octave; }

Classes Turned(unsigned long bits, int root) {
    Classes turned;
    for (int step = 0; step < Octave; ++step) {
        if (bits >> step & 1U) turned.set(static_cast<std::size_t>(Wrap(root + step)));
    }
    return turned;
}

/// Takes a note name off the front; -1 when there is none.
int TakeRoot(std::string_view& text) {
    constexpr std::string_view Letters = "C D EF G A B";
    if (text.empty()) return -1;
    const std::size_t at = Letters.find(text.front());
    if (text.front() == ' ' || at == std::string_view::npos) return -1;
    text.remove_prefix(1);
    int pitch = static_cast<int>(at);
    while (!text.empty() && (text.front() == '#' || text.front() == 'b')) {
        pitch += text.front() == '#' ? 1 : -1;
        text.remove_prefix(1);
    }
    return Wrap(pitch);
}

const ChordType* TypeOf(std::string_view symbol) {
    for (const ChordType& type : Types) {
        if (type.Symbol == symbol) return &type;
        for (const std::string_view alias : type.Aliases) {
            if (!alias.empty() && alias == symbol) return &type;
        }
    }
    return nullptr;
}

std::vector<int> Listed(unsigned long bits, int root) {
    std::vector<int> classes;
    for (int step = 0; step < Octave; ++step) {
        if (bits >> step & 1U) classes.push_back(Wrap(root + step));
    }
    return classes;
}

/// "m7 (2)" without the number of its voicing and without blanks.
std::string WithoutVoicing(std::string_view text) {
    std::string result(VoicingBase(text));
    std::erase(result, ' ');
    return result;
}

}  // namespace

std::string PitchClassName(int pitch, bool flats) {
    return std::string((flats ? Flats : Sharps)[static_cast<std::size_t>(Wrap(pitch))]);
}

int PitchClassOf(std::string_view name) {
    std::string text(Core::TrimBlanks(name));
    if (!text.empty()) text.front() = Core::UpperAscii(text).front();
    std::string_view rest = text;
    const int pitch = TakeRoot(rest);
    return rest.empty() ? pitch : -1;
}

std::vector<std::string> ChordNames(std::span<const int> pitches, bool flats) {
    if (pitches.empty()) return {};
    Classes sounding;
    for (const int pitch : pitches) sounding.set(static_cast<std::size_t>(Wrap(pitch)));
    const int bass = Wrap(*std::ranges::min_element(pitches));
    Classes above;  // of a slash chord the bass may be foreign
    for (const int pitch : pitches) {
        if (Wrap(pitch) != bass) above.set(static_cast<std::size_t>(Wrap(pitch)));
    }

    // The root in the bass comes first, then the bass among the chord's notes, then a foreign one.
    std::vector<std::tuple<int, long, std::string>> found;
    for (int root = 0; root < Octave; ++root) {
        if (!sounding.test(static_cast<std::size_t>(root))) continue;
        for (const ChordType& type : Types) {
            const Classes needed = Turned(type.Needed, root);
            const Classes all = needed | Turned(type.Optional, root);
            const auto fits = [&](const Classes& set) { return (set & ~all).none() && (needed & ~set).none(); };
            const bool inside = fits(sounding);
            if (!inside && (root == bass || !fits(above))) continue;
            const int rank = root == bass ? 0 : inside ? 1 : 2;
            if (rank == 2 && type.Needed != Types[0].Needed && type.Needed != Types[1].Needed) continue;
            std::string name = PitchClassName(root, flats) + std::string(type.Symbol);
            if (root != bass) name += "/" + PitchClassName(bass, flats);
            found.emplace_back(rank, &type - Types, std::move(name));
        }
    }
    std::ranges::stable_sort(found, [](const auto& a, const auto& b) {
        return std::tie(std::get<0>(a), std::get<1>(a)) < std::tie(std::get<0>(b), std::get<1>(b));
    });
    std::vector<std::string> names;
    for (auto& each : found) names.push_back(std::move(std::get<2>(each)));
    return names;
}

bool ParseChordSymbol(std::string_view symbol, ChordTones& tones) {
    std::string_view rest = Core::TrimBlanks(symbol);
    const int root = TakeRoot(rest);
    if (root < 0) return false;
    const std::string text = WithoutVoicing(rest);
    const auto use = [&tones, root](const ChordType& type, int bass) {
        tones = {root, bass, Listed(type.Needed, root), Listed(type.Optional, root)};
        return true;
    };
    if (const ChordType* const whole = TypeOf(text)) return use(*whole, root);
    // A bass note, or another name for the same, stands behind the last mark that leaves a known chord before it.
    for (std::size_t mark = text.find_last_of("/-"); mark != std::string::npos && mark <= text.size();
         mark = mark == 0 ? std::string::npos : text.find_last_of("/-", mark - 1)) {
        const ChordType* const type = TypeOf(std::string_view(text).substr(0, mark));
        if (!type) continue;
        std::string_view behind = std::string_view(text).substr(mark + 1);
        const int bass = TakeRoot(behind);
        if (bass < 0) continue;
        if (bass == root || behind.empty()) return use(*type, bass);
        // "G#5-Gaug" is a G with a sharp fifth.
        return ParseChordSymbol(std::string_view(text).substr(mark + 1), tones);
    }
    return false;
}

bool PrefersFlats(std::string_view symbol) {
    ChordTones tones;
    const std::string_view name = Core::TrimBlanks(symbol);
    if (!ParseChordSymbol(name, tones)) return false;
    if (name.size() > 1 && (name[1] == '#' || name[1] == 'b')) return name[1] == 'b';
    constexpr int C = 0, D = 2, F = 5, G = 7, MinorThird = 3;
    const bool minor = std::ranges::count(tones.Needed, Wrap(tones.Root + MinorThird)) > 0;
    return tones.Root == C || tones.Root == F || (minor && (tones.Root == D || tones.Root == G));
}

std::string_view VoicingBase(std::string_view name) {
    const std::size_t open = name.rfind(" (");
    const bool numbered = open != std::string_view::npos && name.ends_with(')') && open + 3 < name.size() &&
                          name.find_first_not_of("0123456789", open + 2) == name.size() - 1;
    return numbered ? name.substr(0, open) : name;
}

std::string TransposedName(std::string_view name, int semitones, bool flats) {
    // "G#5-Gaug" is a G with a sharp fifth, told twice: only what comes second can be read once it is moved.
    const std::size_t mark = name.find('-');
    if (name.size() > 3 && (name[1] == '#' || name[1] == 'b') && name[2] == '5' && mark != std::string_view::npos &&
        mark + 1 < name.size() && name[mark + 1] == name[0]) {
        name.remove_prefix(mark + 1);
    }
    std::string moved;
    bool mayBegin = true;
    while (!name.empty()) {
        std::string_view rest = name;
        const int root = mayBegin ? TakeRoot(rest) : -1;
        if (root < 0) {
            mayBegin = name.front() == '-' || name.front() == '/';
            moved += name.front();
            name.remove_prefix(1);
            continue;
        }
        const bool wasFlat = name.substr(0, name.size() - rest.size()).find('b') != std::string_view::npos;
        moved += PitchClassName(root + semitones, flats || wasFlat);
        name = rest;
        mayBegin = false;
    }
    return moved;
}

}  // namespace Quillon::Library
