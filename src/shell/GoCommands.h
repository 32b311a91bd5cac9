// Places of the song that the cursor can be sent to: go-to points, bars and beats.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "shell/DialogModel.h"

namespace Quillon::Shell {

/// A strum with a name to go to.
struct GotoPoint {
    int Track = 0;
    int Bar = 0;
    int Strum = 0;
    std::string Name;
    bool operator==(const GotoPoint&) const = default;
};

/// The points as the Go menu shows them.
struct GoState {
    std::vector<GotoPoint> Points;
};
extern GoState Go;

/// The go-to points of the open document, from its beginning to its end, those of one bar by track.
std::vector<GotoPoint> GotoPoints();
/// Finds the points anew and has the Go menu filled with them.
void UpdateGotoPoints();
/// "Chorus (bar 17)"; with its track when that is not the current one.
std::string GotoCaption(const GotoPoint& point);
/// Goes to an entry of the menu; one that is gone does nothing.
void mnuGoGotoPoint_Click(int index);

/// Puts the cursor on a strum, or the nearest that there is, and brings it into view.
void GoTo(int track, int bar, int strum);

/// The name of the go-to point at the cursor.
struct GotoModel : DialogModel {
    std::string Name;  ///< "" for none

    void Load();
    std::string_view Validate() const;
    bool Apply() const;
};

struct GotoBarModel : DialogModel {
    std::int16_t Bar = 1;
    std::int16_t LastBar = 1;

    void Load();
    std::string_view Validate() const;
    void Apply() const;
};

void mnuGoGotoBar_Click();
void mnuGoFirstBar_Click();
void mnuGoLastBar_Click();
void mnuGoPreviousBar_Click();
void mnuGoNextBar_Click();
void mnuGoBeginning_Click();  ///< of the bar
void mnuGoEnd_Click();
void mnuGoPreviousBeat_Click();
void mnuGoNextBeat_Click();  ///< as the key does: in a bar that is not full it makes the next beat
void mnuGoSetPoint_Click();
void mnuGoPreviousPoint_Click();  ///< of the current track
void mnuGoNextPoint_Click();

}  // namespace Quillon::Shell
