// The objects of a PDF file, one behind the other, and where each of them stands.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Quillon {

/// Appends a number with at most two decimals: hundredths of a document pixel are finer than any printer's dots.
void AppendPdfNumber(std::string& out, double value);
std::string PdfNumber(double value);
/// A text as a PDF shows it outside its pages: plain where it is ASCII, else UTF-16.
std::string PdfText(std::string_view utf8);
/// The UTF-16 of a text in hexadecimal digits.
std::string PdfUtf16(std::string_view utf8);
/// "12 0 R"
std::string PdfReference(int object);

class PdfFile {
public:
    PdfFile();

    /// A number for an object that is written later, as others name it first.
    int Reserve();
    void Put(int number, std::string_view body);
    int Add(std::string_view body);
    /// A compressed stream; `entries` stand in its dictionary.
    void PutStream(int number, std::string_view entries, std::string_view data);
    int AddStream(std::string_view entries, std::string_view data);
    /// The whole file. Its identity is worked out from its bytes, so that the same pages make the same file.
    std::string Finish(int root, int info);

private:
    std::string bytes;
    std::vector<std::size_t> places;
};

}  // namespace Quillon
