#include "forms/frmPrintPreview.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QToolButton>
#include <QVBoxLayout>

#include "forms/ElidedLabel.h"
#include "forms/SvgIcon.h"
#include "forms/Text.h"
#include "forms/WindowPlace.h"
#include "forms/frmMain.h"
#include "forms/picPages.h"
#include "shell/Commands.h"
#include "shell/DialogModels.h"

namespace Quillon::Forms {

using Fit = Shell::PrintPreview::Fit;

namespace {

constexpr const char* Section = "PrintPreviewWindowDetails";

}  // namespace

QToolButton* frmPrintPreview::AddButton(QHBoxLayout* bar, const char* name, const char* icon, const char* textKey) {
    auto* const button = new QToolButton(this);
    button->setObjectName(name);
    button->setIcon(SvgIcon(icon));
    button->setIconSize({20, 20});
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setToolTip(Text(textKey));
    button->setAccessibleName(Text(textKey));
    bar->addWidget(button);
    return button;
}

frmPrintPreview::frmPrintPreview(frmMain& main) : QDialog(&main), owner(main) {
    setObjectName("frmPrintPreview");
    setWindowTitle(Text("str_PrintPreviewTitle"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    auto* const bar = new QHBoxLayout;
    bar->setSpacing(2);
    auto* const print = new QPushButton(SvgIcon("print"), Text("str_PreviewPrint"), this);
    print->setObjectName("cmdPrint");
    print->setAutoDefault(false);  // Enter in the zoom's box means the zoom
    connect(print, &QPushButton::clicked, this, &frmPrintPreview::cmdPrint_Click);
    bar->addWidget(print);
    auto* const options = new QPushButton(SvgIcon("options"), Text("str_PreviewOptions"), this);
    options->setObjectName("cmdOptions");
    options->setAutoDefault(false);
    connect(options, &QPushButton::clicked, this, &frmPrintPreview::cmdOptions_Click);
    bar->addWidget(options);
    QToolButton* const setup = AddButton(bar, "cmdPageSetup", "page-setup", "str_PreviewPageSetup");
    connect(setup, &QToolButton::clicked, this, &frmPrintPreview::cmdPageSetup_Click);
    bar->addStretch(1);

    pages = new picPages(preview, this);
    cmdPrevious = AddButton(bar, "cmdPreviousPage", "go-previous-page", "str_PreviewPrevious");
    connect(cmdPrevious, &QToolButton::clicked, this,
            [this] { pages->GoTo(pages->CurrentPage() - preview.Columns()); });
    lblPage = new ElidedLabel(this);
    lblPage->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    lblPage->setObjectName("lblPage");
    lblPage->setAlignment(Qt::AlignCenter);
    lblPage->setTextFormat(Qt::PlainText);
    bar->addWidget(lblPage, 4);
    cmdNext = AddButton(bar, "cmdNextPage", "go-next-page", "str_PreviewNext");
    connect(cmdNext, &QToolButton::clicked, this, [this] { pages->GoTo(pages->CurrentPage() + preview.Columns()); });
    bar->addStretch(1);

    auto* const out = AddButton(bar, "cmdZoomOut", "zoom-out", "str_PreviewZoomOut");
    connect(out, &QToolButton::clicked, this, [this] { ChangeZoom([this] { preview.ZoomBy(-1); }); });
    vbZoom = new QSpinBox(this);
    vbZoom->setObjectName("vbZoom");
    vbZoom->setAccessibleName(Text("str_PreviewZoom"));
    vbZoom->setRange(Shell::PrintPreview::LeastZoom, Shell::PrintPreview::MostZoom);
    vbZoom->setSuffix(" %");
    vbZoom->setSingleStep(10);
    vbZoom->setKeyboardTracking(false);
    connect(vbZoom, &QSpinBox::valueChanged, this,
            [this](int percent) { ChangeZoom([this, percent] { preview.SetZoom(percent); }); });
    connect(vbZoom, &QSpinBox::editingFinished, this, [this] { pages->setFocus(); });
    bar->addWidget(vbZoom);
    auto* const in = AddButton(bar, "cmdZoomIn", "zoom-in", "str_PreviewZoomIn");
    connect(in, &QToolButton::clicked, this, [this] { ChangeZoom([this] { preview.ZoomBy(1); }); });
    cmdFitPage = AddButton(bar, "cmdFitPage", "zoom-page", "str_PreviewFitPage");
    cmdFitWidth = AddButton(bar, "cmdFitWidth", "zoom-width", "str_PreviewFitWidth");
    for (QToolButton* const each : {cmdFitPage, cmdFitWidth}) {
        each->setCheckable(true);
        const Fit fit = each == cmdFitPage ? Fit::Page : Fit::Width;
        connect(each, &QToolButton::clicked, this, [this, fit] {
            const int page = pages->CurrentPage();
            ChangeZoom([this, fit] { preview.SetFit(fit); });
            pages->GoTo(page);
        });
    }
    auto* const close = new QPushButton(Text("str_PreviewClose"), this);
    close->setObjectName("cmdClose");
    close->setAutoDefault(false);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    bar->addSpacing(8);
    bar->addWidget(close);

    auto* const body = new QVBoxLayout(this);
    body->setContentsMargins(0, 8, 0, 0);
    bar->setContentsMargins(8, 0, 8, 0);
    body->addLayout(bar);
    body->addWidget(pages, 1);
    connect(pages, &picPages::Moved, this, &frmPrintPreview::ShowState);
    constexpr double Share = 0.95;  // of a small screen, also of one smaller than that of the last time
    const QSize most = screen()->availableSize() * Share;
    RestorePlace(*this, Section, QSize(1100, 800).boundedTo(most));
    resize(size().boundedTo(most));
    pages->setFocus();
    ShowState();
}

frmPrintPreview::~frmPrintPreview() {
    preview.Keep();
    KeepPlace(*this, Section);
}

void frmPrintPreview::ChangeZoom(const std::function<void()>& change) {
    change();
    pages->Refresh();
    ShowState();
}

void frmPrintPreview::ShowState() {
    const QSignalBlocker quiet(vbZoom);
    vbZoom->setValue(preview.Zoom());
    cmdFitPage->setChecked(preview.Fitted() == Fit::Page);
    cmdFitWidth->setChecked(preview.Fitted() == Fit::Width);
    const int page = pages->CurrentPage();
    lblPage->setText(ToQString(preview.PageText(page)));
    cmdPrevious->setEnabled(page > 0);
    cmdNext->setEnabled(page + preview.Columns() < preview.Pages());
}

void frmPrintPreview::cmdPrint_Click() {
    preview.Keep();
    Shell::ChosenPrinter printer = owner.AskPrinter(preview.Model);
    if (!printer.Pages) return;
    preview.Model.Keep();
    Shell::Guarded([&] { Shell::PrintOn(std::move(printer), preview.Model); });
    preview.Rebuild();
    pages->Refresh();
}

void frmPrintPreview::cmdOptions_Click() {
    if (!owner.Edit(preview.Model)) return;
    preview.Rebuild();
    pages->Refresh();
}

void frmPrintPreview::cmdPageSetup_Click() {
    Shell::PageSetupModel model;
    model.Load();
    if (!owner.Edit(model)) return;
    Shell::Guarded([&] { model.Apply(); });
    preview.Rebuild();
    pages->Refresh();
}

}  // namespace Quillon::Forms
