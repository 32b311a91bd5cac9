// Text tablature of the open document on its way to a file.
#pragma once

#include <cstdint>
#include <filesystem>

#include "exchange/TextExport.h"

namespace Quillon::Exchange {

enum class TextKind : std::uint8_t { Text, Page, Pdf };

/// Line length and warning as the settings have them.
TextExportOptions TextOptionsOfSettings(int track);

/// Writes a track of the open document, all or nothing. The PDF is dated by SOURCE_DATE_EPOCH, seconds since 1970,
/// where that is set, else by the clock. Raises what the writers and the file system raise.
void ExportText(TextKind kind, const std::filesystem::path& path, const TextExportOptions& options);

}  // namespace Quillon::Exchange
