#include "shell/PrintPreview.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "core/mod_Language.h"
#include "core/mod_TabFileStructure.h"
#include "drawing/mod_PageLayout.h"
#include "platform/Services.h"
#include "platform/SettingsStore.h"

namespace Quillon::Shell {

namespace {

constexpr std::array<int, 15> Zooms = {10, 25, 33, 50, 67, 75, 90, 100, 125, 150, 175, 200, 250, 300, 400};

int Kept(const char* key, int otherwise, int least, int most) {
    const std::string text = Services.Settings->Get("Print", key);
    int value = otherwise;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value >= least && value <= most ? value : otherwise;
}

}  // namespace

PrintPreview::PrintPreview() {
    Model.Load();
    fit = static_cast<Fit>(Kept("PreviewFit", static_cast<int>(Fit::Page), 0, 2));
    zoom = Kept("PreviewZoom", 100, LeastZoom, MostZoom);
    Rebuild();
}

void PrintPreview::Keep() const {
    Model.Keep();
    Services.Settings->Save("Print", "PreviewFit", std::to_string(static_cast<int>(fit)));
    Services.Settings->Save("Print", "PreviewZoom", std::to_string(zoom));
}

void PrintPreview::Rebuild() {
    job = std::make_unique<Exchange::PrintJob>(Model.Options());
    Arrange();
}

int PrintPreview::PageWidth() const {
    return std::max(1, static_cast<int>(std::lround(Drawing::Page.PageWidth * Scale())));
}

int PrintPreview::PageHeight() const {
    return std::max(1, static_cast<int>(std::lround(Drawing::Page.PageHeight * Scale())));
}

void PrintPreview::Arrange() {
    const double across = 100.0 * std::max(1, viewWidth - 2 * Gap) / Drawing::Page.PageWidth;
    const double down = 100.0 * std::max(1, viewHeight - 2 * Gap) / Drawing::Page.PageHeight;
    if (fit != Fit::None) {
        const double wanted = fit == Fit::Width ? across : std::min(across, down);
        zoom = std::clamp(static_cast<int>(std::floor(wanted)), LeastZoom, MostZoom);
    }
    columns = std::clamp((viewWidth - Gap) / (PageWidth() + Gap), 1, std::max(1, Pages()));
}

void PrintPreview::SetView(int width, int height) {
    viewWidth = width;
    viewHeight = height;
    Arrange();
}

void PrintPreview::SetZoom(int percent) {
    fit = Fit::None;
    zoom = std::clamp(percent, LeastZoom, MostZoom);
    Arrange();
}

void PrintPreview::ZoomBy(int steps) {
    int percent = zoom;
    for (; steps > 0; --steps) {
        const auto* const next = std::ranges::upper_bound(Zooms, percent);
        percent = next == Zooms.end() ? MostZoom : *next;
    }
    for (; steps < 0; ++steps) {
        const auto* const here = std::ranges::lower_bound(Zooms, percent);
        percent = here == Zooms.begin() ? LeastZoom : *(here - 1);
    }
    SetZoom(percent);
}

void PrintPreview::SetFit(Fit wanted) {
    fit = wanted;
    Arrange();
}

int PrintPreview::Width() const { return columns * (PageWidth() + Gap) + Gap; }

int PrintPreview::Height() const { return Rows() * (PageHeight() + Gap) + Gap; }

std::vector<PreviewPage> PrintPreview::InView(int scrollX, int scrollY) const {
    const int left = std::max(0, (viewWidth - Width()) / 2) + Gap - scrollX;
    const int top = std::max(0, (viewHeight - Height()) / 2) + Gap - scrollY;
    std::vector<PreviewPage> pages;
    for (int page = 0; page < Pages(); ++page) {
        const PreviewPage placed{page, left + page % columns * (PageWidth() + Gap),
                                 top + page / columns * (PageHeight() + Gap), PageWidth(), PageHeight()};
        if (placed.Y + placed.Height > 0 && placed.Y < viewHeight) pages.push_back(placed);
    }
    return pages;
}

int PrintPreview::PageAt(int scrollY) const {
    const int step = PageHeight() + Gap;
    const int row = std::clamp((scrollY + step / 2) / step, 0, std::max(0, Rows() - 1));
    return std::min(row * columns, Pages() - 1);
}

int PrintPreview::ScrollFor(int page) const {
    return std::clamp(page, 0, Pages() - 1) / columns * (PageHeight() + Gap);
}

std::string PrintPreview::PageText(int page) const {
    std::string text = Core::LanguageText("str_PageNumber", {std::to_string(page + 1), std::to_string(Pages())});
    if (Model.AllTracks) text += ", " + Core::Open.TabFile.Tracks[TrackOf(page)].Name;
    return text;
}

}  // namespace Quillon::Shell
