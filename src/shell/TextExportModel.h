// The export of the current track as text tablature, as a web page or as a PDF of that text.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "exchange/TextFileExport.h"
#include "shell/DialogModel.h"

namespace Quillon::Shell {

struct TextExportModel : DialogModel {
    Exchange::TextKind Kind = Exchange::TextKind::Text;
    std::int16_t MaxLineLength = 80;  ///< characters, 1 to MostLineLength
    bool Warning = false;             ///< the lines that tell whose work the file is

    static constexpr int MostLineLength = 32767;
    void Load(Exchange::TextKind kind);
    std::string_view Title() const;  ///< a text key
    /// The beginning of what is written, UTF-8.
    std::string Sample() const;
    /// The settings keep what was chosen.
    void Apply() const;
};

/// The music file's name with another ending in place of its last four characters.
std::filesystem::path ExportName(std::string_view ending);

void mnuFileExportASCII_Click();
void mnuFileExportHTML_Click();
void mnuFileExportPDF_Click();

}  // namespace Quillon::Shell
