// A scale on paper: its tones, and its pattern on the neck by names and by degrees.
#pragma once

#include <filesystem>
#include <string>

#include "library/ScaleView.h"
#include "platform/PageTarget.h"
#include "shell/DialogModel.h"

namespace Quillon::Tools {

struct ScaleSheetModel : Shell::DialogModel {
    std::string Name;
    Library::ScaleRec Scale;
    Library::ScaleView View;

    /// The scale that the manager shows, as it shows it. False when it shows none.
    bool Load();
    std::string Title() const;
    /// Of the size that the page setup says.
    static Sheet Page();
    void Draw(Picture& picture) const;
    void Print(PageTarget& target) const;
    void SavePdf(const std::filesystem::path& path) const;
    /// Where a PDF file of it goes, unless the person wants it elsewhere.
    std::filesystem::path SuggestedPdf() const;
};

/// Shows the chosen scale's page, to be printed.
void PrintScale();

}  // namespace Quillon::Tools
