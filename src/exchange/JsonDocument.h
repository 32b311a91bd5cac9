// The document as JSON: what other programs read and write.
//
// Fields bear the names of the document's records and stand in their order. Written are every field of the document,
// its tracks and its bar infos; of a strum its length always, all else only when it is not 0, "" or false.
#pragma once

#include <string>
#include <string_view>

#include "core/mod_TabFileStructure.h"

namespace Quillon {
struct SettingsStore;
}

namespace Quillon::Exchange {

/// UTF-8, indented by two blanks, with a line end behind the last brace.
std::string WriteJson(const Core::TabFile& file);

/// Reads a whole document. A field that is left out has its new-file value, with the defaults of `settings`; 0, "" or
/// false in strums and notes; a length left out is a quarter. Raises RunTimeError 13 with a description that begins
/// with the place ("Tracks[0].Bars[3].Strums[1].Length: ...") for unknown keys, wrong types, numbers out of range,
/// arrays of the wrong length, tracks of unequal bar counts, and for what is no JSON at all.
Core::TabFile ReadJson(std::string_view bytes, const SettingsStore& settings);

}  // namespace Quillon::Exchange
