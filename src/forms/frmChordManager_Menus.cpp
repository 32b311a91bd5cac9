// The menus and buttons of the chord manager.
#include <QActionGroup>
#include <QHBoxLayout>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>

#include "core/mod_Settings.h"
#include "forms/SvgIcon.h"
#include "forms/Text.h"
#include "forms/frmChordManager.h"
#include "forms/picChordView.h"
#include "shell/mod_Shell.h"
#include "shell/mod_Sound.h"
#include "tools/ChordBatch.h"
#include "tools/ChordEditor.h"
#include "tools/ChordSheet.h"

namespace Quillon::Forms {

using Tools::ChordManager;
using Kind = Library::ChordFilter::Kind;

namespace {

template <Kind By>
bool Searches() {
    return ChordManager.Filter.By == By;
}

bool HasCurrent() { return !Tools::CurrentChord().empty(); }
bool CanPlay() { return HasCurrent() && !Shell::Sound.Playing; }

}  // namespace

QAction* frmChordManager::AddEntry(QMenu& menu, const char* name, const char* text, void (*act)(), const char* icon,
                                   bool (*enabled)(), bool (*checked)()) {
    QAction* const action = menu.addAction(QString());
    action->setObjectName(name);
    if (*icon != 0) action->setIcon(SvgIcon(icon));
    action->setCheckable(checked != nullptr);
    connect(action, &QAction::triggered, this, [this, act] {
        Shell::Guarded(act);
        ShowEntries();
    });
    entries.push_back({action, text, enabled, checked});
    return action;
}

void frmChordManager::BuildMenus() {
    lblMenu = new QMenu(this);
    lblMenu->setObjectName("lblMenu");
    // What a key of the boxes does too; the keys are theirs.
    const auto withKey = [](QAction* action, const QKeySequence& key) {
        action->setShortcut(key);
        action->setShortcutContext(Qt::WidgetShortcut);
        action->setShortcutVisibleInContextMenu(true);
    };
    withKey(AddEntry(*lblMenu, "mnuAddAsNotes", "str_AddAsNotes", Tools::AddChordAsNotes, "chord-notes",
                     Tools::CanAddChord),
            Qt::CTRL | Qt::Key_Return);
    withKey(AddEntry(*lblMenu, "mnuAddAsDiagram", "str_AddAsDiagram", Tools::AddChordAsDiagram, "chord-diagram",
                     Tools::CanAddChord),
            Qt::CTRL | Qt::SHIFT | Qt::Key_Return);
    withKey(AddEntry(*lblMenu, "mnuPlayChord", "str_PlayChord", Tools::PlayCurrentChord, "play", CanPlay),
            Qt::Key_Return);

    lblMenu->addSeparator();
    withKey(AddEntry(*lblMenu, "mnuEditChord", "str_ChordEdit", Tools::mnuEditChord_Click, "chord", HasCurrent),
            Qt::Key_F2);
    AddEntry(*lblMenu, "mnuPrintChords", "str_ChordPrint", Tools::PrintChord, "print", HasCurrent);
    withKey(AddEntry(*lblMenu, "mnuDeleteChords", "str_ChordDeleteChosen", Tools::DeleteChosenChords, "", HasCurrent),
            Qt::Key_Delete);

    mnuChords = new QMenu(this);
    mnuChords->setObjectName("mnuChords");
    connect(mnuChords, &QMenu::aboutToShow, this, &frmChordManager::ShowEntries);
    AddEntry(*mnuChords, "mnuAddChord", "str_ChordAddNew", Tools::mnuAddNewChord_Click, "chord-new");
    mnuChords->addAction(findChild<QAction*>("mnuEditChord"));
    AddEntry(*mnuChords, "mnuBatch", "str_ChordBatch", Tools::mnuBatchOperations_Click, "", HasCurrent);
    mnuChords->addAction(findChild<QAction*>("mnuPrintChords"));
    AddEntry(*mnuChords, "mnuResetChords", "str_ChordRestore", Tools::mnuResetChords_Click);
    mnuChords->addSeparator();
    mnuSearch = mnuChords->addMenu(QString());
    AddEntry(*mnuSearch, "mnuSearchName", "str_SearchName", Tools::mnuSearchName_Click, "", nullptr,
             Searches<Kind::Name>);
    AddEntry(*mnuSearch, "mnuSearchTab", "str_SearchTab", Tools::mnuSearchTab_Click, "", nullptr, Searches<Kind::Tab>);
    AddEntry(*mnuSearch, "mnuSearchStrings", "str_SearchStrings", Tools::mnuSearchStrings_Click, "", nullptr,
             Searches<Kind::Strings>);
    AddEntry(*mnuSearch, "mnuSearchChordsInCurrentFile", "str_SearchTrack", Tools::mnuSearchChordsInCurrentFile_Click,
             "", nullptr, Searches<Kind::InTrack>);
    mnuSearch->addSeparator();
    AddEntry(*mnuSearch, "mnuSearchClear", "str_SearchClear", Tools::mnuSearchClear_Click, "",
             [] { return ChordManager.Filter.By != Kind::All; });

    mnuDisplay = mnuChords->addMenu(QString());
    displays = new QActionGroup(this);
    for (int mode = 0; mode < Library::DisplayModes; ++mode) {
        QAction* const action = mnuDisplay->addAction(QString());
        action->setObjectName(QString("mnuDisplay%1").arg(mode));
        action->setCheckable(true);
        displays->addAction(action);
        connect(action, &QAction::triggered, this, [mode] { Tools::mnuDisplay_Click(mode); });
    }
    AddEntry(*mnuChords, "mnuViewLefty", "str_ChordLefty", Tools::mnuViewLefty_Click, "", nullptr,
             [] { return ChordManager.Lefthanded; });
    AddEntry(*mnuChords, "mnuWindowsColors", "str_ChordWindowsColors", Tools::mnuWindowsColors_Click, "", nullptr,
             [] { return ChordManager.WindowsColors; });
    mnuChords->addSeparator();
    AddEntry(*mnuChords, "mnuPlayOnLoad", "str_ChordPlayOnLoad", Tools::mnuPlayOnLoad_Click, "", nullptr,
             [] { return Core::Settings.PlayChordsOnLoad; });
    AddEntry(*mnuChords, "mnuReverb", "str_ChordReverbOn", Tools::mnuReverb_Click, "", nullptr,
             [] { return Core::Settings.ChordReverb; });
    AddEntry(*mnuChords, "mnuHideAfterAdding", "str_ChordHideAfter", Tools::mnuHideAfterAdding_Click, "", nullptr,
             [] { return Core::Settings.HideChordManager; });
    mnuChords->addSeparator();
    AddDockEntries(*mnuChords);
}

QHBoxLayout* frmChordManager::BuildButtons() {
    auto* const row = new QHBoxLayout;
    row->setSpacing(1);
    const auto add = [this, row](QAction* action) {
        auto* const button = new QToolButton(this);
        button->setDefaultAction(action);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::TabFocus);
        button->setIconSize({20, 20});
        row->addWidget(button);
        return button;
    };
    for (const char* const name : {"mnuPlayChord", "mnuAddAsNotes", "mnuAddAsDiagram", "mnuAddChord"}) {
        add(findChild<QAction*>(name));
    }
    add(findChild<QAction*>("mnuViewLefty"));
    row->addStretch();
    cmdMenu = new QPushButton(this);
    cmdMenu->setObjectName("cmdMenu");
    cmdMenu->setFlat(true);
    cmdMenu->setAutoDefault(false);
    cmdMenu->setMenu(mnuChords);
    row->addWidget(cmdMenu);
    return row;
}

void frmChordManager::ShowEntries() {
    for (const Entry& entry : entries) {
        if (entry.Enabled) entry.Action->setEnabled(entry.Enabled());
        if (entry.Checked) entry.Action->setChecked(entry.Checked());
    }
    displays->actions().at(ChordManager.DisplayMode)->setChecked(true);
    if (shownHand == ChordManager.Lefthanded) return;
    shownHand = ChordManager.Lefthanded;
    findChild<QAction*>("mnuViewLefty")->setIcon(SvgIcon(ChordManager.Lefthanded ? "lhand" : "rhand"));
}

}  // namespace Quillon::Forms
