#include "forms/frmScalePrinter.h"

#include <QHBoxLayout>
#include <QImage>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "forms/SvgIcon.h"
#include "forms/Text.h"
#include "forms/WindowPlace.h"
#include "platform/qt/PaintedPages.h"
#include "platform/qt/PainterPicture.h"
#include "shell/mod_Shell.h"
#include "tools/ScaleSheet.h"

namespace Quillon::Forms {

namespace {

constexpr const char* Section = "ScalePrinterWindowDetails";

/// The sheet, as large as there is room for.
class picSheet : public QWidget {
public:
    picSheet(const Tools::ScaleSheetModel& shown, QWidget* parent) : QWidget(parent), model(shown) {
        setObjectName("picSheet");
        setAccessibleName(ToQString(model.Title()));
        constexpr QSize least(240, 260);
        setMinimumSize(least);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        constexpr double Border = 12;
        const Sheet page = Tools::ScaleSheetModel::Page();
        const double scale = std::min((width() - 2 * Border) / page.Width, (height() - 2 * Border) / page.Height);
        const QSizeF size(page.Width * scale, page.Height * scale);
        const QPointF corner((width() - size.width()) / 2, (height() - size.height()) / 2);
        QPainter screen(this);
        screen.fillRect(rect(), palette().color(QPalette::Window).darker(118));
        QImage image((size * devicePixelRatioF()).toSize(), QImage::Format_RGB32);
        image.fill(Qt::white);
        {
            QPainter painter(&image);
            PainterPicture picture(painter, scale * devicePixelRatioF());
            model.Draw(picture);
        }
        image.setDevicePixelRatio(devicePixelRatioF());
        screen.drawImage(corner, image);
        screen.setPen(QColor(0, 0, 0, 90));
        screen.drawRect(QRectF(corner, size));
    }

private:
    const Tools::ScaleSheetModel& model;
};

}  // namespace

frmScalePrinter::frmScalePrinter(Tools::ScaleSheetModel& printed, QWidget* parent) : QDialog(parent), model(printed) {
    setObjectName("frmScalePrinter");
    setWindowTitle(ToQString(model.Title()));
    auto* const bar = new QHBoxLayout;
    const auto add = [&](const char* name, const char* icon, const char* text, void (frmScalePrinter::*act)()) {
        auto* const button = new QPushButton(SvgIcon(icon), Text(text), this);
        button->setObjectName(name);
        bar->addWidget(button);
        connect(button, &QPushButton::clicked, this, act);
    };
    add("cmdPrint", "print", "str_PreviewPrint", &frmScalePrinter::cmdPrint_Click);
    add("cmdPdf", "export-pdf", "str_ScalePdf", &frmScalePrinter::cmdPdf_Click);
    bar->addStretch();
    auto* const close = new QPushButton(Text("str_PreviewClose"), this);
    close->setObjectName("cmdClose");
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    bar->addWidget(close);
    auto* const body = new QVBoxLayout(this);
    body->addLayout(bar);
    body->addWidget(new picSheet(model, this), 1);
    RestorePlace(*this, Section, QSize(560, 640));
}

frmScalePrinter::~frmScalePrinter() { KeepPlace(*this, Section); }

void frmScalePrinter::cmdPrint_Click() {
    Shell::Guarded([this] {
        auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
        const Sheet sheet = Tools::ScaleSheetModel::Page();
        const QSizeF upright(std::min(sheet.PaperWidth, sheet.PaperHeight),
                             std::max(sheet.PaperWidth, sheet.PaperHeight));
        printer->setPageSize(QPageSize(upright, QPageSize::Millimeter));
        printer->setPageOrientation(sheet.PaperWidth > sheet.PaperHeight ? QPageLayout::Landscape
                                                                         : QPageLayout::Portrait);
        printer->setDocName(ToQString(model.Title()));
        QPrintDialog dialog(printer.get(), this);
        dialog.setObjectName("dlgPrint");
        dialog.setWindowTitle(Text("str_PrintTitle"));
        if (dialog.exec() != QDialog::Accepted) return;
        printer->setFullPage(true);  // the dialog may have put its own margins
        PaintedPages pages(std::move(printer));
        model.Print(pages);
        Shell::Program.View->ShowStatus(Core::LanguageText("str_ScalePrinted", {model.Title()}));
        accept();
    });
}

void frmScalePrinter::cmdPdf_Click() {
    Shell::Guarded([this] {
        const auto path =
            Shell::Program.View->AskExportFile("str_EngravedTitle", "str_FilterPdf", model.SuggestedPdf());
        if (!path) return;
        model.SavePdf(*path);
        Shell::Program.View->ShowStatus(Core::LanguageText("str_EngravedWritten", {path->filename().string()}));
        accept();
    });
}

}  // namespace Quillon::Forms
