// The lock of the open file: set, changed or taken off.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "shell/DialogModel.h"

namespace Quillon::Shell {

struct PasswordModel : DialogModel {
    bool IsLocked = false;   ///< the file has a password by now
    std::string Old;         ///< as typed
    std::int16_t Locks = 1;  ///< 1: with the new password, 0: the lock comes off
    std::string New;
    std::string Again;

    void Load();
    std::string_view Validate() const;
    bool Apply() const;
};

}  // namespace Quillon::Shell
