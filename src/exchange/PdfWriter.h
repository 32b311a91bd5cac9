// Text as a small PDF file: one font of fixed width, no compression, written by hand.
#pragma once

#include <string>
#include <string_view>

namespace Quillon::Exchange {

/// Texts in Windows-1252.
struct PdfTextOptions {
    std::string Author;
    std::string Title;
    std::string Subject = "Quillon 4 Tab";
    std::string Keywords;
    std::string CreationDate;  ///< "YYYYMMDDHHNNSS"
    std::string FontName = "Courier";
    int FontSize = 8;  ///< points
    int Rotate = 0;    ///< degrees, of every page
    double WidthInInches = 8.5;
    double HeightInInches = 11;
};

/// Bytes of the file. `text` is in Windows-1252; lines end with CR LF, LF or the end. A line that is too long goes on
/// in the next, behind the last character of it that may end a line; text without any line makes one empty page.
std::string WriteTextPdf(std::string_view text, const PdfTextOptions& options);

}  // namespace Quillon::Exchange
