#include "forms/frmChordPrinter.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "exchange/PrintJob.h"
#include "forms/SvgIcon.h"
#include "forms/Text.h"
#include "forms/WindowPlace.h"
#include "library/ChordBoxes.h"
#include "platform/qt/PaintedPages.h"
#include "platform/qt/PainterPicture.h"
#include "shell/mod_Shell.h"
#include "tools/ChordManager.h"
#include "tools/ChordSheet.h"

namespace Quillon::Forms {

namespace {

constexpr const char* Section = "ChordPrinterWindowDetails";

}  // namespace

picSheet::picSheet(Tools::ChordSheetModel& shown, QWidget* parent) : QWidget(parent), model(shown) {
    setObjectName("picSheet");
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(200, 200);
    setAccessibleName(Text("str_ChordPrinterTitle"));
}

void picSheet::ShowPage(int number) {
    page = number;
    update();
}

void picSheet::paintEvent(QPaintEvent*) {
    QPainter screen(this);
    screen.fillRect(rect(), palette().color(QPalette::Window).darker(118));
    const Sheet size = Exchange::PrintJob::PageSheet();
    constexpr int around = 12, shadow = 3;
    const double scale = std::min((width() - 2 * around) / size.Width, (height() - 2 * around) / size.Height);
    if (scale <= 0) return;
    const QSize paper(static_cast<int>(size.Width * scale), static_cast<int>(size.Height * scale));
    const QPoint corner((width() - paper.width()) / 2, (height() - paper.height()) / 2);
    const double ratio = devicePixelRatioF();
    QImage image(paper * ratio, QImage::Format_RGB32);
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        PainterPicture picture(painter, scale * ratio);
        model.Draw(picture, page);
    }
    image.setDevicePixelRatio(ratio);
    screen.fillRect(QRect(corner, paper).translated(shadow, shadow), QColor(0, 0, 0, 60));
    screen.drawImage(corner, image);
}

void picSheet::wheelEvent(QWheelEvent* event) { Q_EMIT Turned(event->angleDelta().y() > 0 ? -1 : 1); }

void picSheet::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_PageUp || event->key() == Qt::Key_Up) return Q_EMIT Turned(-1);
    if (event->key() == Qt::Key_PageDown || event->key() == Qt::Key_Down) return Q_EMIT Turned(1);
    QWidget::keyPressEvent(event);
}

