// Text tabs, pages and text PDFs against fixed bytes.
#include "exchange/TextExport.h"

#include <gmock/gmock.h>

#include <sstream>

#include "exchange/JsonDocument.h"
#include "exchange/PdfWriter.h"
#include "platform/RunTimeError.h"
#include "platform/headless/MemoryStore.h"
#include "tests/support/Golden.h"

namespace Quillon::Exchange {
namespace {

using testing::HasSubstr;

std::string WithSite(std::string text) {
    for (std::size_t at = text.find("@SITE@"); at != std::string::npos; at = text.find("@SITE@")) {
        text.replace(at, 6, ProductSite);
    }
    return text;
}

struct Case {
    const char* Name;
    int MaxLine;
    int Track = 0;
    bool Warning = false;
};

TEST(TextExportTest, TextsAndPagesHaveTheirBytes) {
    const MemoryStore store;
    const auto folder = Testing::GoldenDir() / "text";
    for (const Case& each : {Case{"b01-new", 80}, Case{"b02-song", 60}, Case{"b03-warning-second-track", 1, 1, true},
                             Case{"c01-75-lines", 1}, Case{"c02-76-lines", 1}}) {
        SCOPED_TRACE(each.Name);
        const std::string name = each.Name;
        const Core::TabFile file = ReadJson(Testing::Slurp(folder / (name + ".json")), store);
        const TextExportOptions options{each.Track, each.MaxLine, each.Warning};
        EXPECT_EQ(WriteTextTab(file, options), WithSite(Testing::Slurp(folder / (name + ".want.txt"))));
        EXPECT_EQ(WriteWebPage(file, options), WithSite(Testing::Slurp(folder / (name + ".want.html"))));
    }
}

TEST(TextExportTest, ALineOfNoLengthIsRefused) {
    EXPECT_THROW(WriteTextTab({}, {0, 0, false}), RunTimeError);
    EXPECT_THROW(WriteWebPage({}, {1, 80, false}), RunTimeError);
}

int Count(const std::string& text, std::string_view what) {
    int count = 0;
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++count;
    return count;
}

std::string Lines(int count) {
    std::string text;
    for (int line = 0; line < count; ++line) text += "|--1--|\r\n";
    return text;
}

TEST(PdfWriterTest, PagesHold75Lines) {
    for (const auto& [lines, pages] : {std::pair{0, 1}, std::pair{75, 1}, std::pair{76, 2}, std::pair{151, 3}}) {
        const std::string pdf = WriteTextPdf(Lines(lines), {});
        EXPECT_EQ(Count(pdf, "/Type /Page\n"), pages) << lines;
        EXPECT_EQ(Count(pdf, ") Tj\n"), lines);
        EXPECT_EQ(Count(pdf, "T* ("), std::max(0, lines - pages));
    }
}

TEST(PdfWriterTest, LinesAreEscapedAndBroken) {
    const std::string longLine = std::string(50, 'a') + "|" + std::string(50, 'b') + ">" + std::string(50, 'c');
    const std::string pdf = WriteTextPdf("(a)\\\n" + longLine + "\n" + std::string(120, 'x'), {});
    EXPECT_THAT(pdf, HasSubstr("\n(\\(a\\)\\\\) Tj\n"));
    EXPECT_THAT(pdf, HasSubstr("T* (" + longLine.substr(0, 102) + ") Tj\nT* (" + std::string(50, 'c') + ") Tj\n"));
    EXPECT_THAT(pdf, HasSubstr("T* (" + std::string(114, 'x') + ") Tj\nT* (xxxxxx) Tj\n"));
}

TEST(PdfWriterTest, AFileHasItsBytes) {
    PdfTextOptions options;
    options.Author = "A (B)";
    options.Title = "T\xC9";
    options.CreationDate = "20010203040506";
    Testing::CheckGolden("text/two-lines.pdf", WriteTextPdf("one\r\ntwo\r\n", options));
}

}  // namespace
}  // namespace Quillon::Exchange
