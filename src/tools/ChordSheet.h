// Chords on paper: a sheet of boxes below a title, page after page.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/PageTarget.h"
#include "shell/DialogModel.h"
#include "tools/BoxGrid.h"

namespace Quillon::Tools {

struct ChordSheetModel : Shell::DialogModel {
    std::vector<std::string> Names;  ///< of the chords on it
    bool All = false;                ///< they are all that the manager shows
    std::string Title;
    int DisplayMode = 5;
    bool Lefthanded = false;

    /// The chosen chords as the manager shows them.
    void Load();
    /// Takes all that the manager shows, or just the chosen ones.
    void TakeAll(bool all);

    /// Pages of the size that the page setup says.
    int Pages() const;
    /// Pages count from 0. Chords that can't be read are shown as such.
    void Draw(Picture& picture, int page) const;
    /// Hands pages `first` to `last` to a target. `goOn` is told how many percent are done; false when it stopped.
    bool Print(PageTarget& target, int first, int last, const std::function<bool(int)>& goOn = {}) const;
    /// Writes all as a PDF file; false when it was stopped, and then there is none.
    bool SavePdf(const std::filesystem::path& path, const std::function<bool(int)>& goOn = {}) const;

private:
    BoxGrid GridOfPage() const;
    int RowsOfPage() const;
};

/// Prints a sheet, with the progress in the main window, which tells what came of it.
void PrintSheetOn(std::unique_ptr<PageTarget> target, const ChordSheetModel& model, int first, int last);
/// Asks for a file and writes the sheet.
void SaveSheet(const ChordSheetModel& model);
/// "Print...": hands the chords to frmChordPrinter.
void PrintChord();

}  // namespace Quillon::Tools
