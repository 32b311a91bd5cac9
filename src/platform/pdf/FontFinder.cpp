// Which file stands for a font is the system's own choice, as for every program of the desktop.
#include <fontconfig/fontconfig.h>

#include "platform/FontStandIns.h"
#include "platform/RunTimeError.h"
#include "platform/pdf/FontFaces.h"

namespace Quillon {

namespace {

using Pattern = std::unique_ptr<FcPattern, decltype(&FcPatternDestroy)>;

constexpr int FileNotFound = 53;

Pattern PatternOf(const Font& font, char32_t character) {
    Pattern pattern(FcPatternCreate(), FcPatternDestroy);
    const auto addFamily = [&](std::string_view name) {
        const std::string text(name);
        FcPatternAddString(pattern.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(text.c_str()));
    };
    for (const std::string_view family : FontStandIns(font.Name)) addFamily(family);
    if (FontStandIns(font.Name).empty()) addFamily(font.Name);
    FcPatternAddInteger(pattern.get(), FC_WEIGHT, font.Bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddInteger(pattern.get(), FC_SLANT, font.Italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddBool(pattern.get(), FC_OUTLINE, FcTrue);
    FcPatternAddBool(pattern.get(), FC_SCALABLE, FcTrue);
    FcPatternAddBool(pattern.get(), FC_VARIABLE, FcFalse);
    if (character != 0) {
        FcCharSet* const characters = FcCharSetCreate();
        FcCharSetAddChar(characters, character);
        FcPatternAddCharSet(pattern.get(), FC_CHARSET, characters);
        FcCharSetDestroy(characters);
    }
    FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    return pattern;
}

std::string TextIn(FcPattern* pattern, const char* what) {
    FcChar8* text = nullptr;
    if (FcPatternGetString(pattern, what, 0, &text) != FcResultMatch) return "";
    return reinterpret_cast<const char*>(text);
}

int NumberIn(FcPattern* pattern, const char* what) {
    int number = 0;
    FcPatternGetInteger(pattern, what, 0, &number);
    return number;
}

/// Other kinds of files, and coloured pictures, can't be cut to the glyphs that are used.
bool CanBeUsed(FcPattern* pattern) {
    const std::string format = TextIn(pattern, FC_FONTFORMAT);
    FcBool colored = FcFalse;
    FcPatternGetBool(pattern, FC_COLOR, 0, &colored);
    return (format == "TrueType" || format == "CFF") && !colored;
}

/// The best match that can be used.
Pattern BestOf(FcPattern* wanted) {
    FcResult result = FcResultNoMatch;
    Pattern best(FcFontMatch(nullptr, wanted, &result), FcPatternDestroy);
    if (best && CanBeUsed(best.get())) return best;
    FcFontSet* const all = FcFontSort(nullptr, wanted, FcTrue, nullptr, &result);
    best.reset();
    for (int i = 0; all && i < all->nfont && !best; ++i) {
        if (CanBeUsed(all->fonts[i])) best.reset(FcFontRenderPrepare(nullptr, wanted, all->fonts[i]));
    }
    if (all) FcFontSetDestroy(all);
    return best;
}

}  // namespace

StyledFace FontFinder::Match(const Font& font, char32_t character) {
    const Pattern wanted = PatternOf(font, character);
    const Pattern best = BestOf(wanted.get());
    if (!best) return {};
    const std::pair key{TextIn(best.get(), FC_FILE), NumberIn(best.get(), FC_INDEX)};
    std::unique_ptr<FontFace>& face = faces[key];
    if (!face) face = std::make_unique<FontFace>(key.first, key.second & 0xFFFF);
    return {face.get(), font.Bold && NumberIn(best.get(), FC_WEIGHT) <= FC_WEIGHT_MEDIUM,
            font.Italic && NumberIn(best.get(), FC_SLANT) == FC_SLANT_ROMAN};
}

StyledFace FontFinder::Find(const Font& font) {
    const StyledFace found = FindFor(font, 0);
    if (!found.Face) throw RunTimeError(FileNotFound, "No font was found on this machine");
    return found;
}

StyledFace FontFinder::FindFor(const Font& font, char32_t character) {
    const auto [row, isNew] = known.try_emplace({font.Name, font.Bold, font.Italic, character});
    if (isNew) {
        row->second = Match(font, character);
        if (character != 0 && row->second.Face && !row->second.Face->Has(character)) row->second = {};
    }
    return row->second;
}

}  // namespace Quillon
