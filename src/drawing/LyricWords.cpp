#include "drawing/LyricWords.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Quillon::Drawing {

namespace {

constexpr double Gap = 3;            ///< between two words
constexpr double MostAside = 12;     ///< of a word from its column, before words are cut
constexpr double FarAside = 26;      ///< of one among words that are cut as far as they can be
constexpr double LeastSaved = 4;     ///< what a step of cutting takes from a short word,
constexpr double SavedShare = 0.06;  ///< and from a long one
constexpr double Rounding = 1e-6;    ///< of sums of widths

/// Words that stand one gap from each other.
struct Block {
    std::size_t First, End;
    double Sum;  ///< of where the block would begin by each of its words
    double Begin() const { return Sum / static_cast<double>(End - First); }
};

/// The least squares of all displacements: blocks that would meet become one, which stands at the mean of what its
/// words want.
std::vector<Block> PlaceBlocks(LyricLine& line, const LyricRoom& room) {
    std::vector<Block> blocks;
    double offset = 0;
    for (std::size_t i = 0; i < line.size(); ++i) {
        blocks.push_back({i, i + 1, line[i].Column - offset});
        offset += line[i].Shown + Gap;
        while (blocks.size() > 1 && blocks[blocks.size() - 2].Begin() > blocks.back().Begin()) {
            const Block last = blocks.back();
            blocks.pop_back();
            blocks.back().End = last.End;
            blocks.back().Sum += last.Sum;
        }
    }
    const double latest = room.Right - (offset - Gap);
    offset = 0;
    for (const Block& block : blocks) {
        const double begin = std::max(std::min(block.Begin(), latest), room.Left);
        for (std::size_t i = block.First; i < block.End; ++i) {
            line[i].Left = begin + offset;
            offset += line[i].Shown + Gap;
        }
    }
    return blocks;
}

double Aside(const LyricWord& word) { return std::abs(word.Left - word.Column); }

/// Cuts the longest of the words that can be cut to the length of the next ones. False when none can be.
bool CutLongest(LyricLine& line, std::size_t first, std::size_t end, double scale) {
    double longest = 0, next = 0;
    for (std::size_t i = first; i < end; ++i) {
        const double shown = line[i].Shown;
        if (shown <= line[i].Least * scale + Rounding || shown <= next) continue;
        if (shown > longest + Rounding)
            next = std::exchange(longest, shown);
        else if (shown < longest - Rounding)
            next = shown;
    }
    if (longest == 0) return false;
    const double length = std::max(next, longest - std::max(LeastSaved, longest * SavedShare));
    for (std::size_t i = first; i < end; ++i) {
        if (line[i].Shown > length) line[i].Shown = std::max(line[i].Least * scale, length);
    }
    return true;
}

}  // namespace

bool PlaceWords(LyricLine& line, const LyricRoom& room, double scale, bool cut) {
    if (line.empty()) return true;
    for (LyricWord& word : line) {
        word.Shown = word.Width * scale;
        if (cut && word.Shown > room.Right - room.Left)
            word.Shown = std::max(word.Least * scale, room.Right - room.Left);
    }
    for (;;) {
        const std::vector<Block> blocks = PlaceBlocks(line, room);
        const bool leaves = line.back().Left + line.back().Shown > room.Right + Rounding;
        double farthest = 0;
        bool changed = false;
        for (const Block& block : blocks) {
            double aside = 0;
            for (std::size_t i = block.First; i < block.End; ++i) aside = std::max(aside, Aside(line[i]));
            farthest = std::max(farthest, aside);
            if (cut && aside > MostAside + Rounding)
                changed = CutLongest(line, block.First, block.End, scale) || changed;
        }
        if (cut && leaves && !changed) changed = CutLongest(line, 0, line.size(), scale);
        if (!changed) return !leaves && farthest <= (cut ? FarAside : MostAside) + Rounding;
    }
}

}  // namespace Quillon::Drawing
