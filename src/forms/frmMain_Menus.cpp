// Menus, toolbars and the status bar, built from the one table of commands.
#include <QAction>
#include <QActionGroup>
#include <QComboBox>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLibraryInfo>
#include <QMenuBar>
#include <QSlider>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QTranslator>

#include "core/mod_TabFileStructure.h"
#include "forms/ElidedLabel.h"
#include "forms/LibraryWindow.h"
#include "forms/SvgIcon.h"
#include "forms/Text.h"
#include "forms/frmMain.h"
#include "forms/ntne_frmPercAssTAB.h"
#include "forms/picDocument.h"
#include "shell/Commands.h"
#include "shell/GoCommands.h"
#include "shell/Toolbars.h"
#include "shell/mod_Sound.h"

namespace Quillon::Forms {

namespace {

QList<QKeySequence> Shortcuts(std::string_view keys) {
    QList<QKeySequence> result;
    for (const QString& each : ToQString(keys).split(' ', Qt::SkipEmptyParts)) result << QKeySequence(each);
    return result;
}

/// A key of the score stands where shortcuts do.
QString MenuText(const Shell::Command& command) {
    const QString caption = Text(command.Text);
    if (command.ScoreKey.empty() || !command.Shortcut.empty()) return caption;
    return caption + '\t' + QKeySequence(ToQString(command.ScoreKey)).toString(QKeySequence::NativeText);
}

}  // namespace

QMenu* frmMain::MenuOf(std::string_view path) {
    if (const auto found = menus.find(path); found != menus.end()) return found->second;
    const auto slash = path.rfind('/');
    QMenu* menu = nullptr;
    if (slash == std::string_view::npos) {
        menu = menuBar()->addMenu(Text(path));
    } else {
        menu = MenuOf(path.substr(0, slash))->addMenu(Text(path.substr(slash + 1)));
    }
    menu->setToolTipsVisible(true);
    // What its submenus offer hangs on the note under the cursor.
    connect(menu, &QMenu::aboutToShow, this, &frmMain::ShowMenus);
    menus.emplace(path, menu);
    return menu;
}

QAction* frmMain::MakeAction(const Shell::Command& command) {
    auto* const action = new QAction(this);
    action->setObjectName(ToQString(command.Name));
    if (!command.Icon.empty()) action->setIcon(SvgIcon(command.Icon));
    action->setShortcuts(Shortcuts(command.Shortcut));
    // A key that is held starts a song once and must not stop it again.
    action->setAutoRepeat(!command.Name.starts_with("mnuSound"));
    action->setCheckable(command.Checked != nullptr);
    if (command.Radio) {
        QActionGroup*& group = radios[command.Menu];
        if (!group) {
            group = new QActionGroup(this);
            group->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
        }
        group->addAction(action);
    }
    connect(action, &QAction::triggered, this, [this, &command] {
        Shell::RunCommand(command);
        UpdateCommands();
    });
    return action;
}

void frmMain::BuildMenus() {
    for (const Shell::Command& command : Shell::Commands()) {
        QMenu* const menu = MenuOf(command.Menu);
        if (command.SeparatorBefore) menu->addSeparator();
        QAction* action = nullptr;
        if (command.Is == Shell::Command::Kind::RecentFiles) {
            recentMenu = menu->addMenu(SvgIcon(command.Icon), QString());
            action = recentMenu->menuAction();
            action->setObjectName(ToQString(command.Name));
        } else {
            action = MakeAction(command);
            menu->addAction(action);
        }
        if (command.Is == Shell::Command::Kind::GotoPoints) {
            goMenu = menu;
            // Keys in the score may have taken, moved or brought back points since.
            connect(menu, &QMenu::aboutToShow, this, [] { Shell::UpdateGotoPoints(); });
        }
        actions.emplace(command.Name, action);
        if (command.Toolbar.empty()) continue;
        QToolBar* const bar = ToolBarOf(command.Toolbar);
        if (command.SeparatorBefore && !bar->actions().isEmpty()) bar->addSeparator();
        bar->addAction(action);
        bar->widgetForAction(action)->installEventFilter(this);
        // The style's own size would need a row more where room is scarce.
        bar->widgetForAction(action)->setMaximumSize(bar->iconSize() + QSize(6, 6));
    }
    BuildTrackChoice();
}

void frmMain::BuildStatusBar() {
    const auto label = [](QLabel* made, const char* name) {
        made->setObjectName(name);
        made->setTextFormat(Qt::PlainText);
        made->setContentsMargins(8, 0, 8, 0);
        return made;
    };
    // A long message gives way to what stands at the right.
    lblStatus = label(new ElidedLabel(this), "lblStatus");
    lblStatus->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    statusBar()->addWidget(lblStatus, 1);
    lblNote = label(new QLabel(this), "lblNote");
    lblPlace = label(new QLabel(this), "lblPlace");
    lblPages = label(new QLabel(this), "lblPages");
    for (QLabel* each : {lblNote, lblPlace, lblPages}) statusBar()->addPermanentWidget(each);
    sldZoom = new QSlider(Qt::Horizontal, this);
    sldZoom->setObjectName("sldZoom");
    sldZoom->setRange(Shell::LeastZoom, Shell::MostZoom);
    sldZoom->setPageStep(25);
    sldZoom->setFixedWidth(110);
    sldZoom->setFocusPolicy(Qt::TabFocus);
    connect(sldZoom, &QSlider::valueChanged, this, [](int percent) { Shell::SetZoom(percent); });
    statusBar()->addPermanentWidget(sldZoom);
    cmdZoom = new QToolButton(this);
    cmdZoom->setObjectName("cmdZoom");
    cmdZoom->setAutoRaise(true);
    cmdZoom->setFocusPolicy(Qt::TabFocus);
    cmdZoom->setMinimumWidth(fontMetrics().horizontalAdvance("400 %") + 16);
    connect(cmdZoom, &QToolButton::clicked, this, [] { Shell::mnuViewZoom100_Click(); });
    cmdZoom->installEventFilter(this);
    statusBar()->addPermanentWidget(cmdZoom);
}

void frmMain::LoadLibraryTexts() {
    libraryTexts.reset();
    const QString locale = Text("str_LocaleName");
    if (locale == "en") return;
    libraryTexts = std::make_unique<QTranslator>();
    if (libraryTexts->load("qtbase_" + locale, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(libraryTexts.get());
    }
}

void frmMain::LanguageChanged() {
    LoadLibraryTexts();
    for (const auto& [path, menu] : menus) menu->setTitle(Text(path.substr(path.rfind('/') + 1)));
    for (const Shell::Toolbar& each : Shell::Toolbars()) {
        const auto found = toolbars.find(each.Name);
        if (found == toolbars.end()) continue;
        found->second->setWindowTitle(ToQString(Shell::WithoutMark(Core::LanguageText(each.Text))));
    }
    for (const Shell::Command& command : Shell::Commands()) {
        QAction* const action = ActionOf(std::string(command.Name));
        action->setText(MenuText(command));
        action->setToolTip(ToQString(Shell::Tooltip(command)));
        const QString spoken = ToQString(Shell::SpokenCaption(command));
        for (const auto& [name, bar] : toolbars) {
            if (QWidget* const button = bar->widgetForAction(action)) button->setAccessibleName(spoken);
        }
    }
    cmbTrack->setToolTip(Text("str_TrackChoice"));
    cmbTrack->setAccessibleName(Text("str_TrackChoice"));
    sldZoom->setToolTip(Text("str_Zoom"));
    sldZoom->setAccessibleName(Text("str_Zoom"));
    cmdZoom->setToolTip(Text("str_ZoomReset"));
    cmdZoom->setAccessibleName(Text("str_ZoomReset"));
    SetBoardTexts();
    TellTools([](LibraryWindow& tool) { tool.SetTexts(); });
    percAssistant->SetTexts();
    Shell::UpdateGotoPoints();
    FillStatus();
    document->Redraw(false);
}

void frmMain::FillGotoPoints() {
    if (!goMenu) return;
    for (QAction* action : gotoPoints) delete action;
    gotoPoints.clear();
    QAction* const none = ActionOf("mnuGoGotoPoint");
    for (const Shell::GotoPoint& point : Shell::Go.Points) {
        const int index = static_cast<int>(gotoPoints.size());
        // A digit is the letter of the first ones; a name may hold an "&", which is none.
        const QString letter = index < 9 ? QString("&%1  ").arg(index + 1) : QString();
        auto* const entry = new QAction(letter + ToQString(Shell::GotoCaption(point)).replace("&", "&&"), this);
        entry->setObjectName("mnuGoGotoPointItem");
        entry->setEnabled(!Shell::Sound.Playing);
        connect(entry, &QAction::triggered, this,
                [index] { Shell::Guarded([index] { Shell::mnuGoGotoPoint_Click(index); }); });
        goMenu->insertAction(none, entry);
        gotoPoints.push_back(entry);
    }
    none->setVisible(gotoPoints.empty());
}

void frmMain::FillRecentFiles() {
    if (!recentMenu) return;
    recentMenu->clear();
    int index = 0;
    for (const std::filesystem::path& path : Shell::RecentFiles()) {
        // The file's name may hold an "&", which is no keyboard letter.
        QAction* const entry = recentMenu->addAction(ToQString(Shell::RecentFileCaption(path)).replace("&", "&&"));
        entry->setObjectName("mnuFileOpenRecentItem");
        entry->setToolTip(PathText(path));
        connect(entry, &QAction::triggered, this,
                [index] { Shell::Guarded([index] { Shell::mnuFileOpenRecentItem_Click(index); }); });
        ++index;
    }
    recentMenu->setEnabled(index > 0);
    recentMenu->setToolTipsVisible(true);
}

}  // namespace Quillon::Forms
