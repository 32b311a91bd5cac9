#include "tools/ScaleSheet.h"

#include "exchange/FileDate.h"
#include "exchange/PrintJob.h"
#include "platform/FileSystem.h"
#include "platform/Services.h"
#include "shell/mod_Shell.h"
#include "tools/ScaleManager.h"

namespace Quillon::Tools {

bool ScaleSheetModel::Load() {
    const Library::ScaleRec* const chosen = ChosenScale();
    if (!chosen) return false;
    Name = ScaleManager.Chosen;
    Scale = *chosen;
    View = ScaleManager.View;
    return true;
}

std::string ScaleSheetModel::Title() const { return Library::ScaleCaption(Name, Scale, View.Key); }

Sheet ScaleSheetModel::Page() { return Exchange::PrintJob::PageSheet(); }

void ScaleSheetModel::Draw(Picture& picture) const {
    const Sheet sheet = Page();
    Library::DrawScaleSheet(picture, Name, Scale, View, sheet.Width, sheet.Height);
}

void ScaleSheetModel::Print(PageTarget& target) const {
    target.BeginChapter(Title());
    Draw(target.BeginPage(Page()));
}

void ScaleSheetModel::SavePdf(const std::filesystem::path& path) const {
    const std::unique_ptr<PageFile> file = Services.NewPdf();
    Print(*file);
    PageFileInfo info;
    info.Title = Title();
    info.Keywords = Scale.Keywords;
    info.Creator = "Quillon 4";
    info.CreationDate = Exchange::FileDate();
    Services.Files->Replace(path, file->Finish(info));
}

std::filesystem::path ScaleSheetModel::SuggestedPdf() const { return Title() + ".pdf"; }

void PrintScale() {
    ScaleSheetModel model;
    if (model.Load()) Shell::Program.Dialogs->Edit(model);
}

}  // namespace Quillon::Tools
