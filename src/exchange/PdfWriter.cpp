#include "exchange/PdfWriter.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

#include "core/mod_Common.h"

namespace Quillon::Exchange {

namespace {

constexpr int PointsPerInch = 72;
constexpr int FirstLine = 740;  ///< height of a page's first line over its lower edge, points
constexpr int LeftEdge = 50;

/// A number as a PDF reads it, whatever the machine's decimal sign is.
std::string Number(double value) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.4f", value);
    std::string number(text.data());
    std::ranges::replace(number, ',', '.');
    number.erase(number.find_last_not_of('0') + 1);
    if (number.back() == '.') number.pop_back();
    return number;
}

std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        if (c == '(' || c == ')' || c == '\\') escaped += '\\';
        escaped += c == '\r' || c == '\n' ? ' ' : c;
    }
    return escaped;
}

std::size_t CharactersOfLine(const PdfTextOptions& options) {
    const double width = options.WidthInInches * PointsPerInch;
    const double share = Core::LowerAscii(options.FontName) == "arial" ? 2 : 1.5;
    return static_cast<std::size_t>(std::max(1.0, width * share / options.FontSize));
}

std::vector<std::string_view> LinesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        if (line.ends_with('\r')) line.remove_suffix(1);
        lines.push_back(line);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return lines;
}

/// No line longer than `longest`.
std::vector<std::string_view> Broken(const std::vector<std::string_view>& lines, std::size_t longest) {
    constexpr std::string_view Breaks = "*&^%$#,. ;<=>[])}!\"";
    std::vector<std::string_view> broken;
    for (std::string_view line : lines) {
        while (line.size() > longest) {
            const std::size_t at = line.substr(0, longest).find_last_of(Breaks);
            const std::size_t count = at == std::string_view::npos ? longest : at + 1;
            broken.push_back(line.substr(0, count));
            line.remove_prefix(count);
        }
        broken.push_back(line);
    }
    return broken;
}

/// Objects one behind the other, and where each of them stands.
class PdfFile {
public:
    PdfFile() { bytes = "%PDF-1.2\n%\xE2\xE3\xCF\xD3\n"; }

    void Line(std::string_view line) { bytes.append(line).append("\n"); }
    /// Begins the next object and gives its number.
    int Begin() {
        places.push_back(bytes.size());
        const int number = static_cast<int>(places.size());
        Line(std::to_string(number) + " 0 obj");
        return number;
    }
    void End() { Line("endobj"); }
    /// An object of these lines in brackets.
    int Dictionary(std::initializer_list<std::string> lines) {
        const int number = Begin();
        Line("<<");
        for (const std::string& line : lines) Line(line);
        Line(">>");
        End();
        return number;
    }
    std::size_t Size() const { return bytes.size(); }

    std::string Finish(int root, int info) {
        const std::size_t table = bytes.size();
        const std::string count = std::to_string(places.size() + 1);
        Line("xref");
        Line("0 " + count);
        Line("0000000000 65535 f ");
        for (const std::size_t place : places) {
            const std::string digits = std::to_string(place);
            Line(std::string(10 - digits.size(), '0') + digits + " 00000 n ");
        }
        for (const std::string& line :
             {std::string("trailer"), std::string("<<"), "/Size " + count, "/Root " + std::to_string(root) + " 0 R",
              "/Info " + std::to_string(info) + " 0 R", std::string(">>"), std::string("startxref"),
              std::to_string(table), std::string("%%EOF")}) {
            Line(line);
        }
        return std::move(bytes);
    }

private:
    std::string bytes;
    std::vector<std::size_t> places;
};

std::string Reference(int number) { return std::to_string(number) + " 0 R"; }

/// What stands between "stream" and "endstream".
std::string PageContent(const std::vector<std::string_view>& lines, std::size_t first, std::size_t last,
                        const PdfTextOptions& options) {
    constexpr double LeadingOfFont = 1.2;
    std::string content = "BT\n/F1 " + std::to_string(options.FontSize) + " Tf\n1 0 0 1 " + std::to_string(LeftEdge) +
                          " " + std::to_string(FirstLine) + " Tm\n" + Number(options.FontSize * LeadingOfFont) +
                          " TL\n";
    for (std::size_t line = first; line < last; ++line) {
        content += (line == first ? "(" : "T* (") + Escaped(lines[line]) + ") Tj\n";
    }
    return content + "ET\n";
}

