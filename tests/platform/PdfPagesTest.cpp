#include "platform/pdf/PdfPages.h"

#include <zlib.h>

#include "tests/support/Golden.h"

namespace Quillon {
namespace {

const Shape Wedge = {"wedge", {{{0, 0}, {0, 4}, {4, 4}}, {{-1, -1}, {2, 0}, {0, 2}}}};

/// What the streams of a file hold, one behind the other.
std::string Inflated(const std::string& pdf) {
    std::string all;
    for (std::size_t at = pdf.find("stream\n"); at != pdf.npos; at = pdf.find("\nstream\n", at + 1)) {
        at += pdf[at] == '\n' ? 8 : 7;
        std::string text(1 << 20, '\0');
        uLongf size = text.size();
        const auto* from = reinterpret_cast<const Bytef*>(pdf.data() + at);
        if (uncompress(reinterpret_cast<Bytef*>(text.data()), &size, from, pdf.size() - at) == Z_OK) {
            all += text.substr(0, size);
        } else {
            ADD_FAILURE() << "a stream that can't be read at " << at;
        }
    }
    return all;
}

std::string TwoPages() {
    PdfPages pages;
    pages.BeginChapter("Gitarre (rhythm)");
    Picture& first = pages.BeginPage({795, 1124, 210, 297});
    first.Print(100, 100, "To waffle \xC3\xA4\xE2\x99\xAF", Anchor::Left);
    first.Stamp(Wedge, 10, 10);
    pages.BeginChapter("\xD0\x91\xD0\xB0\xD1\x81");
    Picture& second = pages.BeginPage({1124, 795, 297, 210});
    second.SetFont({.Name = "Times New Roman", .Size = 20, .Italic = true, .Underline = true});
    second.Print(100, 100, "Second", Anchor::Right);
    return pages.Finish({.Title = "Title (\xC3\xBC)", .Author = "A", .CreationDate = "20240102030405"});
}

TEST(PdfPicture, EveryOperationInItsOrder) {
    PdfResources shared;
    PdfPicture picture(shared, 120, 80, 0.75);
    picture.Box(0, 0, 120, 80, White);  // the paper, which is white
    picture.SetColor(PackColor(16, 32, 255));
    picture.Line(10, 20, 40, 20, 1);
    picture.Line(10, 30, 10, 27, 1);
    picture.Line(10, 40, 20, 40, 2);
    picture.Box(1.25, 2, 6, 8, White);
    picture.Line(0, 0, 5, 7.125, 1.2);
    picture.Polyline({{5, 7}, {6, 8}, {7, 7}}, 1.2);
    picture.Polygon({{0, 0}, {0, 4}, {4, 4}});
    picture.Polygon({{4, 4}, {0, 4}, {0, 0}});
    picture.Stamp(Wedge, 30, 30);
    picture.Stamp(Wedge, -0.004, 30);
    picture.Circle(50, 40, 5, 1.5);
    picture.Disc(60, 40, 1.8);
    picture.Disc(60, 47, 1.8);
    std::string bounds;
    const std::string shape = PdfShapeContent(Wedge, bounds);
    Testing::CheckGolden("drawing/pdf-operations.txt", picture.TakeContent() + "shape " + bounds + "\n" + shape);
}

TEST(PdfPages, ObjectsStandWhereTheTableSays) {
    const std::string pdf = TwoPages();
    std::size_t row = std::stoul(pdf.substr(pdf.rfind("startxref\n") + 10));
    ASSERT_EQ(pdf.substr(row, 7), "xref\n0 ");
    row = pdf.find('\n', row + 5) + 1;
    int objects = 0;
    for (row += 20; pdf.compare(row, 7, "trailer") != 0; row += 20) {
        const std::size_t place = std::stoul(pdf.substr(row, 10));
        EXPECT_EQ(pdf.substr(place, pdf.find('\n', place) - place), std::to_string(++objects) + " 0 obj");
    }
    EXPECT_GT(objects, 10);
    EXPECT_EQ(pdf, TwoPages()) << "the same pages made other bytes";
}

TEST(PdfPages, TextsCanBeReadAndFound) {
    const std::string pdf = TwoPages();
    for (const char* part :
         {"/MediaBox[0 0 595.28 841.89]", "/MediaBox[0 0 841.89 595.28]", "/Author(A)", "/FontFile2",
          "/Title<FEFF005400690074006C006500200028", "/CreationDate(D:20240102030405)", "/Title<FEFF041104300441>"}) {
        EXPECT_NE(pdf.find(part), pdf.npos) << part;
    }
    EXPECT_NE(pdf.find("/Count 2/Kids"), pdf.npos);
    const std::string streams = Inflated(pdf);
    // Each character of the texts is the meaning of some glyph.
    for (const char* code : {"<0054>", "<0077>", "<00E4>", "<266F>", "<0053>"}) {
        EXPECT_NE(streams.find(code), streams.npos) << code;
    }
}

TEST(PdfPages, DamagedTextsMakeAFileAllTheSame) {
    PdfPages pages;
    Picture& picture = pages.BeginPage({100, 100, 26, 26});
    EXPECT_EQ(picture.TextWidth(""), 0);
    for (const char* text : {"\xC3(", "\xED\xA0\x80", "\xF0\x9F", "\x01\x02\xFF", "\xF4\x90\x80\x80"}) {
        picture.Print(10, 10, text, Anchor::Center);
    }
    picture.SetFont({.Name = "No such font \xFF", .Size = -3, .Bold = true, .Italic = true, .Strike = true});
    picture.Print(10, 10, "A", Anchor::Left);
    EXPECT_NE(pages.Finish({.Title = "\xFF"}).find("<FEFFFFFD>"), std::string::npos);
}

TEST(PdfPages, WidthsGrowWithTheSize) {
    PdfResources shared;
    PdfPicture picture(shared, 100, 100, 0.75);
    picture.SetFont({.Name = "Arial", .Size = 8});
    const double width = picture.TextWidth("AVATAR 12");
    EXPECT_GT(width, 40);
    picture.SetFont({.Name = "Arial", .Size = 16});
    EXPECT_NEAR(picture.TextWidth("AVATAR 12"), 2 * width, 1e-9);
}

}  // namespace
}  // namespace Quillon
