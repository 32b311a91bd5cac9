#include "forms/LibraryWindow.h"

#include <QActionGroup>
#include <QCloseEvent>
#include <QMenu>
#include <QScrollArea>
#include <algorithm>
#include <array>

#include "core/mod_Common.h"
#include "forms/Text.h"
#include "forms/WindowPlace.h"
#include "forms/frmMain.h"
#include "platform/RunTimeError.h"
#include "platform/Services.h"
#include "platform/SettingsStore.h"
#include "shell/mod_Shell.h"

namespace Quillon::Forms {

namespace {

constexpr int FolderPause = 250;  ///< ms that a folder must be quiet before it is looked at
constexpr int LeastExtent = 120;  ///< pixels
constexpr int MostExtent = 4000;
constexpr int Squeezed = 30;     ///< beyond its least extent
constexpr int UsualWidth = 340;  ///< of one that comes to a side from above or below

struct Side {
    Qt::DockWidgetArea Area;
    const char* Word;  ///< in the store
    const char* Text;
};
constexpr std::array<Side, 4> Sides = {{
    {Qt::TopDockWidgetArea, "Above", "str_DockAbove"},
    {Qt::BottomDockWidgetArea, "Below", "str_DockBelow"},
    {Qt::LeftDockWidgetArea, "Left", "str_DockLeft"},
    {Qt::RightDockWidgetArea, "Right", "str_DockRight"},
}};
constexpr const char* Floating = "None";

bool IsUpright(Qt::DockWidgetArea area) { return area == Qt::LeftDockWidgetArea || area == Qt::RightDockWidgetArea; }

}  // namespace

LibraryWindow::LibraryWindow(frmMain& window, Shell::ToolWindow tool, const char* name, std::string placeSection,
                             Qt::DockWidgetArea docked, int extent)
    : QDockWidget(&window),
      owner(window),
      which(tool),
      section(std::move(placeSection)),
      firstSide(docked),
      firstExtent(extent) {
    setObjectName(name);
    hide();
    tmrFolder.setSingleShot(true);
    tmrFolder.setInterval(FolderPause);
    connect(&watcher, &QFileSystemWatcher::directoryChanged, &tmrFolder, qOverload<>(&QTimer::start));
    connect(&tmrFolder, &QTimer::timeout, this, [this] {
        Shell::Guarded([this] { FolderChanged(); });
        WatchFolder();
    });
    connect(this, &QDockWidget::topLevelChanged, this, &LibraryWindow::ShowSide);
    connect(this, &QDockWidget::dockLocationChanged, this, &LibraryWindow::ShowSide);
    // The menu over a title, too, hides and shows it.
    connect(toggleViewAction(), &QAction::triggered, this, [this](bool shows) { Shell::ShowTool(which, shows); });
}

void LibraryWindow::WatchFolder() {
    const QString folder = PathText(Folder());
    if (!watcher.directories().contains(folder)) watcher.addPath(folder);
    // The folder itself may be moved away.
    const QString above = PathText(Folder().parent_path());
    if (!watcher.directories().contains(above)) watcher.addPath(above);
}

void LibraryWindow::SetContent(QWidget* content) {
    auto* const area = new QScrollArea(this);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setWidget(content);
    constexpr int LeastHeight = 56;  // all four of them and all toolbars fit 800 by 600
    area->setMinimumSize(LeastExtent, LeastHeight);
    area->setFocusPolicy(Qt::NoFocus);
    setWidget(area);
}

void LibraryWindow::ShowIf(bool shows) {
    if (shows != isHidden()) return;
    if (!shows) {
        KeepItsPlace();
        hide();
        Q_EMIT Left();
        return;
    }
    if (!placed) RestoreItsPlace();
    show();
    raise();
    if (isFloating()) activateWindow();
    Shell::Guarded([this] { FolderChanged(); });
    WatchFolder();
    CursorMoved();
    CommandsChanged();
    TakeFocus();
}

void LibraryWindow::RestoreItsPlace() {
    placed = true;
    const std::string word = Services.Settings->Get(section + "2", "Docked");
    const auto* const known = std::ranges::find(Sides, word, &Side::Word);
    const Qt::DockWidgetArea area = known == Sides.end() ? firstSide : known->Area;
    int extent = firstExtent;
    try {
        const std::string text = Services.Settings->Get(section + "2", "Size");
        if (!text.empty()) extent = std::clamp<int>(Core::ParseInt16(text), LeastExtent, MostExtent);
    } catch (const RunTimeError&) {
        extent = firstExtent;
    }
    owner.addDockWidget(area, this);
    if (word == Floating) {
        setFloating(true);
        RestorePlace(*this, section, sizeHint());
    } else {
        show();  // a hidden one has no size
        owner.resizeDocks({this}, {extent}, IsUpright(area) ? Qt::Horizontal : Qt::Vertical);
    }
    ShowSide();
}

void LibraryWindow::KeepItsPlace() {
    if (!placed) return;
    const Qt::DockWidgetArea area = owner.dockWidgetArea(this);
    const auto* const side = std::ranges::find(Sides, area, &Side::Area);
    const std::string details = section + "2";
    Services.Settings->Save(details, "Docked", isFloating() || side == Sides.end() ? Floating : side->Word);
    if (!isVisible()) return;
    if (isFloating()) return KeepPlace(*this, section);
    // What others squeeze to its least has no size of its own.
    const int extent = IsUpright(area) ? width() : height();
    const int least = IsUpright(area) ? minimumSizeHint().width() : minimumSizeHint().height();
    if (extent > least + Squeezed) Services.Settings->Save(details, "Size", std::to_string(extent));
}

void LibraryWindow::DockAt(Qt::DockWidgetArea side) {
    KeepItsPlace();
    setFloating(false);
    const Qt::DockWidgetArea before = owner.dockWidgetArea(this);
    if (before == side) return ShowSide();
    const bool upright = IsUpright(side);
    const int extent = upright == IsUpright(before)      ? (upright ? width() : height())
                       : upright == IsUpright(firstSide) ? firstExtent
                       : upright                         ? UsualWidth
                                                         : sizeHint().height();
    owner.addDockWidget(side, this);
    owner.resizeDocks({this}, {extent}, upright ? Qt::Horizontal : Qt::Vertical);
    ShowSide();
}

void LibraryWindow::mnuUndock_Click() {
    if (isFloating()) return;
    KeepItsPlace();
    const QSize size = this->size();
    setFloating(true);
    RestorePlace(*this, section, size);
    activateWindow();
}

void LibraryWindow::AddDockEntries(QMenu& menu) {
    mnuDock = menu.addMenu(QString());
    auto* const group = new QActionGroup(this);
    for (const Side& side : Sides) {
        QAction* const action = mnuDock->addAction(QString());
        action->setObjectName(QString("mnuDock") + side.Word);
        action->setCheckable(true);
        group->addAction(action);
        connect(action, &QAction::triggered, this, [this, area = side.Area] { DockAt(area); });
        sides[side.Area] = action;
    }
    mnuUndock = menu.addAction(QString());
    mnuUndock->setObjectName("mnuUndock");
    mnuUndock->setCheckable(true);
    group->addAction(mnuUndock);
    connect(mnuUndock, &QAction::triggered, this, &LibraryWindow::mnuUndock_Click);
}

void LibraryWindow::SetDockTexts() {
    mnuDock->setTitle(Text("str_Dock"));
    for (const Side& side : Sides) sides[side.Area]->setText(Text(side.Text));
    mnuUndock->setText(Text("str_Undock"));
}

void LibraryWindow::ShowSide() {
    if (!mnuUndock) return;
    mnuUndock->setChecked(isFloating());
    if (isFloating()) return;
    const auto action = sides.find(owner.dockWidgetArea(this));
    if (action != sides.end()) action->second->setChecked(true);
}

void LibraryWindow::closeEvent(QCloseEvent* event) {
    // By its own button, and not because the whole program goes.
    if (owner.isVisible()) {
        event->ignore();
        return Shell::ShowTool(which, false);
    }
    QDockWidget::closeEvent(event);
}

void LibraryWindow::hideEvent(QHideEvent* event) {
    QDockWidget::hideEvent(event);
    if (event->spontaneous()) return;
    // On its way from one side to another it is hidden for a moment, and is not to be touched then.
    QTimer::singleShot(0, this, [this] {
        if (!isVisible()) EndSounds();
    });
}

void LibraryWindow::changeEvent(QEvent* event) {
    QDockWidget::changeEvent(event);
    // A file written in place moves no folder; a person comes back from the program that did.
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && isVisible()) tmrFolder.start();
}

}  // namespace Quillon::Forms
