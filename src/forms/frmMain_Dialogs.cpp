// The dialogs of the main window, built when they are asked for.
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <algorithm>

#include "core/mod_TabFileManipulation.h"
#include "drawing/mod_HighLevelDrawing.h"
#include "drawing/mod_PrintedPages.h"
#include "exchange/PictureExport.h"
#include "forms/PictureEncoder.h"
#include "forms/PrintFields.h"
#include "forms/Text.h"
#include "forms/frmAbout.h"
#include "forms/frmCommandPalette.h"
#include "forms/frmExportPicture.h"
#include "forms/frmMain.h"
#include "forms/frmPrintPreview.h"
#include "forms/ntne_frmShortcuts.h"
#include "platform/FileSystem.h"
#include "platform/MessageBox.h"
#include "platform/Services.h"
#include "platform/qt/PaintedPages.h"
#include "shell/Commands.h"

namespace Quillon::Forms {

using Core::Open;

std::optional<std::string> frmMain::AskPassword() {
    bool accepted = false;
    const QString given = QInputDialog::getText(this, Text("str_PasswordTitle"), Text("str_PasswordQuestion"),
                                                QLineEdit::Password, QString(), &accepted);
    if (!accepted) return {};
    return given.toStdString();
}

void frmMain::ExportPicture() {
    const std::pair<const char*, const char*> kinds[] = {
        {"str_FilterPng", "png"}, {"str_FilterSvg", "svg"}, {"str_FilterJpeg", "jpg"}, {"str_FilterBmp", "bmp"}};
    QStringList filters;
    for (const auto& [key, ending] : kinds) filters << QString("%1 (*.%2)").arg(Text(key), ending);
    QFileDialog dialog(this, Text("str_ExportPictureTitle"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters(filters);
    dialog.setDefaultSuffix("png");
    connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString& filter) {
        dialog.setDefaultSuffix(kinds[std::max<qsizetype>(0, filters.indexOf(filter))].second);
    });
    const std::filesystem::path open(Open.FileName);
    if (open.has_parent_path()) dialog.setDirectory(PathText(open.parent_path()));
    dialog.selectFile(open.empty() ? Text("str_Untitled") : PathText(open.stem()));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return;
    const std::filesystem::path target = ToPath(dialog.selectedFiles().first());

    const auto kind = Exchange::PictureKindOf(target);
    if (!kind) return ShowStatus(Core::LanguageText("str_PictureEnding", {target.string()}));
    const bool vector = *kind == Exchange::PictureKind::Svg;
    const int pages = Drawing::CountPages(Open.CurTrack);
    frmExportPicture::Choice choice;
    const int page = Core::ReadBar(Open.CurTrack, Open.CurBar).Place.Page;
    frmExportPicture asked(choice, pages, std::clamp(page + 1, 1, pages), vector, this);
    if ((pages > 1 || !vector) && asked.exec() != QDialog::Accepted) return;
    Exchange::PictureOptions options;
    options.Track = Open.CurTrack;
    options.Page = choice.Page;
    // The file dialog asked about the name given; numbered files have others.
    for (const std::filesystem::path& path : Exchange::PicturePaths(target, options)) {
        if (path == target || !Services.Files->Exists(path)) continue;
        const std::string question = Core::LanguageText("str_Overwrite", {path.string()});
        const std::string title = Core::LanguageText("str_TitleQuestion");
        if (Services.Messages->Show(question, title, Buttons::YesNo, BoxIcon::Question) != Answer::Yes) return;
        break;
    }
    const auto written = Exchange::ExportPictures(target, options, PictureEncoderOf(*kind, choice.Dpi));
    const std::string first = written.front().filename().string();
    if (written.size() == 1) {
        ShowStatus(Core::LanguageText("str_PicturesWritten", {first}));
    } else {
        ShowStatus(Core::LanguageText("str_PicturesWrittenMore", {first, std::to_string(written.size() - 1)}));
    }
    DrawDocument();
}

Shell::ChosenPrinter frmMain::AskPrinter(Shell::PrintModel& model) {
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    const Sheet sheet = Exchange::PrintJob::PageSheet();
    const QSizeF upright(std::min(sheet.PaperWidth, sheet.PaperHeight), std::max(sheet.PaperWidth, sheet.PaperHeight));
    printer->setPageSize(QPageSize(upright, QPageSize::Millimeter));
    printer->setPageOrientation(sheet.PaperWidth > sheet.PaperHeight ? QPageLayout::Landscape : QPageLayout::Portrait);
    printer->setFullPage(true);
    printer->setCreator("Quillon 4");
    const std::filesystem::path file = Open.FileName;
    printer->setDocName(Open.TabFile.Title.empty() ? PathText(file.stem()) : ToQString(Open.TabFile.Title));
    QPrintDialog dialog(printer.get(), this);
    dialog.setObjectName("dlgPrint");
    dialog.setWindowTitle(Text("str_PrintTitle"));
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    PrintFields fields(model);
    dialog.setOptionTabs({&fields});
    const bool accepted = dialog.exec() == QDialog::Accepted;
    fields.setParent(nullptr);  // the dialog took it into its own
    if (!accepted) return {};
    fields.Store();
    Shell::ChosenPrinter chosen{nullptr, printer->fromPage(), printer->toPage()};
    if (!printer->supportsMultipleCopies()) {  // a file
        chosen.Copies = printer->copyCount();
        chosen.Collated = printer->collateCopies();
    }
    printer->setFullPage(true);  // the dialog may have put its own margins
    chosen.Pages = std::make_unique<PaintedPages>(std::move(printer));
    return chosen;
}

void frmMain::ShowPrintPreview() { frmPrintPreview(*this).exec(); }

void frmMain::ShowAbout() { frmAbout(this).exec(); }

void frmMain::ShowKeyboardHelp() { ntne_frmShortcuts(this).exec(); }

void frmMain::ShowCommandPalette() {
    const Shell::Command* chosen = nullptr;
    {
        frmCommandPalette asked(this);
        asked.exec();
        chosen = asked.Chosen();
    }
    if (!chosen) return;
    Shell::RunCommand(*chosen);
    UpdateCommands();
}

}  // namespace Quillon::Forms
