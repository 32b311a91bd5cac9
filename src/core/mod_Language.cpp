#include "core/mod_Language.h"

#include <algorithm>
#include <set>

#include "core/mod_Common.h"
#include "platform/FileSystem.h"
#include "platform/RunTimeError.h"

namespace Quillon::Core {

namespace fs = std::filesystem;

LanguageInUse Language;

namespace {

constexpr std::string_view DefaultName = "English";
constexpr std::string_view Ending = ".txt";

fs::path LanguagesFolder(const fs::path& base) { return base / "Data" / "Languages"; }
fs::path ChoiceFile(const fs::path& base) { return base / "Data" / "CurrentLanguage.txt"; }

/// The choice comes from a file: a name must not lead out of the folder.
bool IsPlainName(std::string_view name) {
    return !name.empty() && name.front() != '.' &&
           name.find_first_of(std::string_view("/\\\0", 3)) == std::string_view::npos;
}

std::string_view BuiltInBytes(std::string_view name) {
    for (const BuiltInLanguage& each : BuiltInLanguages()) {
        if (each.Name == name) return each.Bytes;
    }
    return {};
}

std::string Unescape(std::string_view text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char next = i + 1 < text.size() ? text[i + 1] : '\0';
        if (text[i] == '\\' && (next == 'n' || next == '\\')) {
            out += next == 'n' ? '\n' : '\\';
            ++i;
        } else {
            out += text[i];
        }
    }
    return out;
}

}  // namespace

const std::string& LanguageText(std::string_view key) {
    if (Language.Name.empty()) Language = {std::string(DefaultName), ParseLanguage(BuiltInBytes(DefaultName))};
    const auto found = Language.Texts.find(key);
    if (found != Language.Texts.end()) return found->second;
    return Language.Texts.emplace(key, key).first->second;
}

namespace {

template <class Text>
std::string Filled(const std::string& text, std::span<const Text> arguments) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char digit = i + 1 < text.size() ? text[i + 1] : '\0';
        if (text[i] == '%' && digit >= '1' && static_cast<std::size_t>(digit - '1') < arguments.size()) {
            out += arguments[static_cast<std::size_t>(digit - '1')];
            ++i;
        } else {
            out += text[i];
        }
    }
    return out;
}

}  // namespace

std::string LanguageText(std::string_view key, std::initializer_list<std::string_view> arguments) {
    return Filled(LanguageText(key), std::span<const std::string_view>(arguments.begin(), arguments.size()));
}

std::string LanguageText(std::string_view key, std::span<const std::string> arguments) {
    return Filled(LanguageText(key), arguments);
}

LanguageTable ParseLanguage(std::string_view bytes) {
    LanguageTable table;
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    while (!bytes.empty()) {
        const std::size_t end = bytes.find('\n');
        std::string_view line = bytes.substr(0, end);
        bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
        if (line.ends_with('\r')) line.remove_suffix(1);
        const std::size_t equals = line.find('=');
        if (line.starts_with('#') || equals == std::string_view::npos || !IsUtf8(line)) continue;
        table.insert_or_assign(std::string(TrimBlanks(line.substr(0, equals))), Unescape(line.substr(equals + 1)));
    }
    return table;
}

void LoadLanguage(const FileSystem& files, const fs::path& baseFolder) {
    std::string name(DefaultName);
    try {
        if (files.Exists(ChoiceFile(baseFolder))) {
            const std::string text = files.Read(ChoiceFile(baseFolder));
            name = TrimBlanks(std::string_view(text).substr(0, text.find_first_of("\r\n")));
        }
    } catch (const RunTimeError&) {
        name = DefaultName;
    }
    LoadLanguage(files, baseFolder, name);
}

void LoadLanguage(const FileSystem& files, const fs::path& baseFolder, const std::string& name) {
    LanguageTable table;
    if (IsPlainName(name)) {
        table = ParseLanguage(BuiltInBytes(name));
        const fs::path path = LanguagesFolder(baseFolder) / (name + std::string(Ending));
        try {
            if (files.Exists(path)) {
                for (auto& [key, text] : ParseLanguage(files.Read(path))) table.insert_or_assign(key, text);
            }
        } catch (const RunTimeError&) {
            // An unreadable file leaves what is built in.
        }
    }
    if (table.empty()) {
        Language = {std::string(DefaultName), ParseLanguage(BuiltInBytes(DefaultName))};
    } else {
        Language = {name, std::move(table)};
    }
}

void ChooseLanguage(FileSystem& files, const fs::path& baseFolder, const std::string& name) {
    files.MakeFolder(baseFolder / "Data");
    files.Replace(ChoiceFile(baseFolder), name + "\r\n");
    LoadLanguage(files, baseFolder, name);
}

std::vector<std::string> LanguageNames(const FileSystem& files, const fs::path& baseFolder) {
    std::set<std::string> names;
    for (const BuiltInLanguage& each : BuiltInLanguages()) names.emplace(each.Name);
    for (const std::string& file : files.FilesIn(LanguagesFolder(baseFolder))) {
        if (!LowerAscii(file).ends_with(Ending)) continue;
        const std::string name = file.substr(0, file.size() - Ending.size());
        if (IsPlainName(name)) names.insert(name);
    }
    return {names.begin(), names.end()};
}

void InstallLanguages(FileSystem& files, const fs::path& baseFolder) {
    files.MakeFolder(LanguagesFolder(baseFolder));
    for (const BuiltInLanguage& each : BuiltInLanguages()) {
        const fs::path path = LanguagesFolder(baseFolder) / (std::string(each.Name) + std::string(Ending));
        if (!files.Exists(path)) files.Replace(path, each.Bytes);
    }
    if (!files.Exists(ChoiceFile(baseFolder))) {
        files.Replace(ChoiceFile(baseFolder), std::string(DefaultName) + "\r\n");
    }
}

}  // namespace Quillon::Core
