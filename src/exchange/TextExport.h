// The current track as plain text tablature, and as a web page that holds the same text. Made to be read by people and
// to be read back.
#pragma once

#include <string>

#include "core/mod_TabFileStructure.h"

namespace Quillon::Exchange {

struct TextExportOptions {
    int Track = 0;
    int MaxLineLength = 80;  ///< characters; a line may run past it by up to one bar. At least 1
    bool Warning = false;    ///< the lines that tell whose work the file is
};

/// The address that texts and pages name as the product's site; a value of the build.
extern const char* const ProductSite;

/// Bytes of the file in Windows-1252, lines ended by CR LF. Raise "Subscript out of range" for a track that is not
/// there, and number 5 for a line length below 1, which no bar would ever fit.
std::string WriteTextTab(const Core::TabFile& file, const TextExportOptions& options);
std::string WriteWebPage(const Core::TabFile& file, const TextExportOptions& options);

}  // namespace Quillon::Exchange
