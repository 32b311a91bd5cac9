// The texts that a person reads, by their keys, in the language chosen.
//
// A language is a file of key=text lines, UTF-8, below Data/Languages; Data/CurrentLanguage.txt names the one in use.
// English and German are built in: they stand in when the files are not there, and a file wins over them key by key.
#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Quillon {
struct FileSystem;
}

namespace Quillon::Core {

/// The text under a key such as "str_FileNew". A key that the language lacks is its own text, so that the gap shows.
/// The reference holds until another language is loaded. Before any is loaded the built-in English answers.
const std::string& LanguageText(std::string_view key);
/// As LanguageText, with "%1", "%2" and so on replaced by the arguments.
std::string LanguageText(std::string_view key, std::initializer_list<std::string_view> arguments);
std::string LanguageText(std::string_view key, std::span<const std::string> arguments);

using LanguageTable = std::map<std::string, std::string, std::less<>>;

/// Reads key=text lines. "\n" in a text is a line break and "\\" a backslash; lines that start with "#" are remarks,
/// and lines without "=" are skipped. The last of equal keys counts.
LanguageTable ParseLanguage(std::string_view bytes);

struct BuiltInLanguage {
    std::string_view Name;
    std::string_view Bytes;
};
std::span<const BuiltInLanguage> BuiltInLanguages();

struct LanguageInUse {
    std::string Name;     ///< "" before one was loaded
    LanguageTable Texts;  ///< a missing key is added with itself as its text when it is first asked for
};
extern LanguageInUse Language;

/// Loads the language that Data/CurrentLanguage.txt names, English when it names none that is there.
void LoadLanguage(const FileSystem& files, const std::filesystem::path& baseFolder);
/// Loads a language by name; one that is neither a file nor built in is English.
void LoadLanguage(const FileSystem& files, const std::filesystem::path& baseFolder, const std::string& name);
/// Makes a language the current one, in the file and in memory.
void ChooseLanguage(FileSystem& files, const std::filesystem::path& baseFolder, const std::string& name);
/// Names to choose from: the built-in ones and the files of Data/Languages, sorted.
std::vector<std::string> LanguageNames(const FileSystem& files, const std::filesystem::path& baseFolder);
/// Writes the built-in languages and the choice into the base folder where they are missing. Makes the folders.
void InstallLanguages(FileSystem& files, const std::filesystem::path& baseFolder);

}  // namespace Quillon::Core
