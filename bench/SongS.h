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

/// A song for the player: on `tracks` pitched tracks all seven gestures in every bar, drums on one more, and two bars
/// of rests at the end, within which every gesture runs out.
Core::TabFile SongOfEffects(int bars, int tracks);

/// `tracks` tracks of 64ths of which each strum sounds 16 notes: seven strings, two of them as two notes each, and a
/// chord symbol of seven.
Core::TabFile SongOfChords(int bars, int tracks);

/// Two staves and the tab, 16ths throughout: three notes a strum, accidentals among them.
Core::TabFile Sixteenths(int bars);

}  // namespace Quillon::Bench
