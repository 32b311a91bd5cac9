// Texts between the program, where they are UTF-8, and its windows.
#pragma once

#include <QString>
#include <filesystem>
#include <string>
#include <string_view>

#include "core/mod_Language.h"

namespace Quillon::Forms {

inline QString ToQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The text of a key in the language in use.
inline QString Text(std::string_view key) { return ToQString(Core::LanguageText(key)); }

inline QString PathText(const std::filesystem::path& path) { return QString::fromStdString(path.string()); }
inline std::filesystem::path ToPath(const QString& text) { return text.toStdString(); }

}  // namespace Quillon::Forms
