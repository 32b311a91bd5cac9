#include "forms/frmMain.h"

#include <QAction>
#include <QClipboard>
#include <QCloseEvent>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QSignalBlocker>
#include <QSlider>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QUrl>

#include "core/mod_TabFileStructure.h"
#include "drawing/mod_HighLevelDrawing.h"
#include "forms/LibraryWindow.h"
#include "forms/SvgIcon.h"
#include "forms/Text.h"
#include "forms/Theme.h"
#include "forms/WindowPlace.h"
#include "forms/ntne_frmPercAssTAB.h"
#include "forms/picDocument.h"
#include "forms/picMixTable.h"
#include "platform/Services.h"
#include "platform/SettingsStore.h"
#include "shell/Commands.h"
#include "shell/CursorText.h"
#include "shell/PercAssistant.h"
#include "shell/Recovery.h"
#include "shell/mod_Sound.h"

namespace Quillon::Forms {

using Core::Open;

namespace {

constexpr std::string_view PlaceSection = "MainWindowDetails";
constexpr std::string_view ToolbarsKey = "Toolbars";

QString DroppedFile(const QMimeData* data) {
    for (const QUrl& url : data->urls()) {
        if (url.isLocalFile()) return url.toLocalFile();
    }
    return {};
}

QElapsedTimer StartedClock() {
    QElapsedTimer clock;
    clock.start();
    return clock;
}

}  // namespace

namespace {

/// Shows a text that changes with every key. The label never shrinks: it keeps its neighbours where they are, and the
/// window from being laid out anew.
void ShowSteady(QLabel& label, const std::string& text) {
    const QString shown = ToQString(text);
    if (label.text() == shown) return;
    label.setText(shown);
    const QSize needed = label.sizeHint();
    if (needed.width() > label.minimumWidth() || needed.height() > label.minimumHeight()) {
        label.setFixedSize(needed.expandedTo(label.minimumSize()));
    }
}

}  // namespace

frmMain::frmMain() {
    setObjectName("frmMain");
    setWindowIcon(SvgIcon("quillon"));
    document = new picDocument(this);
    document->setObjectName("picDocument");
    setCentralWidget(document);
    setAcceptDrops(true);
    setAnimated(false);  // a toolbar is where it was dropped, at once
    BuildMenus();
    BuildStatusBar();
    BuildPlaying();
    connect(document, &picDocument::Drawn, this, [this] {
        FillStatus();
        ShowBoards();
        TellTools([](LibraryWindow& tool) { tool.CursorMoved(); });
        if (!Shell::Sound.Playing) ShowStates();  // they may hang on the bar of the cursor
        if (painted) return;
        painted = true;
        // Behind the paint event that runs now.
        QTimer::singleShot(0, this, &frmMain::FirstPainted);
    });
    connect(document, &picDocument::MenuAsked, this, &frmMain::ShowRightMenu);
    connect(document, &picDocument::ZoomAsked, this, [](int steps) { Shell::ZoomBy(steps); });
    tmrRecovery = new QTimer(this);
    tmrRecovery->setInterval(Shell::RecoveryTick);
    connect(tmrRecovery, &QTimer::timeout, this,
            [clock = StartedClock()] { Shell::Guarded([&clock] { Shell::tmrRecovery_Timer(clock.elapsed()); }); });
    // A SoundFont that can't be had is known only after a while.
    connect(tmrRecovery, &QTimer::timeout, this, Shell::TellSilence);
    document->setFocus();
}

/// The tools go while there still is a window to tell.
frmMain::~frmMain() {
    Shell::SilenceTools();
    for (LibraryWindow*& tool : toolWindows) delete std::exchange(tool, nullptr);
}

QAction* frmMain::ActionOf(const std::string& name) const {
    const auto found = actions.find(name);
    return found == actions.end() ? nullptr : found->second;
}

void frmMain::DrawDocument() { document->Redraw(); }

void frmMain::SetCaption(const std::string& caption) {
    setWindowTitle(ToQString(caption));
    setWindowModified(false);
}

void frmMain::RebuildTrackList() {
    const QSignalBlocker quiet(cmbTrack);
    cmbTrack->clear();
    int number = 0;
    for (const Core::Track& track : Open.TabFile.Tracks) {
        cmbTrack->addItem(QString("%1. %2").arg(++number).arg(ToQString(track.Name)));
    }
    cmbTrack->setCurrentIndex(Open.CurTrack);
    mixTable->Fill();
}

void frmMain::FillPercAssistant() { percAssistant->Fill(); }

void frmMain::ShowStatus(const std::string& text) {
    lblStatus->setText(ToQString(text));
    lblStatus->setToolTip(lblStatus->text());
}

void frmMain::ShowStates() {
    for (const Shell::Command& command : Shell::Commands()) {
        QAction* const action = ActionOf(std::string(command.Name));
        action->setEnabled(Shell::IsEnabled(command));
        if (command.Checked) action->setChecked(Shell::IsChecked(command));
    }
}

void frmMain::UpdateCommands() {
    ShowStates();
    ShowMenus();
    ShowToolbars();
    ShowDocks();
    ShowToolWindows();
    percAssistant->ShowIf(Shell::PercAssistantShows());
    if (cmbTrack->currentIndex() != Open.CurTrack) {
        const QSignalBlocker quiet(cmbTrack);
        cmbTrack->setCurrentIndex(Open.CurTrack);
    }
}

void frmMain::ThemeChanged() {
    ApplyTheme(static_cast<Theme>(Shell::Program.Theme));
    document->Repaint();
}

void frmMain::UpdateZoom() {
    document->SetZoom(Shell::Program.ZoomPercent / 100.0);
    const QSignalBlocker quiet(sldZoom);
    sldZoom->setValue(Shell::Program.ZoomPercent);
    cmdZoom->setText(QString("%1 %").arg(Shell::Program.ZoomPercent));
}

void frmMain::FillStatus() {
    ShowSteady(*lblNote, Shell::NoteText());
    if (!Shell::Sound.Playing) ShowSteady(*lblPlace, Shell::PlaceText());
    ShowSteady(*lblPages, Drawing::PageCountText());
}

void frmMain::RestorePlaces() {
    RestorePlace(*this, PlaceSection, QSize(1100, 820));
    const std::string bars = Services.Settings->Get(PlaceSection, ToolbarsKey);
    if (!bars.empty()) restoreState(QByteArray::fromBase64(QByteArray::fromStdString(bars)));
    arranged.clear();  // whatever the state says
    DockToolbars();
    ShowToolbars();
    ArrangeToolbars();
    ShowDocks();
}

void frmMain::KeepPlaces() {
    KeepPlace(*this, PlaceSection);
    percAssistant->KeepItsPlace();
    TellTools([](LibraryWindow& tool) { tool.KeepItsPlace(); });
    Services.Settings->Save(PlaceSection, ToolbarsKey, saveState().toBase64().toStdString());
}

void frmMain::ShowWindow() {
    show();
    RaiseToolbars();
    // Not before: a box of the start waits for its answer while the new document still counts as changed.
    tmrRecovery->start();
    document->setFocus();
}

void frmMain::CloseWindow() {
    closing = true;
    close();
}

void frmMain::closeEvent(QCloseEvent* event) {
    if (closing || Shell::Stop()) {
        closing = true;
        event->accept();
    } else {
        event->ignore();
    }
}

void frmMain::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && document) {
        const bool dark = palette().color(QPalette::Window).lightness() < 128;
        Drawing::View.Ground = dark ? PackColor(0x3C, 0x3F, 0x44) : Drawing::DocumentView().Ground;
        document->Redraw(false);
    }
}

