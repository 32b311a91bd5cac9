#include "core/mod_Language.h"

#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <sstream>

#include "platform/portable/PosixFiles.h"
#include "tests/support/Golden.h"

namespace Quillon::Core {
namespace {

namespace fs = std::filesystem;
using Testing::ScratchFolder;
using Testing::Slurp;
using Testing::Spill;

class LanguageFiles : public testing::Test {
protected:
    ~LanguageFiles() override { Language = {}; }
    ScratchFolder folder;
    PosixFiles files;
};

LanguageTable BuiltIn(std::string_view name) {
    for (const BuiltInLanguage& each : BuiltInLanguages()) {
        if (each.Name == name) return ParseLanguage(each.Bytes);
    }
    return {};
}

std::multiset<std::string> Places(const std::string& text) {
    static const std::regex place("%[1-9]");
    std::multiset<std::string> found;
    for (std::sregex_iterator at(text.begin(), text.end(), place), end; at != end; ++at) found.insert(at->str());
    return found;
}

TEST(LanguageTables, EveryLanguageHasTheSameKeysAndPlacesAndNoEmptyText) {
    const LanguageTable english = BuiltIn("English");
    ASSERT_FALSE(english.empty());
    for (const BuiltInLanguage& language : BuiltInLanguages()) {
        const LanguageTable table = ParseLanguage(language.Bytes);
        for (const auto& [key, text] : english) {
            const auto found = table.find(key);
            if (found == table.end()) {
                ADD_FAILURE() << language.Name << " lacks " << key;
                continue;
            }
            EXPECT_FALSE(found->second.empty()) << language.Name << " " << key;
            EXPECT_EQ(Places(found->second), Places(text)) << language.Name << " " << key;
            EXPECT_EQ(found->second.find('&') == std::string::npos, text.find('&') == std::string::npos)
                << language.Name << " " << key << ": a letter for the keyboard in one language alone";
        }
        for (const auto& [key, text] : table) EXPECT_TRUE(english.contains(key)) << language.Name << " adds " << key;
    }
}

TEST(LanguageTables, NoKeyStandsTwiceInAFile) {
    for (const BuiltInLanguage& language : BuiltInLanguages()) {
        std::set<std::string> keys;
        std::istringstream lines{std::string(language.Bytes)};
        for (std::string line; std::getline(lines, line);) {
            if (!line.starts_with("str_")) continue;
            EXPECT_TRUE(keys.insert(line.substr(0, line.find('='))).second) << language.Name << ": " << line;
        }
        EXPECT_GT(keys.size(), 100U);
    }
}

TEST(LanguageTables, EveryKeyOfTheSourceIsThereAndNoneIsUnused) {
    const LanguageTable english = BuiltIn("English");
    std::set<std::string> used;
    const std::regex key("[\"/](str_[A-Za-z0-9_]+)(\" \\+)?");  // menus name theirs joined by "/"
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(QUILLON_SOURCE_DIR) / "src")) {
        if (entry.path().extension() != ".cpp" && entry.path().extension() != ".h") continue;
        if (entry.path().filename() == "mod_Language.h") continue;  // names one as an example
        const std::string text = Slurp(entry.path());
        for (std::sregex_iterator at(text.begin(), text.end(), key), end; at != end; ++at) {
            const std::string name = (*at)[1].str();
            used.insert(name);
            if (english.contains(name)) continue;
            // "str_Length" + a number: all that begin so.
            bool isThere = false;
            if ((*at)[2].matched) {
                for (const auto& [longer, itsText] : english) {
                    if (!longer.starts_with(name)) continue;
                    used.insert(longer);
                    isThere = true;
                }
            }
            EXPECT_TRUE(isThere) << entry.path() << " uses " << name;
        }
    }
    for (const auto& [name, text] : english) EXPECT_TRUE(used.contains(name)) << name << " is not used";
}

TEST_F(LanguageFiles, AFileWinsKeyByKeyAndAMissingKeyShowsItself) {
    EXPECT_EQ(LanguageText("str_TitleError"), "Error") << "English before anything is loaded";
    InstallLanguages(files, folder.Path());
    EXPECT_EQ(Slurp(folder / "Data/CurrentLanguage.txt"), "English\r\n");

    Spill(folder / "Data/Languages/German.txt",
          "\xEF\xBB\xBFstr_TitleError=Mist\\n\\\\n\r\nbroken\n# str_x=1\nstr_bad=\xFF\n");
    Spill(folder / "Data/Languages/Dansk.TXT", "str_TitleError=Fejl\n");
    InstallLanguages(files, folder.Path());  // leaves what is there
    EXPECT_EQ(LanguageNames(files, folder.Path()), (std::vector<std::string>{"Dansk", "English", "German"}));

    ChooseLanguage(files, folder.Path(), "German");
    LoadLanguage(files, folder.Path());
    EXPECT_EQ(Language.Name, "German");
    EXPECT_EQ(LanguageText("str_TitleError"), "Mist\n\\n");
    EXPECT_EQ(LanguageText("str_TitleNote"), "Hinweis");
    EXPECT_EQ(LanguageText("str_NoSuchKey"), "str_NoSuchKey");
    EXPECT_EQ(LanguageText("str_bad"), "str_bad");
}

TEST_F(LanguageFiles, ABadChoiceIsEnglish) {
    Spill(folder / "secret.txt", "str_TitleError=leaked\n");
    for (const char* choice : {"Klingon", "", "../../secret", "/etc/passwd", ".."}) {
        Spill(folder / "Data/CurrentLanguage.txt", choice);
        LoadLanguage(files, folder.Path());
        EXPECT_EQ(Language.Name, "English") << choice;
        EXPECT_EQ(LanguageText("str_TitleError"), "Error") << choice;
    }
}

TEST_F(LanguageFiles, PlacesAreFilled) {
    Language = {"Test", {{"a", "%2 of %1, %3 100%"}}};
    EXPECT_EQ(LanguageText("a", {"x", "%1"}), "%1 of x, %3 100%");
}

}  // namespace
}  // namespace Quillon::Core
