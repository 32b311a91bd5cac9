#include "platform/pdf/FontFaces.h"

#include <hb-ot.h>
#include <hb-subset.h>

#include <cmath>
#include <cstring>

#include "platform/RunTimeError.h"

namespace Quillon {

namespace {

constexpr hb_tag_t CompactOutlines = HB_TAG('C', 'F', 'F', ' ');

struct Blob {
    hb_blob_t* Held;
    explicit Blob(hb_blob_t* blob) : Held(blob) {}
    ~Blob() { hb_blob_destroy(Held); }
    Blob(const Blob&) = delete;
    Blob& operator=(const Blob&) = delete;

    std::string_view Bytes() const {
        unsigned length = 0;
        const char* const data = hb_blob_get_data(Held, &length);
        return {data, length};
    }
};

int SignedAt(std::string_view bytes, std::size_t at) {
    if (at + 2 > bytes.size()) return 0;
    const auto high = static_cast<unsigned char>(bytes[at]);
    const auto low = static_cast<unsigned char>(bytes[at + 1]);
    return static_cast<std::int16_t>(high << 8 | low);
}

}  // namespace

FontFace::FontFace(const std::string& path, int index) {
    const Blob blob(hb_blob_create_from_file(path.c_str()));
    face = hb_face_create(blob.Held, static_cast<unsigned>(index));
    font = hb_font_create(face);
    unitsPerEm = static_cast<int>(hb_face_get_upem(face));
}

FontFace::~FontFace() {
    hb_font_destroy(font);
    hb_face_destroy(face);
}

bool FontFace::Has(char32_t character) const {
    hb_codepoint_t glyph = 0;
    return hb_font_get_nominal_glyph(font, character, &glyph) != 0;
}

std::vector<ShapedGlyph> FontFace::Shape(std::string_view text) const {
    const std::unique_ptr<hb_buffer_t, decltype(&hb_buffer_destroy)> held(hb_buffer_create(), hb_buffer_destroy);
    hb_buffer_t* const buffer = held.get();
    hb_buffer_add_utf8(buffer, text.data(), static_cast<int>(text.size()), 0, -1);
    hb_buffer_guess_segment_properties(buffer);
    hb_shape(font, buffer, nullptr, 0);
    unsigned count = 0;
    const hb_glyph_info_t* const infos = hb_buffer_get_glyph_infos(buffer, &count);
    const hb_glyph_position_t* const places = hb_buffer_get_glyph_positions(buffer, nullptr);
    const bool backward = HB_DIRECTION_IS_BACKWARD(hb_buffer_get_direction(buffer)) != 0;
    std::vector<ShapedGlyph> glyphs;
    glyphs.reserve(count);
    for (unsigned i = 0; i < count; ++i) {
        ShapedGlyph glyph{infos[i].codepoint, Thousandths(places[i].x_advance), Thousandths(places[i].x_offset), {}};
        const std::size_t first = infos[i].cluster;
        const bool goesOn = i > 0 && infos[i - 1].cluster == first;
        std::size_t end = text.size();
        // The text of a cluster ends where the next one, to the right or to the left, begins.
        for (unsigned k = 0; k < count; ++k) {
            const unsigned other = backward ? i - std::min(i, k + 1) : i + k + 1;
            if (other >= count || (backward && i < k + 1)) break;
            if (infos[other].cluster == first) continue;
            end = infos[other].cluster;
            break;
        }
        if (!goesOn && end > first) glyph.Text = text.substr(first, end - first);
        glyphs.push_back(glyph);
    }
    return glyphs;
}

double FontFace::Advance(std::uint32_t glyph) const { return Thousandths(hb_font_get_glyph_h_advance(font, glyph)); }

FaceMetrics FontFace::Metrics() const {
    const auto metric = [&](hb_ot_metrics_tag_t tag) {
        hb_position_t value = 0;
        hb_ot_metrics_get_position_with_fallback(font, tag, &value);
        return static_cast<int>(std::lround(Thousandths(value)));
    };
    FaceMetrics metrics;
    metrics.Ascent = metric(HB_OT_METRICS_TAG_HORIZONTAL_ASCENDER);
    metrics.Descent = metric(HB_OT_METRICS_TAG_HORIZONTAL_DESCENDER);
    metrics.CapHeight = metric(HB_OT_METRICS_TAG_CAP_HEIGHT);
    metrics.UnderlineY = metric(HB_OT_METRICS_TAG_UNDERLINE_OFFSET);
    metrics.UnderlineSize = metric(HB_OT_METRICS_TAG_UNDERLINE_SIZE);
    metrics.StrikeY = metric(HB_OT_METRICS_TAG_STRIKEOUT_OFFSET);
    metrics.StrikeSize = metric(HB_OT_METRICS_TAG_STRIKEOUT_SIZE);
    metrics.ItalicAngle = static_cast<int>(std::lround(hb_style_get_value(font, HB_STYLE_TAG_SLANT_ANGLE)));
    const Blob head(hb_face_reference_table(face, HB_TAG('h', 'e', 'a', 'd')));
    constexpr std::size_t BoxInHead = 36;
    const auto bound = [&](std::size_t which) {
        return static_cast<int>(std::lround(Thousandths(SignedAt(head.Bytes(), BoxInHead + 2 * which))));
    };
    metrics.Left = bound(0);
    metrics.Bottom = bound(1);
    metrics.Right = bound(2);
    metrics.Top = bound(3);
    return metrics;
}

std::string FontFace::PostScriptName() const {
    char name[128];
    unsigned size = sizeof name;
    hb_ot_name_get_utf8(face, HB_OT_NAME_ID_POSTSCRIPT_NAME, HB_LANGUAGE_INVALID, &size, name);
    std::string plain;
    for (const char c : std::string_view(name)) {
        const bool fits = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '-';
        if (fits) plain += c;
    }
    return plain.empty() ? "Font" : plain;
}

bool FontFace::IsCompact() const {
    const Blob outlines(hb_face_reference_table(face, CompactOutlines));
    return !outlines.Bytes().empty();
}

std::string FontFace::Subset(const std::set<std::uint32_t>& glyphs) const {
    const std::unique_ptr<hb_subset_input_t, decltype(&hb_subset_input_destroy)> input(hb_subset_input_create_or_fail(),
                                                                                       hb_subset_input_destroy);
    if (!input) RaiseOutOfMemory();
    hb_subset_input_set_flags(input.get(), HB_SUBSET_FLAGS_RETAIN_GIDS | HB_SUBSET_FLAGS_NO_HINTING);
    hb_set_t* const wanted = hb_subset_input_glyph_set(input.get());
    for (const std::uint32_t glyph : glyphs) hb_set_add(wanted, glyph);
    // The file that holds the font says itself which glyph stands where, and what it means.
    hb_set_t* const dropped = hb_subset_input_set(input.get(), HB_SUBSET_SETS_DROP_TABLE_TAG);
    for (const char* const tag : {"GSUB", "GPOS", "GDEF", "OS/2", "cmap", "name", "post", "gasp", "STAT", "FFTM"}) {
        hb_set_add(dropped, hb_tag_from_string(tag, 4));
    }
    const std::unique_ptr<hb_face_t, decltype(&hb_face_destroy)> part(hb_subset_or_fail(face, input.get()),
                                                                      hb_face_destroy);
    if (!part) RaiseOutOfMemory();
    const Blob bytes(IsCompact() ? hb_face_reference_table(part.get(), CompactOutlines)
                                 : hb_face_reference_blob(part.get()));
    return std::string(bytes.Bytes());
}

}  // namespace Quillon
