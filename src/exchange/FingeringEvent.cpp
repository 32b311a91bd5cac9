#include "exchange/FingeringEvent.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "core/mod_Instruments.h"

namespace Quillon::Exchange {

namespace {

constexpr std::string_view Mark = "\x7DQLM1";  // 7D: for those without a number of their own
constexpr int Bias = 64;                       // what a byte holds for 0
enum Flag : int { OctaveDown = 1, OctaveUp = 2, Drums = 4 };

/// A sum over the keys, by which a track that was edited since is known.
std::uint32_t SumOf(const std::vector<int>& keys) {
    std::uint32_t sum = 2166136261U;
    for (const int key : keys) sum = (sum ^ static_cast<std::uint32_t>(key)) * 16777619U;
    return sum;
}

/// Calls `visit` with each number that a track tells, the same way for writing and reading.
template <class Track, class Visit>
void ForEachNumber(Track& track, bool isDrum, const Visit& visit) {
    visit(track.Strings);
    visit(track.Capo);
    for (auto& offset : track.Tuning) visit(offset);
    if (!isDrum) return;
    for (auto& sounds : track.PercStrings) {
        for (const Core::PercussionLetter& letter : Core::PercussionLetters()) visit(sounds.*letter.Sound);
    }
}

}  // namespace

std::string FingeringBytes(const Core::Track& track, const std::vector<int>& keys, const std::vector<int>& strings) {
    std::string bytes(Mark);
    const int flags =
        (track.OctaveDown ? OctaveDown : 0) | (track.OctaveUp ? OctaveUp : 0) | (track.IsDrum ? Drums : 0);
    bytes += static_cast<char>(flags);
    bool fits = true;
    ForEachNumber(track, track.IsDrum, [&](const std::int16_t& number) {
        fits = fits && number >= -Bias && number < 256 - Bias;
        bytes += static_cast<char>(number + Bias);
    });
    const std::uint32_t sum = SumOf(keys);
    for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(sum >> shift & 0xFFU);
    for (const int string : strings) bytes += static_cast<char>(string);
    return fits ? bytes : "";
}

std::optional<ToldFingering> TakeFingering(const MidiPart& part, Core::Track& track) {
    std::string_view bytes = part.Fingering;
    if (!bytes.starts_with(Mark)) return {};
    bytes.remove_prefix(Mark.size());
    const auto byte = [&bytes] {
        const int value = bytes.empty() ? 0 : static_cast<unsigned char>(bytes.front());
        bytes.remove_prefix(std::min<std::size_t>(bytes.size(), 1));
        return value;
    };
    const int flags = byte();
    if (((flags & Drums) != 0) != part.IsDrum) return {};
    Core::Track told = track;
    ForEachNumber(told, part.IsDrum, [&](std::int16_t& number) { number = static_cast<std::int16_t>(byte() - Bias); });
    std::uint32_t sum = 0;
    for (int shift = 0; shift < 32; shift += 8) sum |= static_cast<std::uint32_t>(byte()) << shift;
    std::vector<int> keys;
    for (const MidiNote& note : part.Notes) keys.push_back(note.Key);
    if (sum != SumOf(keys) || bytes.size() != keys.size()) return {};
    if (told.Strings < 1 || told.Strings > Core::StringCount) return {};
    ToldFingering fingering;
    for (std::size_t note = 0; note < keys.size(); ++note) {
        const int string = byte();
        if (string > NoStringTold) return {};
        fingering.Strings.push_back(string);
    }
    told.OctaveDown = (flags & OctaveDown) != 0;
    told.OctaveUp = (flags & OctaveUp) != 0;
    track = std::move(told);
    return fingering;
}

}  // namespace Quillon::Exchange
