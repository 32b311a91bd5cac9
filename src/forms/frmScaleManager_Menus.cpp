// The menus of the scale manager.
#include <QAction>
#include <QCheckBox>
#include <QMenu>
#include <QSignalBlocker>

#include "core/mod_Settings.h"
#include "forms/ToolEntries.h"
#include "forms/frmScaleManager.h"
#include "shell/mod_Sound.h"
#include "tools/ScaleManager.h"
#include "tools/ScaleSheet.h"

namespace Quillon::Forms {

using Library::ScaleOctave;
using Tools::ScaleManager;
using Kind = Library::ScaleFilter::Kind;

namespace {

bool HasScale() { return Tools::ChosenScale() != nullptr; }
bool CanPlay() { return HasScale() && !Shell::Sound.Playing; }

template <Kind Panel>
bool Searches() {
    return ScaleManager.Panel == Panel;
}

template <ScaleOctave Octave>
bool PlaysOctave() {
    return ScaleManager.Octave == Octave;
}

}  // namespace

void frmScaleManager::BuildMenus() {
    mnuScales = new QMenu(this);
    mnuScales->setObjectName("mnuScales");
    QMenu& search = *entries->AddMenu(*mnuScales, "mnuSearch", "str_ScaleSearchMenu");
    entries->Add(search, "mnuSearchName", "str_ScaleSearchName", Tools::ScaleSearch::mnuSearchName_Click,
                 {.Checked = Searches<Kind::Name>});
    entries->Add(search, "mnuSearchKeywords", "str_ScaleSearchKeywords", Tools::ScaleSearch::mnuSearchKeywords_Click,
                 {.Checked = Searches<Kind::Keywords>});
    entries->Add(search, "mnuSearchStrings", "str_ScaleSearchStrings", Tools::ScaleSearch::mnuSearchStrings_Click,
                 {.Checked = Searches<Kind::Strings>});
    search.addSeparator();
    entries->Add(search, "mnuSearchClear", "str_ScaleSearchClear", Tools::ScaleSearch::mnuSearchClear_Click,
                 {.Enabled = [] { return ScaleManager.Panel != Kind::All; }});
    entries->Add(*mnuScales, "mnuFindScale", "str_FindScale", Tools::mnuFindScale_Click, {.Icon = "scale-finder"});
    mnuScales->addSeparator();
    BuildPlayMenu();
    mnuScales->addSeparator();
    entries->Add(*mnuScales, "mnuLefty", "str_LeftHanded", Tools::mnuLefty_Click,
                 {.Checked = [] { return ScaleManager.View.LeftHanded; }});
    entries->Add(*mnuScales, "mnuDegrees", "str_ScaleDegrees", Tools::mnuDegrees_Click,
                 {.Checked = [] { return ScaleManager.View.Degrees; }});
    entries->Add(*mnuScales, "mnuWholeNeck", "str_ScaleWholeNeck", Tools::mnuWholeNeck_Click,
                 {.Checked = [] { return ScaleManager.View.WholeNeck; }});
    mnuScales->addSeparator();
    entries->Add(*mnuScales, "mnuNewScale", "str_NewScale", Tools::mnuNewScale_Click, {.Icon = "new"});
    entries->Add(*mnuScales, "mnuEditScale", "str_EditScale", Tools::mnuEditScale_Click,
                 {.Icon = "properties", .Enabled = HasScale});
    entries->Add(*mnuScales, "mnuDeleteScale", "str_DeleteScale", Tools::mnuDeleteScale_Click, {.Enabled = HasScale});
    entries->Add(*mnuScales, "mnuRestoreScales", "str_RestoreScales", Tools::mnuRestoreScales_Click);
    mnuScales->addSeparator();
    entries->Add(*mnuScales, "mnuPrintScale", "str_PrintScale", Tools::PrintScale,
                 {.Icon = "print", .Enabled = HasScale});
    mnuScales->addSeparator();
    AddDockEntries(*mnuScales);
}

void frmScaleManager::BuildPlayMenu() {
    entries->Add(*mnuScales, "mnuPlay", "str_ScalePlay", Tools::PlayScale, {.Icon = "play", .Enabled = CanPlay});
    QMenu& octave = *entries->AddMenu(*mnuScales, "mnuOctave", "str_Octave");
    entries->Add(octave, "mnuLow", "str_Low", Tools::mnuLow_Click,
                 {.Icon = "octave-low", .Checked = PlaysOctave<ScaleOctave::Low>, .Radio = true});
    entries->Add(octave, "mnuHigh", "str_High", Tools::mnuHigh_Click,
                 {.Icon = "octave-high", .Checked = PlaysOctave<ScaleOctave::High>, .Radio = true});
    entries->Add(octave, "mnuBothOctaves", "str_BothOctaves", Tools::mnuBothOctaves_Click,
                 {.Checked = PlaysOctave<ScaleOctave::Both>, .Radio = true});
    QMenu& progression = *entries->AddMenu(*mnuScales, "mnuProgression", "str_Progression");
    entries->Add(progression, "mnuAscend", "str_Ascending", Tools::mnuAscend_Click,
                 {.Icon = "scale-up", .Checked = [] { return !ScaleManager.Descending; }, .Radio = true});
    entries->Add(progression, "mnuDescending", "str_Descending", Tools::mnuDescending_Click,
                 {.Icon = "scale-down", .Checked = [] { return ScaleManager.Descending; }, .Radio = true});
}

void frmScaleManager::CommandsChanged() {
    entries->ShowStates();
    entries->ShowIcon("mnuLefty", ScaleManager.View.LeftHanded ? "lhand" : "rhand");
    entries->ShowIcon("mnuPlay", ScaleManager.View.Sounding >= 0 ? "stop" : "play");
    const QSignalBlocker quiet(chkReverb);
    chkReverb->setChecked(Core::Settings.ScaleReverb);  // the options have it too
}

}  // namespace Quillon::Forms
