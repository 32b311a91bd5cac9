// Printing, its preview, and the drawn PDF.
#include <algorithm>

#include "core/mod_Language.h"
#include "core/mod_TabFileStructure.h"
#include "platform/Services.h"
#include "platform/SettingsStore.h"
#include "shell/LongWork.h"
#include "shell/PrintModel.h"
#include "shell/mod_Shell.h"

namespace Quillon::Shell {

namespace fs = std::filesystem;
using Core::LanguageText;
using Core::Open;
using Exchange::RunningField;

namespace {

/// The pages lay out the tracks for themselves; the view is to be laid out anew behind them.
void PrintedAll(const std::string& status) {
    Program.View->ShowStatus(status);
    Program.View->DrawDocument();
}

}  // namespace

void PrintModel::Load() {
    AllTracks = Services.Settings->Get("Print", "AllTracks") == "1" && Open.TabFile.Tracks.Count() > 1;
    Fields = Exchange::LoadRunningFields(*Services.Settings);
}

void PrintModel::Keep() const {
    // A song of one track says nothing about those of several.
    if (Open.TabFile.Tracks.Count() > 1) Services.Settings->Save("Print", "AllTracks", AllTracks ? "1" : "0");
    Exchange::SaveRunningFields(*Services.Settings, Fields);
}

Exchange::PrintOptions PrintModel::Options() const { return {AllTracks, Open.CurTrack, Fields}; }

const char* RunningFieldText(RunningField field) {
    static constexpr const char* keys[] = {"str_FieldNothing", "str_FieldTitle",     "str_FieldArtist",
                                           "str_FieldAlbum",   "str_FieldTrack",     "str_FieldFileName",
                                           "str_FieldDate",    "str_FieldCopyright", "str_FieldPage"};
    return keys[static_cast<std::size_t>(field)];
}

void PrintOn(ChosenPrinter printer, const PrintModel& model) {
    Exchange::PrintJob job(model.Options());
    const int first = std::clamp(printer.First, 1, job.Pages());
    const int last = printer.Last == 0 ? job.Pages() : std::clamp(printer.Last, first, job.Pages());
    const std::vector<int> pages =
        Exchange::PagesInOrder(first - 1, last - 1, std::max(1, printer.Copies), printer.Collated);
    const int sheets = static_cast<int>(pages.size());
    bool whole = false;
    {
        const LongWork work(LanguageText("str_Printing"));
        whole = job.Print(*printer.Pages, pages,
                          [&](int printed) { return Program.View->GoOnWithWork(100 * printed / sheets); });
        printer.Pages.reset();  // takes the job
    }
    PrintedAll(whole ? LanguageText("str_Printed", {std::to_string(sheets)}) : LanguageText("str_PrintingStopped"));
}

void mnuFilePrint_Click() {
    PrintModel model;
    model.Load();
    ChosenPrinter printer = Program.Dialogs->AskPrinter(model);
    if (!printer.Pages) return;
    model.Keep();
    PrintOn(std::move(printer), model);
}

void mnuFilePrintPreview_Click() {
    Program.Dialogs->ShowPrintPreview();
    Program.View->DrawDocument();
}

void mnuFileExportEngraved_Click() {
    PrintModel model;
    model.Load();
    if (!Program.Dialogs->Edit(model)) return;
    model.Keep();
    fs::path suggested = Open.FileName.empty() ? fs::path(LanguageText("str_Untitled")) : fs::path(Open.FileName);
    suggested.replace_extension(".pdf");
    const auto target = Program.View->AskExportFile("str_EngravedTitle", "str_FilterPdf", suggested);
    if (!target) return;
    const std::unique_ptr<PageFile> file = Services.NewPdf();
    Exchange::ExportEngravedPdf(*target, model.Options(), 0, *file);
    PrintedAll(LanguageText("str_EngravedWritten", {target->filename().string()}));
}

}  // namespace Quillon::Shell