frmChordPrinter::frmChordPrinter(Tools::ChordSheetModel& shown, QWidget* parent) : QDialog(parent), model(shown) {
    setObjectName("frmChordPrinter");
    setWindowTitle(Text("str_ChordPrinterTitle"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    auto* const bar = new QHBoxLayout;
    const auto push = [this, bar](const char* name, const char* icon, const char* text) {
        auto* const button = new QPushButton(SvgIcon(icon), Text(text), this);
        button->setObjectName(name);
        button->setAutoDefault(false);
        bar->addWidget(button);
        return button;
    };
    connect(push("cmdPrint", "print", "str_PreviewPrint"), &QPushButton::clicked, this,
            [this] { Shell::Guarded([this] { cmdPrint_Click(); }); });
    connect(push("cmdSave", "export-pdf", "str_ChordSheetSave"), &QPushButton::clicked, this,
            [this] { Shell::Guarded([this] { Tools::SaveSheet(model); }); });
    auto* const title = new QLineEdit(ToQString(model.Title), this);
    title->setObjectName("txtTitle");
    title->setAccessibleName(Text("str_ChordSheetHeading"));
    title->setToolTip(Text("str_ChordSheetHeading"));
    auto* const what = new QHBoxLayout;
    what->addWidget(title, 1);
    bar->addStretch();
    auto* const which = new QComboBox(this);
    which->setObjectName("cmbWhich");
    which->addItems({Text("str_ChordSheetChosen"), Text("str_ChordSheetAll")});
    which->setCurrentIndex(model.All ? 1 : 0);
    which->setAccessibleName(Text("str_ChordSheetWhich"));
    which->setToolTip(which->accessibleName());
    what->addWidget(which);
    auto* const display = new QComboBox(this);
    display->setObjectName("cmbDisplay");
    for (int mode = 0; mode < Library::DisplayModes; ++mode) {
        display->addItem(Text(Tools::DisplayModeKey(mode)).remove('&'));
    }
    display->setCurrentIndex(model.DisplayMode);
    display->setAccessibleName(Text("str_ChordDisplay").remove('&'));
    what->addWidget(display);
    const auto turn = [this, bar](const char* name, const char* icon, const char* text, int by) {
        auto* const button = new QToolButton(this);
        button->setObjectName(name);
        button->setIcon(SvgIcon(icon));
        button->setAutoRaise(true);
        button->setToolTip(Text(text));
        button->setAccessibleName(Text(text));
        connect(button, &QToolButton::clicked, this, [this, by] { GoTo(sheet->Page() + by); });
        bar->addWidget(button);
        return button;
    };
    cmdPrevious = turn("cmdPrevious", "go-previous-bar", "str_PreviewPrevious", -1);
    lblPage = new QLabel(this);
    lblPage->setObjectName("lblPage");
    bar->addWidget(lblPage);
    cmdNext = turn("cmdNext", "go-next-bar", "str_PreviewNext", 1);
    sheet = new picSheet(model, this);
    auto* const body = new QVBoxLayout(this);
    body->addLayout(bar);
    body->addLayout(what);
    body->addWidget(sheet, 1);
    connect(title, &QLineEdit::textChanged, this, [this](const QString& text) {
        model.Title = text.toStdString();
        sheet->update();
    });
    connect(which, &QComboBox::activated, this, [this](int index) {
        model.TakeAll(index == 1);
        GoTo(0);
    });
    connect(display, &QComboBox::activated, this, [this](int mode) {
        model.DisplayMode = mode;
        GoTo(sheet->Page());
    });
    connect(sheet, &picSheet::Turned, this, [this](int by) { GoTo(sheet->Page() + by); });
    connect(this, &QDialog::finished, this, [this] { KeepPlace(*this, Section); });
    RestorePlace(*this, Section, QSize(780, 720));
    sheet->setFocus();
    GoTo(0);
}

void frmChordPrinter::GoTo(int page) {
    const int last = model.Pages() - 1;
    sheet->ShowPage(std::clamp(page, 0, last));
    lblPage->setText(
        ToQString(Core::LanguageText("str_PageNumber", {std::to_string(sheet->Page() + 1), std::to_string(last + 1)})));
    cmdPrevious->setEnabled(sheet->Page() > 0);
    cmdNext->setEnabled(sheet->Page() < last);
}

void frmChordPrinter::cmdPrint_Click() {
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    const Sheet size = Exchange::PrintJob::PageSheet();
    const QSizeF upright(std::min(size.PaperWidth, size.PaperHeight), std::max(size.PaperWidth, size.PaperHeight));
    printer->setPageSize(QPageSize(upright, QPageSize::Millimeter));
    printer->setPageOrientation(size.PaperWidth > size.PaperHeight ? QPageLayout::Landscape : QPageLayout::Portrait);
    printer->setFullPage(true);
    printer->setCreator("Quillon 4");
    printer->setDocName(ToQString(model.Title));
    QPrintDialog dialog(printer.get(), this);
    dialog.setWindowTitle(Text("str_PrintTitle"));
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    if (dialog.exec() != QDialog::Accepted) return;
    printer->setFullPage(true);  // the dialog may have put its own margins
    const int pages = model.Pages();
    const int first = std::clamp(printer->fromPage(), 1, pages);
    const int last = printer->toPage() == 0 ? pages : std::clamp(printer->toPage(), first, pages);
    Tools::PrintSheetOn(std::make_unique<PaintedPages>(std::move(printer)), model, first - 1, last - 1);
}

}  // namespace Quillon::Forms
