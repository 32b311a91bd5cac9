#include "shell/BarModels.h"

#include "core/mod_Common.h"
#include "drawing/mod_PageLayout.h"
#include "editing/mod_BarsAndTracks.h"
#include "editing/mod_Cursor.h"

namespace Quillon::Shell {

using Core::Open;

namespace {

int BarCount() { return Open.TabFile.BarInfos.Count(); }

/// Takes a document in which bars came or went, with the cursor on a bar counted from 0. What was selected are other
/// bars now.
void Take(Core::TabFile file, int bar) {
    Open.TabFile = std::move(file);
    Open.CurBar = Core::ToInt16(bar);
    Open.CurStrum = 0;
    Open.FileChanged = true;
    Drawing::Page.LayoutDirty = 1;
    Editing::ClearSelection();
    Editing::ClampCursor();
}

}  // namespace

Editing::BarRange BarsInMind() { return Editing::SelectedBars().value_or(Editing::BarRange{Open.CurBar, Open.CurBar}); }

void InsertBarModel::Load() {
    Count = 1;
    BeforeBar = Core::ToInt16(BarsInMind().From + 1);
}

std::string_view InsertBarModel::Validate() const {
    if (Count < 1 || Count > MostBars) return "str_BarCountOutOfRange";
    if (BeforeBar < 1 || BeforeBar > BarCount() + 1) return "str_BarMissing";
    return "";
}

void InsertBarModel::Apply() const {
    Core::TabFile file = Open.TabFile;  // so that a document too long stays as it was
    Editing::InsertBars(file, BeforeBar - 1, Count);
    Take(std::move(file), BeforeBar - 1);
}

void RemoveBarModel::Load() {
    const Editing::BarRange bars = BarsInMind();
    FromBar = Core::ToInt16(bars.From + 1);
    ToBar = Core::ToInt16(bars.To + 1);
}

std::string_view RemoveBarModel::Validate() const {
    if (FromBar < 1 || ToBar < 1 || FromBar > BarCount() || ToBar > BarCount()) return "str_BarMissing";
    return FromBar > ToBar ? "str_BarOrder" : "";
}

void RemoveBarModel::Apply() const {
    Core::TabFile file = Open.TabFile;
    for (int bar = ToBar; bar >= FromBar; --bar) Editing::RemoveBar(file, bar - 1);
    Take(std::move(file), FromBar - 1);
}

}  // namespace Quillon::Shell
