#include <algorithm>
#include <array>
#include <cmath>

#include "drawing/mod_NotationDrawing.h"

namespace Quillon::Drawing {

namespace {

struct StaffPlace {
    int Pitch;
    int Y;
};

// One diatonic step is 3.5 pixels, rounded in turn to 3 and 4.
constexpr std::array<StaffPlace, 49> StaffHeight = {
    {{105, -108}, {103, -104}, {101, -101}, {100, -97}, {98, -94}, {96, -90}, {95, -87}, {93, -83}, {91, -80},
     {89, -76},   {88, -73},   {86, -69},   {84, -66},  {83, -62}, {81, -59}, {79, -55}, {77, -52}, {76, -48},
     {74, -45},   {72, -41},   {71, -38},   {69, -34},  {67, -31}, {65, -27}, {64, -24}, {62, -20}, {60, -17},
     {59, -13},   {57, -10},   {55, -7},    {53, -3},   {52, 0},   {50, 3},   {48, 7},   {47, 10},  {45, 14},
     {43, 17},    {41, 21},    {40, 24},    {38, 28},   {36, 31},  {35, 35},  {33, 38},  {31, 42},  {29, 45},
     {28, 49},    {26, 52},    {24, 56},    {23, 59}}};

}  // namespace

int PitchToStaffY(int pitch, bool useFlats) {
    // The table falls: the natural at or below a pitch is the first one not above it.
    const auto* place = std::find_if(StaffHeight.begin(), StaffHeight.end(), [&](auto& p) { return p.Pitch <= pitch; });
    if (place == StaffHeight.end()) return StaffHeight.back().Y + 21;
    if (useFlats && place->Pitch != pitch && place != StaffHeight.begin()) --place;
    return place->Y + 21;
}

int StaffYToPitch(int y) {
    const auto* place = std::find_if(StaffHeight.begin(), StaffHeight.end(), [&](auto& p) { return p.Y >= y; });
    return place == StaffHeight.end() ? 0 : place->Pitch;
}

bool KeyUsesFlats(std::int32_t key) { return key >= 9 && key <= 13; }

int DrumLaneFromY(int y) {
    static constexpr std::array<int, 7> bounds = {-34, -31, -24, -20, -13, -7, 3};
    if (y <= -38) return -1;
    const auto* lane = std::find_if(bounds.begin(), bounds.end(), [&](int bound) { return y <= bound; });
    return lane == bounds.end() ? -1 : static_cast<int>(lane - bounds.begin());
}

int DrumLaneStep(int lane) {
    // Crash over a ledger line, ride on it, hi-hat on the staff; toms and snare between; bass drum and pedal below.
    static constexpr std::array<int, 9> steps = {11, 10, 9, 7, 6, 4, 2, -1, -2};
    const int last = static_cast<int>(steps.size()) - 1;
    return steps[static_cast<std::size_t>(std::clamp(lane, 0, last))];
}

int DrumLaneY(int lane) { return 28 - static_cast<int>(std::floor((7 * DrumLaneStep(lane) + 1) / 2.0)); }

}  // namespace Quillon::Drawing
