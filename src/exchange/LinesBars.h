// Bars of a system: what stands on its strings between two bar lines, column by column.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/LinesSystems.h"

namespace Quillon::Exchange {

/// A fret with the signs around it.
struct TabNote {
    static constexpr std::int8_t Dead = -1;

    int Column = 0;             ///< of its beat, from the bar's first column
    std::uint8_t String = 0;    ///< from 0, the highest
    std::int8_t Fret = 0;       ///< 0 to 29, or Dead
    std::uint8_t Width = 1;     ///< columns of its figures
    std::uint8_t Prefix = 0;    ///< columns of a sign right before it
    std::int8_t Technique = 0;  ///< Core::NoteTechnique
    std::int8_t Harmonic = 0;   ///< Core::HarmonicKind
    std::int8_t Beat = 0;       ///< Core::StrumTechnique
    std::int8_t Bend = 0;       ///< quarters of a tone, 0 for none
    std::int8_t Trill = -1;     ///< the other fret, -1 for none
    bool Release = false;       ///< of the bend
    bool Ghost = false;
    bool Accent = false;
    bool LetRing = false;
};

struct TabBar {
    int Width = 0;   ///< columns from bar line to bar line
    int Origin = 0;  ///< its first column in the lines of the text
    bool Opens = false;
    int Closes = 0;              ///< times that the repeat is played again, 0 for no repeat
    std::vector<TabNote> Notes;  ///< by column, then by string
};

/// Signs that no note took, and how often.
using LostSigns = std::map<char, int>;

struct SystemBars {
    std::vector<TabBar> Bars;
    bool HasBarLines = false;
    LostSigns Lost;
};

/// How often words such as "x4", "(3x)" or "4 times" say that something is played; 0 when they don't, at most 99.
int TimesIn(std::string_view words);

SystemBars BarsOf(const std::vector<TextColumns>& lines, const TabSystem& system);

/// The frets of one bar on one string. `before` is the last note of the same string, which a sign at the beginning
/// belongs to; null for none.
std::vector<TabNote> NotesOf(std::string_view cells, int string, TabNote* before, LostSigns& lost);
/// How many frets a string's line holds.
int FretsOn(const std::vector<TextColumns>& lines, const StringLine& line);

}  // namespace Quillon::Exchange
