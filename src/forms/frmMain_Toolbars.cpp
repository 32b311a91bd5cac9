// The toolbars: filled from the table of commands, placed row by row until a person moves one.
#include <QAction>
#include <QComboBox>
#include <QMouseEvent>
#include <QResizeEvent>
#include <QTimer>
#include <QToolBar>
#include <algorithm>
#include <vector>

#include "forms/Text.h"
#include "forms/frmMain.h"
#include "forms/picDocument.h"
#include "shell/Commands.h"
#include "shell/Toolbars.h"

namespace Quillon::Forms {

namespace {

constexpr int ToolIcon = 20;
/// The toolbar that holds the choice of the track.
constexpr std::string_view TrackToolbar = "Track";

/// Torn off by the settings alone, without a mouse that drags it: the way the library does it.
void TearOff(QToolBar& bar, const QPoint& place) {
    bar.setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
    bar.move(place);
}

}  // namespace

QToolBar* frmMain::ToolBarOf(std::string_view name) {
    if (const auto found = toolbars.find(name); found != toolbars.end()) return found->second;
    auto* const bar = new QToolBar(this);
    bar->setObjectName("toolbar" + ToQString(name));
    bar->setIconSize({ToolIcon, ToolIcon});
    bar->installEventFilter(this);
    addToolBar(bar);
    toolbars.emplace(name, bar);
    const std::string known(name);
    connect(bar->toggleViewAction(), &QAction::triggered, this,
            [known](bool visible) { Shell::SetToolbarVisible(known, visible); });
    connect(bar, &QToolBar::topLevelChanged, this,
            [known](bool floating) { Shell::SetToolbarDocked(known, !floating); });
    return bar;
}

void frmMain::BuildTrackChoice() {
    cmbTrack = new QComboBox(this);
    cmbTrack->setObjectName("cmbTrack");
    // Not as wide as the longest name: the toolbars would move with every song.
    cmbTrack->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cmbTrack->setMinimumContentsLength(14);
    cmbTrack->setFocusPolicy(Qt::TabFocus);
    cmbTrack->installEventFilter(this);
    connect(cmbTrack, &QComboBox::activated, this, [this](int track) {
        Shell::ShowTrack(track);
        document->setFocus();
    });
    QToolBar* const bar = ToolBarOf(TrackToolbar);
    bar->insertWidget(bar->actions().isEmpty() ? nullptr : bar->actions().first(), cmbTrack);
}

void frmMain::ShowToolbars() {
    bool changed = false;
    for (const auto& [name, bar] : toolbars) {
        const bool visible = Shell::IsToolbarVisible(name);
        changed = changed || bar->isHidden() == visible;
        bar->setVisible(visible);
    }
    if (changed) ArrangeToolbars();
}

/// Docked or floating as the settings have it.
void frmMain::DockToolbars() {
    constexpr QPoint First(40, 120), Step(24, 40);
    int torn = 0;
    for (const auto& [name, bar] : toolbars) {
        const bool docked = Shell::IsToolbarDocked(name);
        if (docked != bar->isFloating()) continue;
        if (docked) {
            addToolBar(bar);
        } else {
            TearOff(*bar, pos() + First + torn++ * Step);
        }
        bar->setVisible(Shell::IsToolbarVisible(name));
    }
}

void frmMain::ArrangeToolbars() {
    if (Shell::Program.ToolbarsMoved) return;
    std::vector<QToolBar*> bars;
    std::vector<QToolBar*> hidden;
    std::vector<int> widths;
    for (const Shell::Toolbar& each : Shell::Toolbars()) {
        const auto found = toolbars.find(each.Name);
        if (found == toolbars.end() || !Shell::IsToolbarDocked(each.Name)) continue;
        if (!Shell::IsToolbarVisible(each.Name)) {
            hidden.push_back(found->second);
            continue;
        }
        bars.push_back(found->second);
        widths.push_back(found->second->sizeHint().width());
    }
    const std::vector<bool> begins = Shell::BeginRows(widths, width());
    std::vector<std::pair<QToolBar*, bool>> wanted;
    for (std::size_t i = 0; i < bars.size(); ++i) wanted.emplace_back(bars[i], begins[i] && i > 0);
    for (QToolBar* const bar : hidden) wanted.emplace_back(bar, false);
    if (wanted == arranged) return;
    for (const auto& [bar, begin] : wanted) {
        removeToolBarBreak(bar);
        removeToolBar(bar);
    }
    for (const auto& [bar, begin] : wanted) {
        if (begin) addToolBarBreak();
        addToolBar(bar);
        bar->setVisible(std::ranges::find(bars, bar) != bars.end());
    }
    arranged = std::move(wanted);
}

void frmMain::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    if (event->oldSize().width() != event->size().width()) ArrangeToolbars();
}

/// A docked toolbar that stands elsewhere after a drag was moved by a person. For one that was torn off the others
/// close ranks.
void frmMain::WatchToolbar(QToolBar& bar, const QEvent& event) {
    if (event.type() == QEvent::MouseButtonPress) {
        pressedAt = bar.geometry();
    } else if (event.type() == QEvent::MouseButtonRelease) {
        // The toolbar lands in its own handler of the release.
        QTimer::singleShot(0, &bar, [this, &bar] {
            if (bar.isFloating()) return ArrangeToolbars();
            if (bar.geometry() == pressedAt) return;
            Shell::Program.ToolbarsMoved = true;
            arranged.clear();
        });
    }
}

/// What was torn off before the window came lies behind it.
void frmMain::RaiseToolbars() {
    for (const auto& [name, bar] : toolbars) {
        if (!bar->isFloating() || bar->isHidden()) continue;
        bar->hide();
        bar->show();
    }
}

}  // namespace Quillon::Forms
