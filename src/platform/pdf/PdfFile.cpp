#include "platform/pdf/PdfFile.h"

#include <nettle/md5.h>
#include <zlib.h>

#include <charconv>
#include <cmath>
#include <cstdint>

#include "platform/RunTimeError.h"

namespace Quillon {

namespace {

constexpr std::string_view HexDigits = "0123456789ABCDEF";

void AppendHex(std::string& out, unsigned value, int digits) {
    for (int digit = digits - 1; digit >= 0; --digit) out += HexDigits[value >> (4 * digit) & 15];
}

std::string Deflated(std::string_view data) {
    uLongf size = compressBound(data.size());
    std::string packed(size, '\0');
    const int result = compress2(reinterpret_cast<Bytef*>(packed.data()), &size,
                                 reinterpret_cast<const Bytef*>(data.data()), data.size(), Z_DEFAULT_COMPRESSION);
    if (result != Z_OK) RaiseOutOfMemory();
    packed.resize(size);
    return packed;
}

/// The next character of a UTF-8 text, which grows shorter by it. Bytes that make no character give U+FFFD.
char32_t TakeCharacter(std::string_view& text) {
    constexpr char32_t Replacement = 0xFFFD;
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    char32_t character = length == 1 ? lead : lead & (0x7Fu >> length);
    bool whole = length <= text.size() && (lead < 0x80 || (lead >= 0xC2 && lead <= 0xF4));
    for (std::size_t i = 1; whole && i < length; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        whole = (byte & 0xC0) == 0x80;
        character = character << 6 | (byte & 0x3Fu);
    }
    text.remove_prefix(whole ? length : 1);
    const bool surrogate = character >= 0xD800 && character < 0xE000;
    return whole && !surrogate && character <= 0x10FFFF ? character : Replacement;
}

}  // namespace

void AppendPdfNumber(std::string& out, double value) {
    const auto hundredths = std::llround(value * 100);
    const auto amount = static_cast<std::uint64_t>(std::llabs(hundredths));
    char digits[24];
    if (hundredths < 0) out += '-';
    if (amount >= 100 || amount == 0) out.append(digits, std::to_chars(digits, digits + 24, amount / 100).ptr);
    const auto rest = static_cast<unsigned>(amount % 100);
    if (rest == 0) return;
    out += '.';
    out += static_cast<char>('0' + rest / 10);
    if (rest % 10 != 0) out += static_cast<char>('0' + rest % 10);
}

std::string PdfNumber(double value) {
    std::string text;
    AppendPdfNumber(text, value);
    return text;
}

std::string PdfReference(int object) { return std::to_string(object) + " 0 R"; }

std::string PdfText(std::string_view utf8) {
    bool plain = true;
    for (const char c : utf8) plain = plain && c >= ' ' && c < 127 && c != '(' && c != ')' && c != '\\';
    if (plain) return "(" + std::string(utf8) + ")";
    return "<FEFF" + PdfUtf16(utf8) + ">";
}

std::string PdfUtf16(std::string_view utf8) {
    std::string text;
    while (!utf8.empty()) {
        const char32_t character = TakeCharacter(utf8);
        if (character < 0x10000) {
            AppendHex(text, character, 4);
        } else {
            AppendHex(text, 0xD800 + ((character - 0x10000) >> 10), 4);
            AppendHex(text, 0xDC00 + ((character - 0x10000) & 0x3FF), 4);
        }
    }
    return text;
}

PdfFile::PdfFile() { bytes = "%PDF-1.7\n%\xE2\xE3\xCF\xD3\n"; }

int PdfFile::Reserve() {
    places.push_back(0);
    return static_cast<int>(places.size());
}

void PdfFile::Put(int number, std::string_view body) {
    places.at(static_cast<std::size_t>(number - 1)) = bytes.size();
    bytes.append(std::to_string(number)).append(" 0 obj\n").append(body).append("\nendobj\n");
}

int PdfFile::Add(std::string_view body) {
    const int number = Reserve();
    Put(number, body);
    return number;
}

void PdfFile::PutStream(int number, std::string_view entries, std::string_view data) {
    const std::string packed = Deflated(data);
    std::string body = "<<";
    body.append(entries).append("/Filter/FlateDecode/Length ").append(std::to_string(packed.size()));
    body.append(">>\nstream\n").append(packed).append("\nendstream");
    Put(number, body);
}

int PdfFile::AddStream(std::string_view entries, std::string_view data) {
    const int number = Reserve();
    PutStream(number, entries, data);
    return number;
}

std::string PdfFile::Finish(int root, int info) {
    md5_ctx sum;
    md5_init(&sum);
    md5_update(&sum, bytes.size(), reinterpret_cast<const std::uint8_t*>(bytes.data()));
    std::uint8_t digest[MD5_DIGEST_SIZE];
    md5_digest(&sum, MD5_DIGEST_SIZE, digest);
    std::string identity = "<";
    for (const std::uint8_t part : digest) AppendHex(identity, part, 2);
    identity += '>';

    const std::string table = std::to_string(bytes.size());
    const std::string count = std::to_string(places.size() + 1);
    bytes += "xref\n0 " + count + "\n0000000000 65535 f \n";
    for (const std::size_t place : places) {
        const std::string digits = std::to_string(place);
        bytes.append(10 - digits.size(), '0').append(digits).append(" 00000 n \n");
    }
    bytes += "trailer\n<</Size " + count + "/Root " + PdfReference(root) + "/Info " + PdfReference(info) + "/ID[" +
             identity + identity + "]>>\nstartxref\n" + table + "\n%%EOF\n";
    return std::move(bytes);
}

}  // namespace Quillon
