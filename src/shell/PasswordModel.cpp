#include "shell/PasswordModel.h"

#include "core/mod_Common.h"
#include "core/mod_MusicFile.h"
#include "core/mod_TabFileStructure.h"
#include "shell/mod_Shell.h"

namespace Quillon::Shell {

using Core::Open;

namespace {

bool FileCanHold(const std::string& password) {
    Core::TabFile file;
    file.Password = password;
    return Core::SaveLosses(file).empty();
}

}  // namespace

void PasswordModel::Load() {
    *this = {};
    IsLocked = Open.TabFile.HasPassword;
}

std::string_view PasswordModel::Validate() const {
    if (IsLocked && Old != Open.TabFile.Password) return "str_PasswordWrong";
    if (Locks == 0) return "";
    // The file keeps no password of blanks alone.
    if (Core::TrimBlanks(New).empty()) return "str_PasswordMissing";
    if (New != Again) return "str_PasswordsDiffer";
    return FileCanHold(New) ? "" : "str_PasswordNotStorable";
}

bool PasswordModel::Apply() const {
    Core::TabFile& file = Open.TabFile;
    const bool locks = Locks != 0;
    const std::string password = locks ? New : std::string();
    if (file.HasPassword == locks && file.Password == password) return false;
    file.HasPassword = locks;
    file.Password = password;
    Program.PasswordGiven = true;  // whoever set it knows it
    MarkEdited();
    return true;
}

}  // namespace Quillon::Shell
