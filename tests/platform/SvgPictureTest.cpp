#include "platform/portable/SvgPicture.h"

#include <vector>

#include "platform/portable/FontWidths.h"
#include "tests/support/Golden.h"

namespace Quillon {
namespace {

/// Whether elements open and close in pairs, attributes are quoted and no bare "&" or "<" stands in a text.
bool IsWellFormed(std::string_view xml) {
    std::vector<std::string> open;
    while (!xml.empty()) {
        const std::size_t tag = xml.find('<');
        const std::string_view text = xml.substr(0, tag);
        for (std::size_t i = text.find('&'); i != text.npos; i = text.find('&', i + 1)) {
            const std::string_view entity = text.substr(i, text.find(';', i) - i + 1);
            if (entity != "&amp;" && entity != "&lt;" && entity != "&gt;" && entity != "&quot;") return false;
        }
        if (tag == xml.npos) break;
        const std::size_t end = xml.find('>', tag);
        if (end == xml.npos) return false;
        const std::string_view element = xml.substr(tag + 1, end - tag - 1);
        if (std::count(element.begin(), element.end(), '"') % 2 != 0 || element.find('<') != element.npos) return false;
        if (element.front() == '/') {
            if (open.empty() || open.back() != element.substr(1)) return false;
            open.pop_back();
        } else if (element.back() != '/') {
            open.emplace_back(element.substr(0, element.find(' ')));
        }
        xml.remove_prefix(end + 1);
    }
    return open.empty();
}

TEST(SvgPicture, EveryOperationInItsOrder) {
    SvgPicture picture(120, 80);
    picture.SetColor(PackColor(16, 32, 255));
    picture.Line(10, 20, 40, 20, 1);
    picture.Line(10, 30, 10, 27, 3);
    picture.Box(1.25, 2, 6, 8, White);
    picture.Line(0, 0, 5, 7.125, 1.2);
    picture.Polyline({{5, 7}, {6, 8}, {7, 7}}, 1.2);
    picture.Polygon({{0, 0}, {0, 4}, {4, 4}});
    const Shape wedge{"wedge", {{{0, 0}, {4, -2}, {4, 2}}, {{5, -2}, {5, 2}, {6, 0}}}}, other{"wedge", wedge.Parts};
    picture.Stamp(wedge, 70, 20);
    picture.Stamp(other, 80, 20.25);
    picture.Stamp(wedge, 90, 20);
    picture.Circle(50, 40, 5, 1.5);
    picture.Disc(60, 40, 1.8);
    picture.Disc(60, 47, 1.8);
    picture.SetFont({.Name = "Small \"Fonts\"'", .Size = 6, .Bold = true, .Underline = true, .Strike = true});
    picture.Print(12, 30, "T < A & B", Anchor::Left);
    picture.SetFont({.Name = "Times New Roman", .Size = 9, .Italic = true});
    picture.Print(30, 30, " \"1\xC2\xBC\"\x01\n", Anchor::Center);
    picture.Print(90, 30, "\xC3(\xEF\xBF\xBF\xED\xA0\x80", Anchor::Right);
    EXPECT_TRUE(IsWellFormed(picture.Text()));
    Testing::CheckGolden("drawing/svg-operations.svg", picture.Text());
}

TEST(SvgPicture, AnEmptyPictureIsAPicture) { EXPECT_TRUE(IsWellFormed(SvgPicture(10, 10).Text())); }

TEST(FontWidths, FollowFamilyWeightAndSize) {
    struct {
        Font Face;
        const char* Text;
        double Width;
    } const rows[] = {
        {{.Name = "Arial", .Size = 7.5}, "12", 11.12},
        {{.Name = "Small Fonts", .Size = 7.5}, "P.M.", 20.56},
        {{.Name = "Arial", .Size = 7.5, .Bold = true}, "A", 7.22},
        {{.Name = "Times New Roman", .Size = 7.5}, "A", 7.22},
        {{.Name = "Times New Roman", .Size = 7.5, .Italic = true}, "A", 6.11},
        {{.Name = "Noto Sans Serif", .Size = 7.5}, "A", 6.67},
        {{.Name = "Courier New", .Size = 7.5}, "W\xC2\xBC", 12},
        {{.Name = "Arial", .Size = 7.5}, "\xE2\x82\xAC", 5.56},
        {{.Name = "Arial", .Size = 7.5}, "\xE2\x99\xAF", 6},
        {{.Name = "Arial", .Size = 7.5}, "\xE2\x99", 11.56},
    };
    for (const auto& row : rows) EXPECT_NEAR(FontTextWidth(row.Face, row.Text), row.Width, 1e-9) << row.Text;
}

}  // namespace
}  // namespace Quillon
