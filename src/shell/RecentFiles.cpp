// The files opened or saved last, kept in section "RecentFiles" of the store under "1" to "9".
#include <algorithm>

#include "core/mod_Language.h"
#include "platform/FileSystem.h"
#include "platform/MessageBox.h"
#include "platform/Services.h"
#include "platform/SettingsStore.h"
#include "shell/mod_Shell.h"

namespace Quillon::Shell {

namespace fs = std::filesystem;
using Core::LanguageText;

namespace {

constexpr const char* Section = "RecentFiles";

void Keep(const std::vector<fs::path>& paths) {
    for (int i = 0; i < MostRecentFiles; ++i) {
        const std::string key = std::to_string(i + 1);
        if (static_cast<std::size_t>(i) < paths.size()) {
            Services.Settings->Save(Section, key, paths[static_cast<std::size_t>(i)].string());
        } else {
            Services.Settings->Delete(Section, key);
        }
    }
    Guarded([] { Services.Settings->Flush(); });
    Program.View->FillRecentFiles();
}

}  // namespace

std::vector<fs::path> RecentFiles() {
    std::vector<fs::path> paths;
    for (int i = 1; i <= MostRecentFiles; ++i) {
        const auto path = Services.Settings->Find(Section, std::to_string(i));
        if (path && !path->empty()) paths.emplace_back(*path);
    }
    return paths;
}

std::string RecentFileCaption(const fs::path& path) { return "- " + path.filename().string(); }

void AddRecentFile(const fs::path& path) {
    std::vector<fs::path> paths = RecentFiles();
    if (!paths.empty() && paths.front() == path) return;
    std::erase(paths, path);
    paths.insert(paths.begin(), path);
    if (paths.size() > MostRecentFiles) paths.resize(MostRecentFiles);
    Keep(paths);
}

void RemoveRecentFile(const fs::path& path) {
    std::vector<fs::path> paths = RecentFiles();
    if (std::erase(paths, path) > 0) Keep(paths);
}

void mnuFileOpenRecentItem_Click(int index) {
    const std::vector<fs::path> paths = RecentFiles();
    if (index < 0 || static_cast<std::size_t>(index) >= paths.size()) return;
    const fs::path path = paths[static_cast<std::size_t>(index)];
    if (!Services.Files->Exists(path)) {
        Services.Messages->Show(LanguageText("str_RecentFileGone", {path.string()}), LanguageText("str_TitleNote"),
                                Buttons::Ok, BoxIcon::Exclamation);
        return RemoveRecentFile(path);
    }
    if (ContinueWithOp()) OpenFileByEnding(path);
}

}  // namespace Quillon::Shell
