#include "tools/ChordSheet.h"

#include <algorithm>

#include "core/mod_Language.h"
#include "exchange/FileDate.h"
#include "exchange/PrintJob.h"
#include "library/ChordBoxes.h"
#include "platform/Services.h"
#include "shell/LongWork.h"
#include "shell/mod_Shell.h"
#include "tools/ChordManager.h"

namespace Quillon::Tools {

using Core::LanguageText;

namespace {

constexpr int Margin = 60;      ///< document pixels around the boxes
constexpr int TitleRoom = 46;   ///< above them
constexpr int FooterRoom = 24;  ///< below them
const Font TitleFont{.Name = "Times New Roman", .Size = 16};
const Font FooterFont{.Name = "Arial", .Size = 8};

}  // namespace

void ChordSheetModel::Load() {
    TakeAll(ChosenChords().empty());
    Title = LanguageText("str_ChordManagerTitle");
    DisplayMode = ChordManager.DisplayMode;
    Lefthanded = ChordManager.Lefthanded;
}

void ChordSheetModel::TakeAll(bool all) {
    All = all;
    Names = all ? ChordManager.lstChords : ChosenChords();
}

BoxGrid ChordSheetModel::GridOfPage() const {
    const Sheet sheet = Exchange::PrintJob::PageSheet();
    const Library::DisplayMode& mode = Library::ModeOf(DisplayMode);
    BoxGrid grid;
    grid.CellWidth = Library::DisplayMode::CellWidth;
    grid.StepX = Library::DisplayMode::Grid;
    grid.CellHeight = mode.CellHeight;
    grid.StepY = mode.CellPitch;
    grid.ViewWidth = static_cast<int>(sheet.Width) - 2 * Margin;
    grid.ViewHeight = static_cast<int>(sheet.Height) - 2 * Margin - TitleRoom - FooterRoom;
    return grid;
}

int ChordSheetModel::RowsOfPage() const {
    const BoxGrid grid = GridOfPage();
    return std::max(1, (grid.ViewHeight - BoxGrid::Border) / grid.StepY);
}

int ChordSheetModel::Pages() const {
    const int onPage = RowsOfPage() * GridOfPage().Columns();
    return std::max(1, (static_cast<int>(Names.size()) + onPage - 1) / onPage);
}

void ChordSheetModel::Draw(Picture& picture, int page) const {
    const Sheet sheet = Exchange::PrintJob::PageSheet();
    picture.SetColor(Black);
    picture.SetFont(TitleFont);
    picture.Print(sheet.Width / 2, Margin + TitleFont.Pixels(), Title, Anchor::Center);
    picture.SetFont(FooterFont);
    picture.Print(sheet.Width / 2, sheet.Height - Margin,
                  LanguageText("str_PageNumber", {std::to_string(page + 1), std::to_string(Pages())}), Anchor::Center);
    BoxGrid grid = GridOfPage();
    const int onPage = RowsOfPage() * grid.Columns();
    const int first = page * onPage;
    grid.Count = std::clamp(static_cast<int>(Names.size()) - first, 0, onPage);
    for (int cell = 0; cell < grid.Count; ++cell) {
        const std::string& name = Names.at(static_cast<std::size_t>(first + cell));
        Library::DrawChordCell(picture, Margin + grid.X(cell), Margin + TitleRoom + grid.Y(cell), name,
                               Library::Chords.Find(name), DisplayMode, Lefthanded, {});
    }
}

bool ChordSheetModel::Print(PageTarget& target, int first, int last, const std::function<bool(int)>& goOn) const {
    constexpr int Percent = 100;
    for (int page = first; page <= last; ++page) {
        if (goOn && !goOn(Percent * (page - first) / (last - first + 1))) return false;
        Draw(target.BeginPage(Exchange::PrintJob::PageSheet()), page);
    }
    return true;
}

bool ChordSheetModel::SavePdf(const std::filesystem::path& path, const std::function<bool(int)>& goOn) const {
    const std::unique_ptr<PageFile> file = Services.NewPdf();
    if (!Print(*file, 0, Pages() - 1, goOn)) return false;
    PageFileInfo info;
    info.Title = Title;
    info.Creator = "Quillon 4";
    info.CreationDate = Exchange::FileDate();
    Services.Files->Replace(path, file->Finish(info));
    return true;
}

namespace {

bool GoOn(int percent) { return Shell::Program.View->GoOnWithWork(percent); }

}  // namespace

void PrintSheetOn(std::unique_ptr<PageTarget> target, const ChordSheetModel& model, int first, int last) {
    bool whole = false;
    {
        const Shell::LongWork work(LanguageText("str_Printing"));
        whole = model.Print(*target, first, last, GoOn);
        target.reset();  // takes the job
    }
    Shell::Program.View->ShowStatus(whole ? LanguageText("str_Printed", {std::to_string(last - first + 1)})
                                          : LanguageText("str_PrintingStopped"));
}

void SaveSheet(const ChordSheetModel& model) {
    std::string name = Library::FileNameOf(model.Title);
    if (name.empty()) name = LanguageText("str_ChordManagerTitle");
    const auto target = Shell::Program.View->AskExportFile("str_ChordSheetSaveTitle", "str_FilterPdf", name + ".pdf");
    if (!target) return;
    bool whole = false;
    {
        const Shell::LongWork work(LanguageText("str_Printing"));
        whole = model.SavePdf(*target, GoOn);
    }
    Shell::Program.View->ShowStatus(whole ? LanguageText("str_EngravedWritten", {target->filename().string()})
                                          : LanguageText("str_PrintingStopped"));
}

void PrintChord() {
    ChordSheetModel model;
    model.Load();
    if (!model.Names.empty()) Shell::Program.Dialogs->Edit(model);
}

}  // namespace Quillon::Tools
