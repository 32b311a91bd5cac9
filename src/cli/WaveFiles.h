// The open document as a sound file.
#pragma once

#include <filesystem>

#include "cli/DocumentFiles.h"

namespace Quillon::Cli {

/// Writes the whole song as the built-in synthesizer plays it, with the settings of the base folder. Raises
/// CommandFailure for a song that never ends or is too long, and RunTimeError 53 where there is no SoundFont.
bool WriteWave(const std::filesystem::path& path, const ConvertOptions& options);

}  // namespace Quillon::Cli
