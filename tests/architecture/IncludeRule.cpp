#include "tests/architecture/IncludeRule.h"

#include <regex>
#include <sstream>

namespace Quillon::Testing {

namespace {

constexpr const char* Qt = "Qt";

/// The twin starts without Qt; only the files of its picture formats know it.
bool IsPictureFileOfCli(std::string_view file) {
    return file.starts_with("cli/") && file.find("Picture") != std::string_view::npos;
}

bool MayKnowQt(const Levels& levels, const std::string& row, std::string_view file) {
    return levels.MayInclude.at(row).contains(Qt) && (row != "cli" || IsPictureFileOfCli(file));
}

}  // namespace

std::string Levels::RowOf(std::string_view file) const {
    std::string best;
    for (const std::string& folder : Folders) {
        if (file.starts_with(folder + "/") && folder.size() > best.size()) best = folder;
    }
    return best;
}

Levels ReadLevels(std::string_view text) {
    Levels levels;
    std::istringstream lines{std::string(text)};
    for (std::string line; std::getline(lines, line);) {
        if (line.empty() || line.starts_with('#')) continue;
        std::istringstream words(line);
        std::string folder, word;
        words >> folder >> word;
        if (word != ":" || levels.MayInclude.contains(folder)) {
            levels.Faults.push_back("not a row of its own: " + line);
            continue;
        }
        std::set<std::string> allowed;
        while (words >> word) {
            const bool closes = word.starts_with('@');
            if (closes) word.erase(0, 1);
            const auto above = levels.MayInclude.find(word);
            if (above != levels.MayInclude.end()) {
                if (closes) allowed.insert(above->second.begin(), above->second.end());
            } else if (word != Qt) {
                levels.Faults.push_back(folder + " names " + word + ", which is no row above it");
            }
            allowed.insert(word);
        }
        levels.Folders.push_back(folder);
        levels.MayInclude[folder] = allowed;
    }
    return levels;
}

std::vector<std::string> CheckIncludes(const Levels& levels, const std::set<std::string>& known, std::string_view file,
                                       std::string_view text) {
    static const std::regex include(R"(^\s*#\s*include\s*([<"])([^>"]+)[>"])");
    static const std::regex ofQt("Qt.*|Q[A-Z].*");
    static const std::regex generated(R"([^/]+\.moc|moc_[^/]+\.cpp)");
    const std::string row = levels.RowOf(file);
    if (row.empty()) return {std::string(file) + " stands in a folder without a row"};

    std::vector<std::string> faults;
    std::istringstream lines{std::string(text)};
    int number = 0;
    for (std::string line; std::getline(lines, line);) {
        ++number;
        std::smatch match;
        if (!std::regex_search(line, match, include)) continue;
        const std::string name = match[2];
        const std::string place = std::string(file) + ":" + std::to_string(number);
        const bool ofOurs = match[1] == "\"" && !std::regex_match(name, generated);
        if (ofOurs) {
            const std::string target = levels.RowOf(name);
            if (!known.contains(name)) {
                faults.push_back(place + " includes " + name + ", which is no file seen from src/");
            } else if (target != row && !levels.MayInclude.at(row).contains(target)) {
                faults.push_back(place + " includes " + name);
            } else if (row == "cli" && target == "platform/qt" && !IsPictureFileOfCli(file)) {
                faults.push_back(place + " includes " + name + ", which only the picture files of cli may");
            }
        } else if (std::regex_match(name, ofQt) && !MayKnowQt(levels, row, file)) {
            faults.push_back(place + " includes " + name + " of Qt");
        }
    }
    return faults;
}

std::vector<std::string> CheckLinks(const Levels& levels, std::string_view cmake) {
    static const std::regex library(R"(quillon_folder\((\w+)([^)]*)\))");
    static const std::regex dir(R"(\bDIR\s+([\w/]+))");
    static const std::regex link(R"(\bquillon_(\w+))");
    struct Library {
        std::string Name, Folder, Rest;
    };
    std::vector<Library> libraries;
    std::map<std::string, std::string> folderOf;
    const std::string text(cmake);
    for (std::sregex_iterator at(text.begin(), text.end(), library), end; at != end; ++at) {
        const std::string name = (*at)[1], rest = (*at)[2];
        std::smatch match;
        const std::string folder = std::regex_search(rest, match, dir) ? match[1].str() : name;
        libraries.push_back({name, folder, rest});
        folderOf[name] = folder;
    }
    std::vector<std::string> faults;
    for (const Library& one : libraries) {
        if (!levels.MayInclude.contains(one.Folder)) {
            faults.push_back(one.Folder + " has a library and no row");
            continue;
        }
        for (std::sregex_iterator at(one.Rest.begin(), one.Rest.end(), link), end; at != end; ++at) {
            const std::string target = folderOf[(*at)[1]];
            if (!levels.MayInclude.at(one.Folder).contains(target)) {
                faults.push_back(one.Folder + " links " + (*at)[1].str());
            }
        }
    }
    return faults;
}

}  // namespace Quillon::Testing
