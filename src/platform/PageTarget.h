// Where whole pages go, sheet after sheet: a PDF file, a printer.
#pragma once

#include <string>
#include <string_view>

#include "platform/Picture.h"

namespace Quillon {

/// A sheet's size twice: as the drawing counts it, and as the paper has it.
struct Sheet {
    double Width = 0;  ///< document pixels
    double Height = 0;
    double PaperWidth = 0;  ///< millimetres
    double PaperHeight = 0;
};

struct PageTarget {
    virtual ~PageTarget() = default;
    /// Begins the next sheet, white. The picture is good until the next call.
    virtual Picture& BeginPage(const Sheet& sheet) = 0;
    /// What begins with the next sheet, where the target tells of such things.
    virtual void BeginChapter(std::string_view /*title*/) {}
};

/// What a file says about itself. Texts are UTF-8.
struct PageFileInfo {
    std::string Title = {};
    std::string Author = {};
    std::string Subject = {};
    std::string Keywords = {};
    std::string Creator = {};
    std::string CreationDate = {};  ///< "YYYYMMDDHHNNSS"
};

/// Pages that become one file.
struct PageFile : PageTarget {
    /// The file's bytes; no page may follow.
    virtual std::string Finish(const PageFileInfo& info) = 0;
};

}  // namespace Quillon
