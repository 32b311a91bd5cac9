// Pictures of the open document's pages, and PDF files of them.
#pragma once

#include <filesystem>

#include "cli/DocumentFiles.h"

namespace Quillon::Cli {

/// Writes the pages of the current track, or the one asked for, as pictures of the path's ending. Several pages are
/// numbered before the ending. Raises CommandFailure for a page that is not there.
bool WritePictures(const std::filesystem::path& path, const ConvertOptions& options);

/// Writes the pages of the current track or all, or the page asked for, as one PDF file. Raises as WritePictures.
bool WriteEngravedPdf(const std::filesystem::path& path, const ConvertOptions& options);

}  // namespace Quillon::Cli
