// The menus and buttons of the chord manager.
#include <QAction>
#include <QHBoxLayout>
#include <QMenu>

#include "core/mod_Settings.h"
#include "forms/ToolEntries.h"
#include "forms/frmChordManager.h"
#include "library/ChordBoxes.h"
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

void frmChordManager::BuildMenus() {
    lblMenu = new QMenu(this);
    lblMenu->setObjectName("lblMenu");
    entries->Add(*lblMenu, "mnuAddAsNotes", "str_AddAsNotes", Tools::AddChordAsNotes,
                 {.Icon = "chord-notes", .Enabled = Tools::CanAddChord, .Key = Qt::CTRL | Qt::Key_Return});
    entries->Add(
        *lblMenu, "mnuAddAsDiagram", "str_AddAsDiagram", Tools::AddChordAsDiagram,
        {.Icon = "chord-diagram", .Enabled = Tools::CanAddChord, .Key = Qt::CTRL | Qt::SHIFT | Qt::Key_Return});
    entries->Add(*lblMenu, "mnuPlayChord", "str_PlayChord", Tools::PlayCurrentChord,
                 {.Icon = "play", .Enabled = CanPlay, .Key = Qt::Key_Return});
    lblMenu->addSeparator();
    entries->Add(*lblMenu, "mnuEditChord", "str_ChordEdit", Tools::mnuEditChord_Click,
                 {.Icon = "chord", .Enabled = HasCurrent, .Key = Qt::Key_F2});
    entries->Add(*lblMenu, "mnuPrintChords", "str_ChordPrint", Tools::PrintChord,
                 {.Icon = "print", .Enabled = HasCurrent});
    entries->Add(*lblMenu, "mnuDeleteChords", "str_ChordDeleteChosen", Tools::DeleteChosenChords,
                 {.Enabled = HasCurrent, .Key = Qt::Key_Delete});

    mnuChords = new QMenu(this);
    mnuChords->setObjectName("mnuChords");
    entries->Add(*mnuChords, "mnuAddChord", "str_ChordAddNew", Tools::mnuAddNewChord_Click, {.Icon = "chord-new"});
    mnuChords->addAction(entries->Find("mnuEditChord"));
    entries->Add(*mnuChords, "mnuBatch", "str_ChordBatch", Tools::mnuBatchOperations_Click, {.Enabled = HasCurrent});
    mnuChords->addAction(entries->Find("mnuPrintChords"));
    entries->Add(*mnuChords, "mnuResetChords", "str_ChordRestore", Tools::mnuResetChords_Click);
    mnuChords->addSeparator();
    BuildSearchMenu();
    BuildDisplayMenu();
    mnuChords->addSeparator();
    entries->Add(*mnuChords, "mnuPlayOnLoad", "str_ChordPlayOnLoad", Tools::mnuPlayOnLoad_Click,
                 {.Checked = [] { return Core::Settings.PlayChordsOnLoad; }});
    entries->Add(*mnuChords, "mnuReverb", "str_ChordReverbOn", Tools::mnuReverb_Click,
                 {.Checked = [] { return Core::Settings.ChordReverb; }});
    entries->Add(*mnuChords, "mnuHideAfterAdding", "str_ChordHideAfter", Tools::mnuHideAfterAdding_Click,
                 {.Checked = [] { return Core::Settings.HideChordManager; }});
    mnuChords->addSeparator();
    AddDockEntries(*mnuChords);
}

void frmChordManager::BuildSearchMenu() {
    QMenu& search = *entries->AddMenu(*mnuChords, "mnuSearch", "str_MenuSearch");
    const auto add = [&](const char* name, const char* text, void (*searchBy)(), bool (*checked)()) {
        const auto act = [this, searchBy] {
            searchBy();
            TakeFocus();
        };
        entries->Add(search, name, text, act, {.Checked = checked});
    };
    add("mnuSearchName", "str_SearchName", Tools::mnuSearchName_Click, Searches<Kind::Name>);
    add("mnuSearchTab", "str_SearchTab", Tools::mnuSearchTab_Click, Searches<Kind::Tab>);
    add("mnuSearchStrings", "str_SearchStrings", Tools::mnuSearchStrings_Click, Searches<Kind::Strings>);
    add("mnuSearchChordsInCurrentFile", "str_SearchTrack", Tools::mnuSearchChordsInCurrentFile_Click,
        Searches<Kind::InTrack>);
    search.addSeparator();
    entries->Add(search, "mnuSearchClear", "str_SearchClear", Tools::mnuSearchClear_Click,
                 {.Enabled = [] { return ChordManager.Filter.By != Kind::All; }});
}

void frmChordManager::BuildDisplayMenu() {
    QMenu& display = *entries->AddMenu(*mnuChords, "mnuDisplay", "str_ChordDisplay");
    for (int mode = 0; mode < Library::DisplayModes; ++mode) {
        entries->Add(display, "mnuDisplay" + std::to_string(mode), Tools::DisplayModeKey(mode),
                     [mode] { Tools::mnuDisplay_Click(mode); },
                     {.Checked = [mode] { return ChordManager.DisplayMode == mode; }, .Radio = true});
    }
    entries->Add(*mnuChords, "mnuViewLefty", "str_ChordLefty", Tools::mnuViewLefty_Click,
                 {.Checked = [] { return ChordManager.Lefthanded; }});
    entries->Add(*mnuChords, "mnuWindowsColors", "str_ChordWindowsColors", Tools::mnuWindowsColors_Click,
                 {.Checked = [] { return ChordManager.WindowsColors; }});
}

QHBoxLayout* frmChordManager::BuildButtons() {
    auto* const row = new QHBoxLayout;
    row->setSpacing(1);
    entries->AddButtons(*row, {"mnuPlayChord", "mnuAddAsNotes", "mnuAddAsDiagram", "mnuAddChord", "mnuViewLefty"});
    row->addStretch();
    entries->AddMenuButton(*row, *mnuChords, "str_ChordMenu");
    return row;
}

void frmChordManager::CommandsChanged() {
    entries->ShowStates();
    entries->ShowIcon("mnuViewLefty", ChordManager.Lefthanded ? "lhand" : "rhand");
}

}  // namespace Quillon::Forms
