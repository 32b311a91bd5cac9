#include "library/FolderLibrary.h"

#include "core/mod_Common.h"

namespace Quillon::Library {

std::string Searchable(std::string_view utf8) {
    std::string text = Core::UpperAscii(utf8);
    for (std::size_t at = 0; at + 1 < text.size(); ++at) {
        const auto last = static_cast<unsigned char>(text[at + 1]);
        const std::string_view letter = std::string_view(text).substr(at, 2);
        if (letter == "ÿ") {
            text.replace(at, letter.size(), "Ÿ");
        } else if (letter == "š" || letter == "œ" || letter == "ž") {
            text[at + 1] = static_cast<char>(last - 1);
        } else if (letter >= "à" && letter <= "þ" && letter != "÷") {
            constexpr int CaseBit = 0x20;
            text[at + 1] = static_cast<char>(last - CaseBit);
        }
    }
    return text;
}

void WriteDefaults(const std::filesystem::path& folder, const std::vector<NamedBytes>& files) {
    if (!Services.Files->Exists(folder)) {
        Services.Files->MakeFolder(folder.parent_path());
        return Services.Files->ReplaceFolder(folder, files);
    }
    for (const NamedBytes& file : files) Services.Files->Replace(folder / file.Name, file.Bytes);
}

}  // namespace Quillon::Library
