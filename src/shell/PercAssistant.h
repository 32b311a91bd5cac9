// The percussion assistant: what each letter plays on a string of a drum track, for whoever doesn't know the letters.
#pragma once

#include <string>
#include <vector>

namespace Quillon::Shell {

struct PercAssistantState {
    bool IsOpen = false;  ///< a person wants it; it shows while a drum track is the current one
    int Track = -1;       ///< the current track when it was looked at last
    int String = 0;       ///< whose letters are shown
    std::string Fret;     ///< the note that stood there
};
extern PercAssistantState PercAssistant;

/// A letter and the name of what it plays.
struct PercLetter {
    std::string Letter;
    std::string Sound;    ///< "-" for none
    bool Sounds = false;  ///< it plays something
    bool IsNote = false;  ///< it is what stands at the cursor
};
/// The twelve, of the string that is shown. Empty off a drum track.
std::vector<PercLetter> PercLetters();
/// "Drums, string 3".
std::string PercAssistantTitle();

/// True while its window is to be seen. With the setting for it, it opens whenever a drum track becomes the current
/// one.
bool PercAssistantShows();
/// Shows the string and the note at the cursor. Moving up and down alone doesn't: see picDocument_KeyDown.
void RefreshPercAssistant();
/// Writes a letter of PercLetters at the cursor, as its key would, but for the step of undo, and lets it be heard.
void PercLetter_Click(int index);
/// Edits what the letters play, in the properties of the track.
void cmdPercAssignment_Click();
/// Its window was closed.
void PercAssistantClosed();

void mnuToolsPercAssistant_Click();

}  // namespace Quillon::Shell
