// The font files of the machine: which one stands for a document's font, which glyphs a text takes, and the part of a
// file that holds just those glyphs.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "platform/Picture.h"

struct hb_face_t;
struct hb_font_t;

namespace Quillon {

/// Lengths in thousandths of the em.
struct ShapedGlyph {
    std::uint32_t Id = 0;
    double Advance = 0;
    double Right = 0;       ///< how far it stands from its place
    std::string_view Text;  ///< what it stands for; "" for all but the first glyph of several for one
};

struct FaceMetrics {
    int Ascent = 0, Descent = 0, CapHeight = 0;  ///< thousandths of the em
    int Left = 0, Bottom = 0, Right = 0, Top = 0;
    int ItalicAngle = 0;
    int UnderlineY = 0, UnderlineSize = 0, StrikeY = 0, StrikeSize = 0;
};

class FontFace {
public:
    FontFace(const std::string& path, int index);
    ~FontFace();
    FontFace(const FontFace&) = delete;
    FontFace& operator=(const FontFace&) = delete;

    bool Has(char32_t character) const;
    /// From left to right. The glyphs' texts point into `text`.
    std::vector<ShapedGlyph> Shape(std::string_view text) const;
    double Advance(std::uint32_t glyph) const;
    FaceMetrics Metrics() const;
    std::string PostScriptName() const;
    /// True for outlines of cubic curves, which stand in a table of their own.
    bool IsCompact() const;
    /// A font file of these glyphs, which keep their numbers; of a compact one only that table.
    std::string Subset(const std::set<std::uint32_t>& glyphs) const;

private:
    double Thousandths(double units) const { return units * 1000 / unitsPerEm; }

    hb_face_t* face;
    hb_font_t* font;
    int unitsPerEm;
};

/// A face, and what is missing to the wanted style.
struct StyledFace {
    FontFace* Face = nullptr;
    bool Embolden = false;
    bool Slant = false;
};

class FontFinder {
public:
    /// The face for a font. Raises RunTimeError 53 on a machine without any font.
    StyledFace Find(const Font& font);
    /// One that has this character too; without a face when the machine knows none.
    StyledFace FindFor(const Font& font, char32_t character);

private:
    StyledFace Match(const Font& font, char32_t character);

    std::map<std::pair<std::string, int>, std::unique_ptr<FontFace>> faces;
    std::map<std::tuple<std::string, bool, bool, char32_t>, StyledFace> known;
};

}  // namespace Quillon