/// A text of the information object, which has an encoding of its own: that of the page but for the characters between
/// the controls and the accented letters.
std::string InfoText(std::string_view windows1252) {
    // From 0x80 on; 0 where there is no such character.
    constexpr unsigned char codes[32] = {0xA0, 0,    0x91, 0x86, 0x8C, 0x83, 0x81, 0x82, 0x1A, 0x8B, 0x97,
                                         0x88, 0x96, 0,    0x99, 0,    0,    0x8F, 0x90, 0x8D, 0x8E, 0x80,
                                         0x85, 0x84, 0x1F, 0x92, 0x9D, 0x89, 0x9C, 0,    0x9E, 0x98};
    std::string text;
    for (const char each : windows1252) {
        const auto code = static_cast<unsigned char>(each);
        const unsigned char shown = code < 0x80 || code >= 0xA0 ? code : codes[code - 0x80];
        if (shown != 0) text += static_cast<char>(shown);
    }
    // These two first would call it another encoding.
    if (text.starts_with("\xFE\xFF")) text.insert(0, " ");
    return Escaped(text);
}

}  // namespace

std::string WriteTextPdf(std::string_view text, const PdfTextOptions& options) {
    const std::vector<std::string_view> lines = Broken(LinesOf(text), CharactersOfLine(options));
    const double height = options.HeightInInches * PointsPerInch;
    const auto linesOfPage =
        static_cast<std::size_t>(std::max(1.0, (height - PointsPerInch) / (options.FontSize * 1.2)));
    const std::size_t pages = std::max<std::size_t>(1, (lines.size() + linesOfPage - 1) / linesOfPage);

    PdfFile pdf;
    const int info = pdf.Dictionary(
        {"/Author (" + InfoText(options.Author) + ")", "/CreationDate (D:" + options.CreationDate + ")",
         "/Creator (Quillon 4)", "/Producer (Quillon 4.0)", "/Title (" + InfoText(options.Title) + ")",
         "/Subject (" + InfoText(options.Subject) + ")", "/Keywords (" + InfoText(options.Keywords) + ")"});
    const int font = pdf.Dictionary({"/Type /Font", "/Subtype /Type1", "/Name /F1", "/Encoding " + Reference(info + 2),
                                     "/BaseFont /" + options.FontName});
    pdf.Dictionary({"/Type /Encoding", "/BaseEncoding /WinAnsiEncoding"});
    const int resources = pdf.Dictionary({"  /Font << /F1 " + Reference(font) + " >>", "  /ProcSet [ /PDF /Text ]"});

    constexpr int ObjectsOfPage = 3;
    const int catalogNumber = resources + 1 + ObjectsOfPage * static_cast<int>(pages);
    std::string kids;
    for (std::size_t page = 0; page < pages; ++page) {
        const std::size_t first = page * linesOfPage;
        const int number = pdf.Begin();
        kids += std::to_string(number) + " 0 R ";
        for (const std::string& line :
             {std::string("<<"), std::string("/Type /Page"), "/Parent " + Reference(catalogNumber + 1),
              "/Resources " + Reference(resources), "/Contents " + Reference(number + 1),
              "/Rotate " + std::to_string(options.Rotate), std::string(">>")}) {
            pdf.Line(line);
        }
        pdf.End();
        pdf.Begin();
        const std::string content = PageContent(lines, first, std::min(lines.size(), first + linesOfPage), options);
        for (const std::string& line :
             {std::string("<<"), "/Length " + Reference(number + 2), std::string(">>"), std::string("stream")}) {
            pdf.Line(line);
        }
        pdf.Line(std::string_view(content).substr(0, content.size() - 1));
        pdf.Line("endstream");
        pdf.End();
        pdf.Begin();
        pdf.Line(std::to_string(content.size()));
        pdf.End();
    }
    const int catalog = pdf.Dictionary({"/Type /Catalog", "/Pages " + Reference(catalogNumber + 1)});
    pdf.Dictionary({"/Type /Pages", "/Count " + std::to_string(pages),
                    "/MediaBox [ 0 0 " + Number(options.WidthInInches * PointsPerInch) + " " + Number(height) + " ]",
                    "/Kids [ " + kids + "]"});
    return pdf.Finish(catalog, info);
}

}  // namespace Quillon::Exchange
