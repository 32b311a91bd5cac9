// Commands about the current track as a whole, the file's lock, and bars of whole tracks.
#pragma once

namespace Quillon::Shell {

void mnuTrackTuning_Click();
void mnuTrackLoadTuning_Click();
void mnuTrackInstrument_Click();
void mnuTrackLyrics_Click();
void mnuFilePassword_Click();
void mnuOperationsFixBars_Click();  ///< asks before beats are dropped

}  // namespace Quillon::Shell
