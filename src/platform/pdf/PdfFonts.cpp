#include "platform/pdf/PdfFonts.h"

#include <algorithm>
#include <cmath>

namespace Quillon {

namespace {

/// The length of the UTF-8 character that begins a text, and the character; bytes that make none stand for themselves.
std::pair<std::size_t, char32_t> FirstCharacter(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = lead < 0xC0 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (length == 1 || length > text.size()) return {1, lead};
    char32_t character = lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        character = character << 6 | (static_cast<unsigned char>(text[i]) & 0x3Fu);
    }
    return {length, character};
}

std::string ShowOperator(const FontFace& face, const std::vector<ShapedGlyph>& glyphs) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text = "<";
    double away = 0;  // from where the widths alone would put the next glyph
    bool pieces = false;
    for (const ShapedGlyph& glyph : glyphs) {
        const auto step = std::lround(away + glyph.Right);
        if (step != 0) {
            text += ">" + std::to_string(-step) + "<";
            pieces = true;
            away -= static_cast<double>(step);
        }
        for (const int shift : {12, 8, 4, 0}) text += digits[glyph.Id >> shift & 15];
        away += glyph.Advance - face.Advance(glyph.Id);
    }
    text += '>';
    return pieces ? "[" + text + "]TJ" : text + "Tj";
}

std::string Tag(const std::string& bytes) {
    std::uint32_t sum = 2166136261u;
    for (const char c : bytes) sum = (sum ^ static_cast<unsigned char>(c)) * 16777619u;
    std::string tag;
    for (int i = 0; i < 6; ++i, sum /= 26) tag += static_cast<char>('A' + sum % 26);
    return tag;
}

}  // namespace

int PdfFonts::FontId(const Font& font) {
    const auto found = std::ranges::find(fonts, font, &KnownFont::Wanted);
    if (found != fonts.end()) return static_cast<int>(found - fonts.begin());
    // No font has an em of no height, and a damaged document may ask for any.
    fonts.push_back({font, std::clamp(font.Pixels(), 1.0, 4000.0), finder.Find(font), {}});
    return static_cast<int>(fonts.size() - 1);
}

int PdfFonts::FaceNumber(FontFace* face) {
    const auto found = std::ranges::find(faces, face, &UsedFace::Face);
    if (found != faces.end()) return static_cast<int>(found - faces.begin());
    faces.push_back({face, face->Metrics(), {}});
    return static_cast<int>(faces.size() - 1);
}

const FaceMetrics& PdfFonts::Metrics(int font) {
    const int number = FaceNumber(fonts.at(static_cast<std::size_t>(font)).Face.Face);
    return faces[static_cast<std::size_t>(number)].Metrics;
}

void PdfFonts::AddRun(PdfShownText& shown, const StyledFace& styled, std::string_view part) {
    PdfRun run{FaceNumber(styled.Face), styled.Embolden, styled.Slant, 0, {}, styled.Face->Shape(part)};
    for (const ShapedGlyph& glyph : run.Glyphs) run.Width += glyph.Advance;
    run.Operator = ShowOperator(*styled.Face, run.Glyphs);
    shown.Width += run.Width;
    shown.Runs.push_back(std::move(run));
}

PdfShownText& PdfFonts::Shaped(int font, std::string_view text) {
    KnownFont& known = fonts.at(static_cast<std::size_t>(font));
    if (const auto found = known.Texts.find(text); found != known.Texts.end()) return found->second;
    const auto row = known.Texts.emplace(text, PdfShownText{}).first;
    PdfShownText& shown = row->second;
    // The glyphs' texts point into the table's own copy.
    std::string_view rest = row->first;
    StyledFace face = known.Face;
    std::size_t length = 0;
    while (length < rest.size()) {
        const auto [size, character] = FirstCharacter(rest.substr(length));
        StyledFace next = known.Face;
        if (!next.Face->Has(character)) {
            const StyledFace other = finder.FindFor(known.Wanted, character);
            if (other.Face) next = other;
        }
        if (next.Face != face.Face && length > 0) {
            AddRun(shown, face, rest.substr(0, length));
            rest.remove_prefix(length);
            length = 0;
        }
        face = next;
        length += size;
    }
    if (!rest.empty()) AddRun(shown, face, rest);
    return shown;
}

