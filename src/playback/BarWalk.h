// The order in which the bars of a song are played: repeats, the sign and the coda.
#pragma once

#include <compare>
#include <cstdint>
#include <vector>

#include "core/mod_TabFileStructure.h"

namespace Quillon::Playback {

/// The bar that plays, shared by all tracks, and what decides where the song goes from its end. Bars count from 0.
struct BarWalk {
    enum class Step : std::uint8_t {
        Stays,   ///< nobody moves the bar: it lies outside the song, or a repeat that nothing ends is running
        Enters,  ///< PlayBar is entered anew, though it may be the same
        Circles  ///< as Enters, by a coda that does not lie ahead: it will be met again
    };

    std::int16_t PlayBar = 0;
    std::int16_t RepeatStartBar = 0;
    std::int16_t RepeatsLeft = 0;  ///< jumps back still to make
    bool InRepeat = false;
    std::int16_t SegnoBar = 0;
    std::int16_t CodaBar = 0;
    bool SegnoTaken = false;

    /// Goes to a bar of a song, with no sign met yet.
    void Start(const Core::TabFile& file, std::int16_t bar);
    /// To be called while the bar plays, before it ends.
    void NoteRepeat(const Core::TabFile& file);
    /// The last track ends the bar.
    Step EndBar(const Core::TabFile& file);

    auto operator<=>(const BarWalk&) const = default;

private:
    void Enter(int bar);
    Step Repeat(const Core::BarInfo* info);
    Step FollowSigns(const Core::BarInfo* info);
};

struct PlayingOrder {
    std::vector<int> Bars;
    bool Ends = true;  ///< false for a song that jumps back for ever, of which Bars is one round
};
/// The bars of a whole song as they are played, of at most so many. Raises "Overflow" for a song of more.
PlayingOrder BarsInPlayingOrder(const Core::TabFile& file, int most);

}  // namespace Quillon::Playback
