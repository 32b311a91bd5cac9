// Where SoundFonts lie on a machine, and which of them serves best.
#pragma once

#include <filesystem>
#include <vector>

namespace Quillon {

/// The user's folders, then the system's; they need not exist.
std::vector<std::filesystem::path> UsualSoundFontFolders();

/// The .sf2 and .sf3 files of folders, each once, by its own name when links lead to it; what is no SoundFont, or not
/// the whole of one, is passed over, so that it does not silence a machine that has another. Those that tell by their
/// name that they hold the General MIDI instruments come first, and of these and the others the larger ones: they sound
/// better. Files of the first `own` folders, which somebody chose to put there, come ahead of all others of their kind.
std::vector<std::filesystem::path> FindSoundFonts(const std::vector<std::filesystem::path>& folders, std::size_t own);

}  // namespace Quillon
