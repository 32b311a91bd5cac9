// What the main window shows of playing, and the list of tracks.
#include <QAction>
#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QSlider>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

#include "forms/Text.h"
#include "forms/WorkProgress.h"
#include "forms/frmMain.h"
#include "forms/ntne_frmPercAssTAB.h"
#include "forms/picDocument.h"
#include "shell/mod_Shell.h"
#include "shell/mod_Sound.h"

namespace Quillon::Forms {

namespace {

constexpr int PlayPlaceTick = 40;  // ms: finer than any beat, and next to no work while the beat is the same

}  // namespace

void frmMain::BuildPlaying() {
    tmrPlayPlace = new QTimer(this);
    tmrPlayPlace->setInterval(PlayPlaceTick);
    connect(tmrPlayPlace, &QTimer::timeout, this, [this] {
        if (const auto text = Shell::PlayPlaceChanged()) lblPlace->setText(ToQString(*text));
    });
    work = new WorkProgress(this);
    statusBar()->insertPermanentWidget(1, work);
    work->hide();
    BuildTrackList();
    BuildBoards();
    percAssistant = new ntne_frmPercAssTAB(this);
    connect(percAssistant, &ntne_frmPercAssTAB::Done, this, [this] {
        activateWindow();
        document->setFocus();
    });
}

void frmMain::WhenPainted(std::function<void()> act) {
    if (painted) return act();
    connect(
        this, &frmMain::FirstPainted, this, [act = std::move(act)] { Shell::Guarded(act); }, Qt::SingleShotConnection);
}

void frmMain::PlayingStarts() {
    document->Redraw(false);
    document->SetScrolling(false);
    sldZoom->setEnabled(false);
    cmdZoom->setEnabled(false);
    UpdateCommands();
    tmrPlayPlace->start();
    document->setFocus();
}

void frmMain::PlayingStopped() {
    tmrPlayPlace->stop();
    document->MovePlayMarker();
    ShowBoards();
    document->SetScrolling(true);
    sldZoom->setEnabled(true);
    cmdZoom->setEnabled(true);
    UpdateCommands();
    FillStatus();
    document->setFocus();
}

void frmMain::ScrollToBar(int bar) { document->ScrollToBar(bar); }

void frmMain::MovePlayMarker() {
    document->MovePlayMarker();
    ShowBoards();
}

void frmMain::BeginWork(const std::string& text) {
    ShowStatus("");
    work->Begin(ToQString(text));
}

bool frmMain::GoOnWithWork(int percent) { return work->GoOn(percent); }

void frmMain::EndWork() { work->End(); }

/// Menus of which nothing can be chosen are grey themselves.
void frmMain::ShowMenus() {
    for (QAction* point : gotoPoints) point->setEnabled(!Shell::Sound.Playing);
    for (auto each = menus.rbegin(); each != menus.rend(); ++each) {  // submenus before their menus
        QMenu* const menu = each->second;
        bool any = false;
        for (const QAction* action : menu->actions()) any = any || (!action->isSeparator() && action->isEnabled());
        menu->menuAction()->setEnabled(any);
    }
}

/// Space plays wherever the focus is, but for what Space itself works on.
bool frmMain::eventFilter(QObject* watched, QEvent* event) {
    if (auto* const bar = qobject_cast<QToolBar*>(watched)) WatchToolbar(*bar, *event);
    if (event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space &&
        !(static_cast<QKeyEvent*>(event)->modifiers() & ~Qt::ShiftModifier)) {
        event->accept();
        return true;
    }
    return QMainWindow::eventFilter(watched, event);
}

}  // namespace Quillon::Forms