void frmMain::dragEnterEvent(QDragEnterEvent* event) {
    if (!DroppedFile(event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void frmMain::dropEvent(QDropEvent* event) {
    const QString path = DroppedFile(event->mimeData());
    if (path.isEmpty()) return;
    event->acceptProposedAction();
    // Not within the drop itself, which holds the source of the drag until it is answered.
    QTimer::singleShot(0, this, [path] { Shell::Guarded([&path] { Shell::OpenDroppedFile(ToPath(path)); }); });
}

std::optional<std::filesystem::path> frmMain::AskOpenFile(const std::filesystem::path& folder) {
    const QString filters = Text("str_FilterOpen") +
                            " (*.qlm *.QLM *.json *.txt *.TXT *.tab *.TAB *.html *.HTML *.htm *.HTM *.mid *.MID *.midi "
                            "*.MIDI);;" +
                            Text("str_FilterAll") + " (*)";
    const QString chosen = QFileDialog::getOpenFileName(this, Text("str_OpenTitle"), PathText(folder), filters);
    if (chosen.isEmpty()) return {};
    return ToPath(chosen);
}

std::optional<std::filesystem::path> frmMain::AskSaveFile(const std::filesystem::path& suggested) {
    QFileDialog dialog(this, Text("str_SaveTitle"), PathText(suggested.parent_path()),
                       Text("str_FilterMusic") + " (*.qlm)");
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix("qlm");
    dialog.selectFile(PathText(suggested.filename()));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    return ToPath(dialog.selectedFiles().first());
}

std::optional<std::filesystem::path> frmMain::AskImportFile(const char* titleKey, const char* kindKey,
                                                            const std::vector<std::string>& endings) {
    QStringList patterns;
    for (const std::string& ending : endings) patterns << "*" + ToQString(ending) << "*" + ToQString(ending).toUpper();
    const QString filters = Text(kindKey) + " (" + patterns.join(' ') + ");;" + Text("str_FilterAll") + " (*)";
    const QString chosen = QFileDialog::getOpenFileName(this, Text(titleKey), QString(), filters);
    if (chosen.isEmpty()) return {};
    return ToPath(chosen);
}

std::optional<std::filesystem::path> frmMain::AskExportFile(const char* titleKey, const char* kindKey,
                                                            const std::filesystem::path& suggested) {
    const QString ending = PathText(suggested.extension());
    QFileDialog dialog(this, Text(titleKey), PathText(suggested.parent_path()), Text(kindKey) + " (*" + ending + ")");
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(ending.mid(1));
    dialog.selectFile(PathText(suggested.filename()));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    return ToPath(dialog.selectedFiles().first());
}

std::optional<std::filesystem::path> frmMain::AskFileToWrite(const std::filesystem::path& suggested,
                                                             const std::vector<Shell::FileKind>& kinds) {
    QStringList filters;
    for (const Shell::FileKind& kind : kinds) {
        QStringList endings;
        for (const std::string& ending : kind.Endings) endings << "*." + ToQString(ending);
        filters << QString("%1 (%2)").arg(Text(kind.Text), endings.join(' '));
    }
    QFileDialog dialog(this, Text("str_SaveTitle"), PathText(suggested.parent_path()));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters(filters);
    const auto takeEnding = [&](qsizetype kind) {
        dialog.setDefaultSuffix(
            ToQString(kinds[static_cast<std::size_t>(std::max<qsizetype>(kind, 0))].Endings.front()));
    };
    connect(&dialog, &QFileDialog::filterSelected, &dialog,
            [&](const QString& filter) { takeEnding(filters.indexOf(filter)); });
    takeEnding(0);
    dialog.selectFile(PathText(suggested.filename()));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    return ToPath(dialog.selectedFiles().first());
}

std::string frmMain::ClipboardText() { return QGuiApplication::clipboard()->text().toStdString(); }

void frmMain::ClearClipboard() { QGuiApplication::clipboard()->clear(); }

}  // namespace Quillon::Forms
