#include "shell/GoCommands.h"

#include <algorithm>
#include <optional>
#include <tuple>

#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "core/mod_MusicFile.h"
#include "core/mod_TabFileManipulation.h"
#include "editing/mod_Cursor.h"
#include "editing/mod_NoteEntry.h"
#include "shell/EditCommands.h"
#include "shell/PercAssistant.h"
#include "shell/mod_Shell.h"

namespace Quillon::Shell {

using Core::Open;

GoState Go;

namespace {

int LastBar() { return Core::NumberOfBars(Open.CurTrack); }
int LastStrum(int bar) { return Core::NumberOfStrums(Open.CurTrack, bar); }

/// The point of the current track that lies next in a direction.
std::optional<GotoPoint> NextPoint(bool behind) {
    std::optional<GotoPoint> next;
    const std::pair<int, int> here(Open.CurBar, Open.CurStrum);
    for (const GotoPoint& point : GotoPoints()) {
        if (point.Track != Open.CurTrack) continue;
        const std::pair there(point.Bar, point.Strum);
        if (behind && there > here) return point;
        if (!behind && there < here) next = point;
    }
    return next;
}

void GoToPoint(const std::optional<GotoPoint>& point) {
    Program.View->ShowStatus(point ? "" : Core::LanguageText("str_GoNoFurtherPoint"));
    if (point) GoTo(point->Track, point->Bar, point->Strum);
}

void Key(int code) {
    Editing::picDocument_KeyDown(code, 0);
    Program.View->UpdateCommands();
    Program.View->DrawDocument();
}

}  // namespace

std::vector<GotoPoint> GotoPoints() {
    std::vector<GotoPoint> points;
    for (int t = 0; t < Open.TabFile.Tracks.Count(); ++t) {
        const Core::Track& track = Open.TabFile.Tracks[t];
        for (int b = 0; b < track.Bars.Count(); ++b) {
            const auto& strums = track.Bars[b].Strums();
            for (int s = 0; s < strums.Count(); ++s) {
                if (!strums[s].GotoText.empty()) points.push_back({t, b, s, strums[s].GotoText});
            }
        }
    }
    std::ranges::stable_sort(points, {}, &GotoPoint::Bar);
    return points;
}

void UpdateGotoPoints() {
    Go.Points = GotoPoints();
    Program.View->FillGotoPoints();
}

std::string GotoCaption(const GotoPoint& point) {
    const std::string bar = std::to_string(point.Bar + 1);
    if (point.Track == Open.CurTrack) return Core::LanguageText("str_GotoCaption", {point.Name, bar});
    return Core::LanguageText("str_GotoCaptionOther", {point.Name, bar, Open.TabFile.Tracks[point.Track].Name});
}

void mnuGoGotoPoint_Click(int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= Go.Points.size()) return;
    const GotoPoint& point = Go.Points[static_cast<std::size_t>(index)];
    GoTo(point.Track, point.Bar, point.Strum);
}

void GoTo(int track, int bar, int strum) {
    if (track != Open.CurTrack) ShowTrack(track);
    const auto within = [](int index, int last) { return Core::ToInt16(std::clamp(index, 0, std::max(0, last))); };
    Open.CurBar = within(bar, LastBar());
    Open.CurStrum = within(strum, LastStrum(Open.CurBar));
    Editing::ClampCursor();
    RefreshPercAssistant();
    Program.View->UpdateCommands();
    Program.View->DrawDocument();
    // Who asks to go somewhere wants to see it, also when the view doesn't follow the cursor by itself.
    Program.View->ScrollToBar(Open.CurBar);
}

void GotoModel::Load() { Name = Core::ReadStrum(Open.CurTrack, Open.CurBar, Open.CurStrum).GotoText; }

std::string_view GotoModel::Validate() const {
    if (Name == Core::ReadStrum(Open.CurTrack, Open.CurBar, Open.CurStrum).GotoText) return "";
    Core::TabFile file;
    file.Tracks[0].Bars.Edit(0).EditStrums()[0].GotoText = Name;
    return Core::SaveLosses(file).empty() ? "" : "str_GotoNotStorable";
}

bool GotoModel::Apply() const {
    const std::string name(Core::TrimBlanks(Name));
    if (name == Core::ReadStrum(Open.CurTrack, Open.CurBar, Open.CurStrum).GotoText) return false;
    Core::EditStrum(Open.CurTrack, Open.CurBar, Open.CurStrum).GotoText = name;
    MarkEdited();
    return true;
}

void GotoBarModel::Load() {
    Bar = Core::ToInt16(Open.CurBar + 1);
    LastBar = Core::ToInt16(Shell::LastBar() + 1);
}

std::string_view GotoBarModel::Validate() const { return Bar < 1 || Bar > LastBar ? "str_NoSuchBar" : ""; }

void GotoBarModel::Apply() const { GoTo(Open.CurTrack, Bar - 1, 0); }

// Going somewhere changes nothing: no password is asked.
void mnuGoGotoBar_Click() {
    GotoBarModel model;
    model.Load();
    if (Program.Dialogs->Edit(model)) model.Apply();
}

void mnuGoFirstBar_Click() { GoTo(Open.CurTrack, 0, 0); }
void mnuGoLastBar_Click() { GoTo(Open.CurTrack, LastBar(), LastStrum(LastBar())); }
void mnuGoPreviousBar_Click() { GoTo(Open.CurTrack, Open.CurStrum > 0 ? Open.CurBar : Open.CurBar - 1, 0); }
void mnuGoNextBar_Click() { GoTo(Open.CurTrack, Open.CurBar + 1, 0); }
void mnuGoBeginning_Click() { GoTo(Open.CurTrack, Open.CurBar, 0); }
void mnuGoEnd_Click() { GoTo(Open.CurTrack, Open.CurBar, LastStrum(Open.CurBar)); }
void mnuGoPreviousBeat_Click() { Key(Editing::KeyLeft); }
void mnuGoNextBeat_Click() { Key(Editing::KeyRight); }

void mnuGoSetPoint_Click() {
    ByDialog<GotoModel>();
    UpdateGotoPoints();
}

void mnuGoPreviousPoint_Click() { GoToPoint(NextPoint(false)); }
void mnuGoNextPoint_Click() { GoToPoint(NextPoint(true)); }

}  // namespace Quillon::Shell
