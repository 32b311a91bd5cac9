// What changes the view and not the document: zoom, the current track, the toolbars, and what the store keeps of it.
#include <algorithm>
#include <array>
#include <charconv>

#include "core/mod_Language.h"
#include "core/mod_Settings.h"
#include "core/mod_TabFileStructure.h"
#include "drawing/mod_PageLayout.h"
#include "editing/mod_Cursor.h"
#include "platform/RunTimeError.h"
#include "platform/Services.h"
#include "platform/SettingsStore.h"
#include "shell/mod_Shell.h"
#include "shell/mod_Sound.h"

namespace Quillon::Shell {

using Core::Open;

namespace {

constexpr std::array<int, 14> Zooms = {50, 67, 75, 80, 90, 100, 110, 125, 150, 175, 200, 250, 300, 400};

constexpr int OverflowNumber = 6;

int StoredNumber(const char* section, const char* key, int otherwise, int least, int most) {
    const auto text = Services.Settings->Find(section, key);
    if (!text) return otherwise;
    int value = 0;
    const auto [stop, problem] = std::from_chars(text->data(), text->data() + text->size(), value);
    const bool whole = problem == std::errc{} && stop == text->data() + text->size();
    return whole && value >= least && value <= most ? value : otherwise;
}

}  // namespace

void SetZoom(int percent) {
    percent = std::clamp(percent, LeastZoom, MostZoom);
    if (percent == Program.ZoomPercent) return;
    Program.ZoomPercent = percent;
    Program.View->UpdateZoom();
    Program.View->UpdateCommands();
}

void ZoomBy(int steps) {
    int percent = Program.ZoomPercent;
    for (; steps > 0; --steps) {
        const auto next = std::ranges::upper_bound(Zooms, percent);
        if (next == Zooms.end()) break;
        percent = *next;
    }
    for (; steps < 0; ++steps) {
        const auto here = std::ranges::lower_bound(Zooms, percent);
        if (here == Zooms.begin()) break;
        percent = *(here - 1);
    }
    SetZoom(percent);
}

void mnuViewZoomIn_Click() { ZoomBy(1); }
void mnuViewZoomOut_Click() { ZoomBy(-1); }
void mnuViewZoom100_Click() { SetZoom(100); }
void mnuViewZoomWidth_Click() {
    constexpr int Ground = 40;  // document pixels at both sides together
    SetZoom(Drawing::View.ScaleWidth * Program.ZoomPercent / (Drawing::Page.PageWidth + Ground));
}

void ShowTrack(int track) {
    if (track < 0 || track > Open.TabFile.Tracks.UpperBound() || track == Open.CurTrack) return;
    Open.CurTrack = static_cast<std::int16_t>(track);
    Editing::ClampCursor();
    Drawing::Page.LayoutDirty = 1;
    Program.View->UpdateCommands();
    Program.View->DrawDocument();
}

void mnuTrackNext_Click() { ShowTrack(Open.CurTrack + 1); }
void mnuTrackPrevious_Click() { ShowTrack(Open.CurTrack - 1); }

void mnuViewMixTable_Click() {
    Program.MixTableVisible = !Program.MixTableVisible;
    Program.View->UpdateCommands();
}

void mnuViewDarkPaper_Click() {
    Program.DarkPaper = !Program.DarkPaper;
    Program.View->ThemeChanged();
    Program.View->UpdateCommands();
}

void mnuViewRowClefs_Click() {
    Drawing::Page.ClefOnEveryRow = !Drawing::Page.ClefOnEveryRow;
    Drawing::Page.LayoutDirty = 1;
    Program.View->UpdateCommands();
    Program.View->DrawDocument();
}

std::string LayoutFailureText(const RunTimeError& error) {
    return error.Number == OverflowNumber ? Core::LanguageText("str_LayoutOverflow") : error.Description();
}

void ApplySettings() {
    Drawing::Page.AutoPageStretch = Core::Settings.AutoPageStretch;
    Drawing::View.FollowCursor = Core::Settings.AutoScroll;
}

void LoadStoredState() {
    const auto number = [](const char* section, const char* key, std::int16_t otherwise, int least, int most) {
        return static_cast<std::int16_t>(StoredNumber(section, key, otherwise, least, most));
    };
    Drawing::PageSetup page;
    page.MinTabX = number("Options", "MinTabX", page.MinTabX, LeastTabX, MostTabX);
    page.MaxTabX = number("Options", "MaxTabX", page.MaxTabX, page.MinTabX, MostTabX);
    page.PaperSizeIndex = number("PageSetup", "PaperSize", page.PaperSizeIndex, 0, Drawing::PaperSizeCount - 1);
    page.PageScaleIndex = number("PageSetup", "Scale", page.PageScaleIndex, 0, 1);
    page.PageRulerStep = page.PageScaleIndex == 0 ? 7 : 5;
    page.IsLandscape = number("PageSetup", "Landscape", 0, 0, 1) == 1;
    page.PageLeftMargin = number("PageSetup", "LeftMargin", page.PageLeftMargin, 0, MostMargin);
    page.PageTopMargin = number("PageSetup", "TopMargin", page.PageTopMargin, 0, MostMargin);
    page.ClefOnEveryRow = number("View", "ClefOnEveryRow", 0, 0, 1) == 1;
    Drawing::ApplyPaperSize(page);
    Drawing::Page = page;
    Program.ZoomPercent = StoredNumber("View", "Zoom", 100, LeastZoom, MostZoom);
    Program.MixTableVisible = number("View", "MixTable", 0, 0, 1) == 1;
    Program.ToolbarsMoved = number("View", "ToolbarsMoved", 0, 0, 1) == 1;
    Program.FretboardVisible = number("View", "Fretboard", 0, 0, 1) == 1;
    Program.FretboardNames = number("View", "FretboardNames", 0, 0, 1) == 1;
    Program.PianoVisible = number("View", "Piano", 0, 0, 1) == 1;
    Program.Theme = number("View", "Theme", 0, 0, MostTheme);
    Program.DarkPaper = number("View", "DarkPaper", 0, 0, 1) == 1;
    LoadSoundSettings();
    ApplySettings();
}

void SaveStoredState() {
    const auto save = [](const char* section, const char* key, int value) {
        Services.Settings->Save(section, key, std::to_string(value));
    };
    const Drawing::PageSetup& page = Drawing::Page;
    save("Options", "MinTabX", page.MinTabX);
    save("Options", "MaxTabX", page.MaxTabX);
    save("PageSetup", "PaperSize", page.PaperSizeIndex);
    save("PageSetup", "Scale", page.PageScaleIndex);
    save("PageSetup", "Landscape", page.IsLandscape ? 1 : 0);
    save("PageSetup", "LeftMargin", page.PageLeftMargin);
    save("PageSetup", "TopMargin", page.PageTopMargin);
    save("View", "Zoom", Program.ZoomPercent);
    save("View", "Theme", Program.Theme);
    save("View", "ToolbarsMoved", Program.ToolbarsMoved ? 1 : 0);
    save("View", "ClefOnEveryRow", page.ClefOnEveryRow ? 1 : 0);
    save("View", "MixTable", Program.MixTableVisible ? 1 : 0);
    save("View", "Fretboard", Program.FretboardVisible ? 1 : 0);
    save("View", "FretboardNames", Program.FretboardNames ? 1 : 0);
    save("View", "Piano", Program.PianoVisible ? 1 : 0);
    save("View", "DarkPaper", Program.DarkPaper ? 1 : 0);
    SaveSoundSettings();
}

}  // namespace Quillon::Shell
