// What holds for the whole run: the base folder, paths as they are given, the way errors are shown, the password.
#include <new>

#include "core/mod_Language.h"
#include "core/mod_TabFileStructure.h"
#include "platform/MessageBox.h"
#include "platform/RunTimeError.h"
#include "platform/Services.h"
#include "shell/mod_Shell.h"

namespace Quillon::Shell {

namespace fs = std::filesystem;
using Core::LanguageText;
using Core::Open;

ProgramState Program;

namespace {

fs::path Absolute(const fs::path& path) {
    std::error_code none;
    const fs::path absolute = fs::absolute(path, none);
    return (none ? path : absolute).lexically_normal();
}

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

std::string DecodePercents(const std::string& text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const int high = text[i] == '%' && i + 2 < text.size() ? HexDigit(text[i + 1]) : -1;
        const int low = high >= 0 ? HexDigit(text[i + 2]) : -1;
        if (low >= 0) {
            out += static_cast<char>(high * 16 + low);
            i += 2;
        } else {
            out += text[i];
        }
    }
    return out;
}

}  // namespace

fs::path BaseFolder(const std::string& baseOption, const fs::path& programFolder,
                    const std::function<const char*(const char*)>& environment) {
    const auto variable = [&](const char* name) -> fs::path {
        const char* value = environment(name);
        return value ? value : "";
    };
    if (!baseOption.empty()) return Absolute(baseOption);
    if (const fs::path base = variable("QUILLON_BASE"); !base.empty()) return Absolute(base);
    std::error_code none;
    if (fs::exists(programFolder / "QL4.ini", none) || fs::exists(programFolder / "Data", none)) return programFolder;
    // A relative XDG_DATA_HOME is to be ignored, by its own rules.
    if (const fs::path data = variable("XDG_DATA_HOME"); data.is_absolute()) return data / "quillon";
    if (const fs::path home = variable("HOME"); home.is_absolute()) return home / ".local" / "share" / "quillon";
    return programFolder;
}

fs::path GetLongFilename(const std::string& path) {
    constexpr std::string_view Scheme = "file://";
    if (!path.starts_with(Scheme)) return Absolute(path);
    const std::string place = path.substr(Scheme.size());
    const std::size_t slash = place.find('/');  // what stands before it is a host
    return Absolute(DecodePercents(slash == std::string::npos ? place : place.substr(slash)));
}

bool Guarded(const std::function<void()>& act) {
    std::string why;
    try {
        act();
        return true;
    } catch (const RunTimeError& error) {
        why = error.Description();
    } catch (const std::bad_alloc&) {
        why = "Out of memory";
    }
    Services.Messages->Show(why, LanguageText("str_TitleError"), Buttons::Ok, BoxIcon::Critical);
    return false;
}

bool PasswordCorrect() {
    if (!Open.TabFile.HasPassword || Program.PasswordGiven) return true;
    const auto given = Program.Dialogs->AskPassword();
    if (!given) return false;
    Program.PasswordGiven = *given == Open.TabFile.Password;
    if (!Program.PasswordGiven) {
        Services.Messages->Show(LanguageText("str_PasswordWrong"), LanguageText("str_TitleNote"), Buttons::Ok,
                                BoxIcon::Exclamation);
    }
    return Program.PasswordGiven;
}

}  // namespace Quillon::Shell
