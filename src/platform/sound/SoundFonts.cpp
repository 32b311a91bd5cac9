#include "platform/sound/SoundFonts.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <set>
#include <string>
#include <string_view>
#include <system_error>
#include <tuple>

namespace Quillon {

namespace fs = std::filesystem;

namespace {

struct Found {
    fs::path Path;
    bool GeneralMidi = false;
    bool Own = false;
    std::uintmax_t Size = 0;
};

std::string LowerCase(std::string text) {
    for (char& c : text) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return text;
}

/// A RIFF file of the kind "sfbk" that holds as many bytes as it says: a download that broke off is none.
bool IsWhole(const fs::path& file, std::uintmax_t size) {
    constexpr std::size_t HeaderBytes = 12;
    std::array<char, HeaderBytes> header{};
    if (!std::ifstream(file, std::ios::binary).read(header.data(), HeaderBytes)) return false;
    const std::string_view text(header.data(), HeaderBytes);
    std::uintmax_t told = 8;  // the bytes that the length does not count
    for (unsigned at = 0; at < 4; ++at) told += std::uintmax_t{static_cast<unsigned char>(text[4 + at])} << (8 * at);
    return text.starts_with("RIFF") && text.ends_with("sfbk") && told <= size;
}

bool NamesGeneralMidi(const fs::path& file) {
    const std::string name = LowerCase(file.stem().string());
    return name.find("gm") != std::string::npos || name.find("general") != std::string::npos;
}

}  // namespace

std::vector<fs::path> UsualSoundFontFolders() {
    std::vector<fs::path> folders;
    const char* data = std::getenv("XDG_DATA_HOME");
    const char* home = std::getenv("HOME");
    fs::path user = data && *data ? fs::path(data) : home && *home ? fs::path(home) / ".local/share" : fs::path();
    for (const fs::path& share : {user, fs::path("/usr/local/share"), fs::path("/usr/share")}) {
        if (share.empty()) continue;
        for (const char* folder : {"soundfonts", "sounds/sf2", "sounds/sf3"}) folders.push_back(share / folder);
    }
    return folders;
}

std::vector<fs::path> FindSoundFonts(const std::vector<fs::path>& folders, std::size_t own) {
    std::vector<Found> all;
    std::set<fs::path> known;
    for (std::size_t at = 0; at < folders.size(); ++at) {
        std::error_code none;
        for (fs::directory_iterator entry(folders[at], none), end; !none && entry != end; entry.increment(none)) {
            const std::string ending = LowerCase(entry->path().extension().string());
            if (ending != ".sf2" && ending != ".sf3") continue;
            std::error_code unreadable;
            const fs::path file = fs::canonical(entry->path(), unreadable);
            if (unreadable || !fs::is_regular_file(file, unreadable) || !known.insert(file).second) continue;
            const std::uintmax_t size = fs::file_size(file, unreadable);
            if (!unreadable && IsWhole(file, size)) all.push_back({file, NamesGeneralMidi(file), at < own, size});
        }
    }
    std::ranges::sort(all, {}, [](const Found& each) {
        return std::tuple(!each.GeneralMidi, !each.Own, -static_cast<double>(each.Size), each.Path);
    });
    std::vector<fs::path> paths;
    for (Found& each : all) paths.push_back(std::move(each.Path));
    return paths;
}

}  // namespace Quillon
