// Menus, toolbars and shortcuts against the table of commands.
#include "shell/Commands.h"

#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>
#include <algorithm>
#include <set>

#include "shell/CommandPalette.h"
#include "tests/windows/WindowFixture.h"

namespace Quillon::Forms {
namespace {

void Collect(const QList<QAction*>& actions, QStringList& names) {
    for (const QAction* action : actions) {
        if (action->isSeparator()) continue;
        if (!action->objectName().isEmpty()) names << action->objectName();
        if (action->menu()) Collect(action->menu()->actions(), names);
    }
}

QString Text(std::string_view text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }

class CommandWindowTest : public WindowTest {};

TEST_F(CommandWindowTest, EveryCommandStandsInTheMenusOnceAndCanBeReadAndHeard) {
    Start();
    QStringList names;
    Collect(window->menuBar()->actions(), names);
    for (const Shell::Command& command : Shell::Commands()) {
        SCOPED_TRACE(std::string(command.Name));
        EXPECT_EQ(names.count(Text(command.Name)), 1);
        const QAction* const action = window->ActionOf(std::string(command.Name));
        ASSERT_NE(action, nullptr);
        EXPECT_FALSE(action->text().isEmpty());
        EXPECT_FALSE(action->text().startsWith("str_"));
        EXPECT_EQ(action->icon().isNull(), command.Icon.empty()) << "an icon that was not drawn";
        if (command.Shortcut.empty()) continue;
        const QString keys = Text(command.Shortcut).section(' ', 0, 0);
        EXPECT_EQ(action->shortcut(), QKeySequence(keys));
        EXPECT_TRUE(action->toolTip().endsWith("(" + keys + ")")) << action->toolTip().toStdString();
        for (const QKeySequence& each : action->shortcuts()) EXPECT_NE(each[0].key(), Qt::Key_unknown);
    }
}

TEST_F(CommandWindowTest, NoTwoCommandsShareAShortcut) {
    Start();
    std::set<QString> taken;
    for (const Shell::Command& command : Shell::Commands()) {
        for (const QKeySequence& keys : window->ActionOf(std::string(command.Name))->shortcuts()) {
            EXPECT_TRUE(taken.insert(keys.toString()).second) << keys.toString().toStdString();
        }
    }
}

TEST_F(CommandWindowTest, MenuLettersDifferWithinEachMenuInEveryLanguage) {
    Start();
    for (const char* language : {"English", "German"}) {
        Core::LoadLanguage(files, Services.BaseFolder, language);
        window->LanguageChanged();
        for (const QMenu* menu : window->menuBar()->findChildren<QMenu*>()) {
            std::set<QChar> letters;
            for (const QAction* action : menu->actions()) {
                const auto at = action->text().indexOf('&');
                if (at < 0) continue;
                EXPECT_TRUE(letters.insert(action->text()[at + 1].toLower()).second)
                    << language << ": " << menu->title().toStdString() << " " << action->text().toStdString();
            }
        }
    }
}

TEST_F(CommandWindowTest, ToolbarsHideFloatAndReturnAndTheirButtonsHaveNames) {
    Start();
    const auto bars = [&] { return window->findChildren<QToolBar*>(); };
    for (const QToolBar* bar : bars()) {
        EXPECT_FALSE(bar->windowTitle().isEmpty()) << bar->objectName().toStdString();
        for (QAction* action : bar->actions()) {
            const auto* const button = qobject_cast<QToolButton*>(bar->widgetForAction(action));
            if (!button || action->objectName().isEmpty()) continue;
            EXPECT_FALSE(button->accessibleName().isEmpty()) << action->objectName().toStdString();
            EXPECT_FALSE(button->accessibleName().contains('&'));
            EXPECT_FALSE(action->icon().isNull()) << action->objectName().toStdString();
        }
    }
    for (const Shell::Command& command : Shell::Commands()) {
        if (command.Toolbar.empty()) continue;
        EXPECT_NO_THROW(In<QToolBar>(*window, ("toolbar" + std::string(command.Toolbar)).c_str()));
    }
    for (const int width : {1000, 1366, 1920}) {
        window->resize(width, 800);
        Settle();
        int lowest = 0;
        for (const QToolBar* bar : bars()) {
            EXPECT_TRUE(bar->isVisible());
            EXPECT_GE(bar->width(), bar->sizeHint().width()) << width << " " << bar->objectName().toStdString();
            lowest = std::max(lowest, bar->geometry().bottom());
        }
        EXPECT_LT(lowest, window->height() / 4) << width;
    }
    Run("mnuViewToolbarFile");
    EXPECT_FALSE(In<QToolBar>(*window, "toolbarFile").isVisible());
    EXPECT_FALSE(window->ActionOf("mnuViewToolbarFile")->isChecked());
    Shell::SetToolbarDocked("Sound", false);
    window->KeepPlaces();
    Core::SaveINISettings();
    Start();
    EXPECT_FALSE(In<QToolBar>(*window, "toolbarFile").isVisible());
    EXPECT_TRUE(In<QToolBar>(*window, "toolbarSound").isFloating());
    Run("mnuViewToolbarsDefault");
    EXPECT_TRUE(In<QToolBar>(*window, "toolbarFile").isVisible());
    EXPECT_FALSE(In<QToolBar>(*window, "toolbarSound").isFloating());
}

TEST_F(CommandWindowTest, EntriesFollowTheNoteUnderTheCursor) {
    Start();
    const auto checked = [&](const char* name) { return window->ActionOf(name)->isChecked(); };
    const auto key = [&](Qt::Key pressed) {
        QTest::keyClick(&window->Document(), pressed);
        Settle();
    };
    QMenu* dynamics = nullptr;
    for (QMenu* menu : window->menuBar()->findChildren<QMenu*>()) {
        if (menu->actions().contains(window->ActionOf("mnuNoteDynamicsFF"))) dynamics = menu;
    }
    ASSERT_NE(dynamics, nullptr);
    EXPECT_FALSE(dynamics->menuAction()->isEnabled()) << "there is no note";
    key(Qt::Key_5);
    key(Qt::Key_G);
    EXPECT_TRUE(checked("mnuNoteEffectsGhostNote"));
    EXPECT_TRUE(checked("mnuChordLengthQuarter"));
    qobject_cast<QMenu*>(dynamics->parent())->popup({0, 0});
    EXPECT_TRUE(dynamics->menuAction()->isEnabled());
    QApplication::activePopupWidget()->close();
    for (int twice = 0; twice < 2; ++twice) {
        Run("mnuNoteDynamicsFF");
        EXPECT_TRUE(checked("mnuNoteDynamicsFF") && !checked("mnuNoteDynamicsMF"));
    }
    key(Qt::Key_Down);
    EXPECT_FALSE(checked("mnuNoteDynamicsFF") || checked("mnuNoteEffectsGhostNote"));
    EXPECT_FALSE(window->ActionOf("mnuNoteDynamicsFF")->isEnabled());
    EXPECT_TRUE(window->ActionOf("mnuNoteEffectsGhostNote")->text().contains("\tG"));
}

TEST_F(CommandWindowTest, TheListOfShortcutsIsFiltered) {
    Start();
    WithDialog("mnuHelpKeyboard", [](QDialog& shortcuts) {
        auto& list = In<QTreeWidget>(shortcuts, "lstKeys");
        QTest::keyClicks(&In<QLineEdit>(shortcuts, "txtFilter"), "hammer");
        ASSERT_EQ(list.topLevelItemCount(), 1);
        EXPECT_EQ(list.topLevelItem(0)->child(0)->text(1), "H *");
        QTest::keyClicks(&In<QLineEdit>(shortcuts, "txtFilter"), "xyz");
        EXPECT_TRUE(list.isHidden());
    });
}

TEST_F(CommandWindowTest, CommandsThatCanDoNothingAreGrey) {
    Start();
    EXPECT_FALSE(window->ActionOf("mnuTrackNext")->isEnabled()) << "one track alone";
    EXPECT_FALSE(window->ActionOf("mnuFileOpenRecent")->isEnabled());
    Run("mnuViewZoomIn");
    EXPECT_EQ(Shell::Program.ZoomPercent, 110);
    for (int i = 0; i < 20; ++i) Run("mnuViewZoomIn");
    EXPECT_EQ(Shell::Program.ZoomPercent, 400);
    EXPECT_FALSE(window->ActionOf("mnuViewZoomIn")->isEnabled());
}

TEST_F(CommandWindowTest, RecentFilesAreListedAndOpen) {
    Start("greensleeves.qlm");
    Start("fiddle-set.qlm");
    const QList<QAction*> entries = window->ActionOf("mnuFileOpenRecent")->menu()->actions();
    ASSERT_EQ(entries.size(), 2);
    EXPECT_EQ(entries[1]->text(), "- greensleeves.qlm");
    entries[1]->trigger();
    Settle();
    EXPECT_EQ(Core::Open.TabFile.Title, "Greensleeves");
}

TEST_F(CommandWindowTest, ThePaletteRunsWhatIsChosen) {
    Start();
    const auto choose = [&](const char* typed, int downs) {
        WithDialog("mnuHelpPalette", [&](QDialog& palette) {
            auto& line = In<QLineEdit>(palette, "txtCommand");
            QTest::keyClicks(&line, typed);
            for (int i = 0; i < downs; ++i) QTest::keyClick(&line, Qt::Key_Down);
            QTest::keyClick(&line, Qt::Key_Return);
        });
    };
    choose("zoom in", 0);
    EXPECT_GT(Shell::Program.ZoomPercent, 100);
    choose("previous track", 0);  // the only one: disabled, so that nothing is chosen
    const int zoomed = Shell::Program.ZoomPercent;
    choose("no such command", 2);
    EXPECT_EQ(Shell::Program.ZoomPercent, zoomed);
    const auto zooms = Shell::FindCommands("zoom");
    ASSERT_EQ(zooms.at(1).Which->Name, "mnuViewZoomOut");
    choose("zoom", 1);
    EXPECT_LT(Shell::Program.ZoomPercent, zoomed);
}

}  // namespace
}  // namespace Quillon::Forms
