// The current track of the open document as text tablature, in a web page or in a PDF.
#pragma once

#include <filesystem>

#include "cli/DocumentFiles.h"

namespace Quillon::Cli {

bool WriteText(const std::filesystem::path& path, const ConvertOptions& options);
bool WritePage(const std::filesystem::path& path, const ConvertOptions& options);
bool WritePdf(const std::filesystem::path& path, const ConvertOptions& options);

}  // namespace Quillon::Cli
