// Song S, on which all measurements are made: long, several voices, no two bars alike.
#pragma once

#include "core/mod_TabFileStructure.h"

namespace Quillon::Bench {

constexpr int SongBars = 1000;
constexpr int SongTracks = 8;
constexpr int StrumsOfABar = 8;

/// SongTracks tracks of `bars` bars in 4/4, eight eighths a bar, every other of them with two notes and the rest with
/// one. Frets follow a fixed sequence of pseudo-random numbers, so that hardly a bar repeats another and none can be
/// written as a copy.
Core::TabFile SongS(int bars = SongBars);

}  // namespace Quillon::Bench
