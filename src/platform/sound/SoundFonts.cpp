#include "platform/sound/SoundFonts.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string>
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
            all.push_back({file, NamesGeneralMidi(file), at < own, fs::file_size(file, unreadable)});
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