const PdfShownText& PdfFonts::Show(int font, std::string_view text) {
    PdfShownText& shown = Shaped(font, text);
    if (shown.Used) return shown;
    shown.Used = true;
    for (const PdfRun& run : shown.Runs) {
        auto& glyphs = faces[static_cast<std::size_t>(run.Face)].Glyphs;
        for (const ShapedGlyph& glyph : run.Glyphs) {
            std::string& meaning = glyphs[glyph.Id];
            if (meaning.empty()) meaning = glyph.Text;
        }
    }
    return shown;
}

int PdfFonts::WriteFace(PdfFile& file, const UsedFace& used) {
    std::set<std::uint32_t> glyphs;
    std::string widths;
    std::string meanings;
    std::size_t meaningCount = 0;
    std::string table;
    const auto endMeanings = [&] {
        if (meaningCount == 0) return;
        table += std::to_string(meaningCount) + " beginbfchar\n" + meanings + "endbfchar\n";
        meanings.clear();
        meaningCount = 0;
    };
    std::uint32_t expected = 0;
    for (const auto& [glyph, meaning] : used.Glyphs) {
        glyphs.insert(glyph);
        if (widths.empty() || glyph != expected) widths += (widths.empty() ? "" : "]") + std::to_string(glyph) + "[";
        widths += std::to_string(std::lround(used.Face->Advance(glyph))) + " ";
        expected = glyph + 1;
        if (meaning.empty()) continue;
        char code[8];
        std::snprintf(code, sizeof code, "%04X", glyph & 0xFFFFu);
        meanings += std::string("<") + code + "><" + PdfUtf16(meaning) + ">\n";
        constexpr std::size_t MostMeanings = 100;  // of one table
        if (++meaningCount == MostMeanings) endMeanings();
    }
    endMeanings();
    const bool compact = used.Face->IsCompact();
    const std::string part = used.Face->Subset(glyphs);
    const int program =
        file.AddStream(compact ? "/Subtype/CIDFontType0C" : "/Length1 " + std::to_string(part.size()), part);
    const std::string name = Tag(part) + "+" + used.Face->PostScriptName();
    const FaceMetrics& at = used.Metrics;
    constexpr int Symbolic = 4;
    constexpr int Italic = 64;
    const std::string bounds = std::to_string(at.Left) + " " + std::to_string(at.Bottom) + " " +
                               std::to_string(at.Right) + " " + std::to_string(at.Top);
    const int descriptor =
        file.Add("<</Type/FontDescriptor/FontName/" + name + "/Flags " +
                 std::to_string(Symbolic | (at.ItalicAngle != 0 ? Italic : 0)) + "/FontBBox[" + bounds +
                 "]/ItalicAngle " + std::to_string(at.ItalicAngle) + "/Ascent " + std::to_string(at.Ascent) +
                 "/Descent " + std::to_string(at.Descent) + "/CapHeight " + std::to_string(at.CapHeight) +
                 "/StemV 80/FontFile" + (compact ? "3 " : "2 ") + PdfReference(program) + ">>");
    const int descendant = file.Add(
        std::string("<</Type/Font/Subtype/CIDFontType") + (compact ? "0" : "2/CIDToGIDMap/Identity") + "/BaseFont/" +
        name + "/CIDSystemInfo<</Registry(Adobe)/Ordering(Identity)/Supplement 0>>/FontDescriptor " +
        PdfReference(descriptor) + "/W[" + widths + "]]>>");
    const int toUnicode =
        file.AddStream("",
                       "/CIDInit/ProcSet findresource begin\n12 dict begin\nbegincmap\n/CIDSystemInfo<</Registry(Adobe)"
                       "/Ordering(UCS)/Supplement 0>>def\n/CMapName/Adobe-Identity-UCS def\n/CMapType 2 def\n"
                       "1 begincodespacerange\n<0000><FFFF>\nendcodespacerange\n" +
                           table + "endcmap\nCMapName currentdict/CMap defineresource pop\nend\nend\n");
    return file.Add("<</Type/Font/Subtype/Type0/BaseFont/" + name + "/Encoding/Identity-H/DescendantFonts[" +
                    PdfReference(descendant) + "]/ToUnicode " + PdfReference(toUnicode) + ">>");
}

std::string PdfFonts::Write(PdfFile& file) const {
    std::string names;
    for (std::size_t i = 0; i < faces.size(); ++i) {
        if (faces[i].Glyphs.empty()) continue;
        names += "/F" + std::to_string(i) + " " + PdfReference(WriteFace(file, faces[i]));
    }
    return names;
}

}  // namespace Quillon
