// The fonts of a PDF file: texts as the numbers of glyphs, and at the end the glyphs that were used.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/pdf/FontFaces.h"
#include "platform/pdf/PdfFile.h"

namespace Quillon {

/// A part of a text in one face.
struct PdfRun {
    int Face = 0;
    bool Embolden = false;
    bool Slant = false;
    double Width = 0;      ///< thousandths of the em
    std::string Operator;  ///< shows it: "<00150016>Tj"
    std::vector<ShapedGlyph> Glyphs;
};

struct PdfShownText {
    std::vector<PdfRun> Runs;
    double Width = 0;  ///< thousandths of the em
    bool Used = false;
};

class PdfFonts {
public:
    /// A number for a font.
    int FontId(const Font& font);
    /// Height of the em in document pixels.
    double Pixels(int font) const { return fonts.at(static_cast<std::size_t>(font)).Pixels; }
    const Font& Wanted(int font) const { return fonts.at(static_cast<std::size_t>(font)).Wanted; }
    double Width(int font, std::string_view text) { return Shaped(font, text).Width * Pixels(font) / 1000; }
    /// A text that is going to be shown: its glyphs come into the file.
    const PdfShownText& Show(int font, std::string_view text);
    const FaceMetrics& Metrics(int font);
    /// Writes the faces and gives the dictionary that names them for pages: "/F0 7 0 R".
    std::string Write(PdfFile& file) const;

private:
    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };
    struct KnownFont {
        Font Wanted;
        double Pixels;
        StyledFace Face;
        std::unordered_map<std::string, PdfShownText, Hash, std::equal_to<>> Texts;
    };
    struct UsedFace {
        FontFace* Face;
        FaceMetrics Metrics;
        std::map<std::uint32_t, std::string> Glyphs;  ///< what each stands for
    };

    PdfShownText& Shaped(int font, std::string_view text);
    void AddRun(PdfShownText& shown, const StyledFace& styled, std::string_view part);
    int FaceNumber(FontFace* face);
    static int WriteFace(PdfFile& file, const UsedFace& used);

    FontFinder finder;
    std::vector<KnownFont> fonts;
    std::vector<UsedFace> faces;
};

}  // namespace Quillon
