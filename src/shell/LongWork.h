// Work that takes a while, with the window's progress around it.
#pragma once

#include <string>

#include "shell/mod_Shell.h"

namespace Quillon::Shell {

/// The window shows the work for the object's lifetime, also when it raises.
struct LongWork {
    explicit LongWork(const std::string& text) { Program.View->BeginWork(text); }
    ~LongWork() { Program.View->EndWork(); }
    LongWork(const LongWork&) = delete;
    LongWork& operator=(const LongWork&) = delete;

    /// False when the person cancelled.
    bool GoOn(int percent) const { return Program.View->GoOnWithWork(percent); }
};

}  // namespace Quillon::Shell
