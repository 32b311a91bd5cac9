#include "drawing/PageFurniture.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "core/mod_TabFileManipulation.h"
#include "drawing/mod_TabDrawing.h"

namespace Quillon::Drawing {

using Core::LanguageText;
using Core::TabFile;
using Core::Track;

namespace {

constexpr double PixelsPerCentimetre = 37.86;
constexpr double PixelsPerInch = 96.16;

/// Ticks along an edge: a long one each unit, short ones between, by the scale that the page setup chose.
void DrawRuler(Picture& picture, const PageSetup& page, int left, int top) {
    const bool inches = page.PageRulerStep == 5;
    const double unit = inches ? PixelsPerInch : PixelsPerCentimetre;
    const int parts = inches ? 4 : 2;
    const auto length = [&](int tick) { return tick % parts == 0 ? page.PageRulerStep : 3; };
    for (int tick = 0; tick * unit / parts <= page.PageWidth; ++tick) {
        picture.Box(left + std::floor(tick * unit / parts), top - 2 - length(tick), 1, length(tick), RulerColor);
    }
    for (int tick = 0; tick * unit / parts <= page.PageHeight; ++tick) {
        picture.Box(left - 2 - length(tick), top + std::floor(tick * unit / parts), length(tick), 1, RulerColor);
    }
}

/// The header's lines stand by their middles, below the page's top.
enum HeaderLine : std::int16_t { TitleLine = 40, SubTitleLine = 68, FirstLine = 85, SecondLine = 101, ThirdLine = 117 };

/// Cuts a text at its end so that it fits, with an ellipsis.
std::string Fitted(Picture& picture, const std::string& text, double width) {
    // No page holds more; a whole book is not measured to find that out.
    constexpr std::size_t longest = 1000;
    if (text.size() <= longest && picture.TextWidth(text) <= width) return text;
    const auto cut = [&](std::size_t size) {
        while (size > 0 && (static_cast<unsigned char>(text[size]) & 0xC0) == 0x80) --size;  // inside a character
        return size == 0 ? "" : text.substr(0, size) + "…";
    };
    std::size_t fits = 0;
    std::size_t over = std::min(text.size(), longest);
    while (fits + 1 < over) {
        const std::size_t middle = (fits + over) / 2;
        (picture.TextWidth(cut(middle)) <= width ? fits : over) = middle;
    }
    return cut(fits);
}

std::string PitchName(int pitch) {
    static constexpr std::array<const char*, 12> names = {"C",  "C#", "D",  "Eb", "E",  "F",
                                                          "F#", "G",  "Ab", "A",  "Bb", "B"};
    return names[static_cast<std::size_t>(((pitch % 12) + 12) % 12)];
}

/// Tuning, from the lowest string up, when it isn't the standard one; then the capo.
std::string TuningText(const Track& track) {
    if (track.IsDrum) return "";
    std::string text;
    const int strings = StringsShown(track);
    const bool retuned =
        std::any_of(track.Tuning.begin(), track.Tuning.begin() + strings, [](int t) { return t != 0; });
    if (retuned) {
        std::string names;
        for (int s = strings - 1; s >= 0; --s)
            names += (names.empty() ? "" : " ") + PitchName(Core::OpenPitch(track, s));
        text = LanguageText("str_HeaderTuning", {names});
    }
    if (track.Capo != 0)
        text += (text.empty() ? "" : ", ") + LanguageText("str_HeaderCapo", {std::to_string(track.Capo)});
    return text;
}

class HeaderPainter {
public:
    /// Without `paints` it only finds the edges.
    HeaderPainter(Picture& target, const PageSetup& setup, const TabFile& document, int x, int y, bool paints = true)
        : picture(target), page(setup), file(document), left(x), top(y), inks(paints) {
        Edges = {static_cast<double>(left), static_cast<double>(left + page.PageWidth)};
    }

    HeaderEdges Edges;  ///< known after Draw

    void Draw(const Track& track) {
        const double title = std::clamp<double>(file.FontSize, 1, LargestFontSize);
        Use(title);
        Print(TitleLine, file.Title, Anchor::Center);
        Use(std::max(8.0, title * 0.6));
        Print(SubTitleLine, file.SubTitle, Anchor::Center);
        SetFont(picture, "Arial", 9, false, false, false, file.FontColor);
        size = 9;
        width = Width() / 2.0 - 8;
        Print(FirstLine, file.Artist, Anchor::Left);
        Print(SecondLine, file.Album, Anchor::Left);
        if (!file.Author.empty()) Print(FirstLine, LanguageText("str_HeaderAuthor", {file.Author}), Anchor::Right);
        if (!file.TabbedBy.empty())
            Print(SecondLine, LanguageText("str_HeaderTabbedBy", {file.TabbedBy}), Anchor::Right);
        Print(ThirdLine, OneLine(file.Instructions), Anchor::Right);
        // Nothing may stand below this line: the charts of the first row begin there.
        const double behind = DrawTempo();
        SetFont(picture, "Arial", 9, false, false, false, file.FontColor);
        PrintAt(behind + 16, ThirdLine, TuningText(track), Anchor::Left, left + page.PageWidth / 2.0 - behind - 24);
    }

private:
    int Width() const { return page.PageWidth - 2 * page.PageLeftMargin; }

    void Use(double points) {
        picture.SetFont({file.FontName, points, file.FontBold, file.FontItalic, file.FontUnderline, file.FontStrike});
        picture.SetColor(file.FontColor);
        size = points;
        width = Width();
    }

    void Print(int middle, const std::string& text, Anchor anchor) {
        const double x = anchor == Anchor::Left    ? left + page.PageLeftMargin
                         : anchor == Anchor::Right ? left + page.PageWidth - page.PageLeftMargin
                                                   : left + page.PageWidth / 2.0;
        PrintAt(x, middle, text, anchor, width);
    }

    void PrintAt(double x, int middle, const std::string& text, Anchor anchor, double room) {
        if (text.empty()) return;
        // Capitals are some 0.7 of the em square high: their middle stands on the line's.
        const double baseline = top + middle + 0.36 * size * 4 / 3;
        const std::string shown = Fitted(picture, text, room);
        if (anchor == Anchor::Left) Edges.Left = std::max(Edges.Left, x + picture.TextWidth(shown));
        if (anchor == Anchor::Right) Edges.Right = std::min(Edges.Right, x - picture.TextWidth(shown));
        if (inks) picture.Print(x, baseline, shown, anchor);
    }

    static std::string OneLine(std::string text) {
        std::replace(text.begin(), text.end(), '\n', ' ');
        std::erase(text, '\r');
        return text;
    }

    /// A quarter note and its beats a minute; where they end is returned.
    double DrawTempo() {
        const double x = left + page.PageLeftMargin + 2;
        const double y = top + ThirdLine + 3;
        picture.SetColor(file.FontColor);
        if (inks) DrawQuarter(x, y);
        SetFont(picture, "Arial", 8, false, false, false, file.FontColor);
        const std::string beats =
            Core::FormatSingle(file.Tempo) + (file.Shuffle ? "  " + LanguageText("str_HeaderShuffle") : "");
        if (inks) picture.Print(x + 8, y + 2, "= " + beats);
        const double end = x + 8 + picture.TextWidth("= " + beats);
        Edges.Left = std::max(Edges.Left, end);
        return end;
    }

    void DrawQuarter(double x, double y) {
        picture.Polygon({{x - 3.6, y + 1.4},
                         {x - 3.2, y - 0.6},
                         {x - 1.2, y - 2.4},
                         {x + 1.6, y - 2.8},
                         {x + 3.4, y - 1.6},
                         {x + 3.2, y + 0.4},
                         {x + 1.2, y + 2.2},
                         {x - 1.8, y + 2.8}});
        picture.Line(x + 3, y - 1, x + 3, y - 13);
    }

    Picture& picture;
    const PageSetup& page;
    const TabFile& file;
    int left;
    int top;
    bool inks;
    double size = 8;   ///< points of the font at hand
    double width = 0;  ///< room of a line, in pixels
};

}  // namespace

void DrawPageFrame(Picture& picture, const PageSetup& page, int left, int top) {
    picture.Box(left + 4, top + 4, page.PageWidth, page.PageHeight, ShadowColor);
    picture.Box(left - 1, top - 1, page.PageWidth + 2, page.PageHeight + 2, EdgeColor);
    picture.Box(left, top, page.PageWidth, page.PageHeight, White);
    DrawRuler(picture, page, left, top);
}

namespace {

/// Three texts on a line: the outer ones as they are, the middle one in the room between them.
void DrawRunningLine(Picture& picture, const PageSetup& setup, int left, double baseline, const RunningLine& line) {
    const double width = setup.PageWidth - 2 * setup.PageLeftMargin;
    const double outer = line.Center.empty() ? width / 2 - 8 : width / 3;
    const std::string first = Fitted(picture, line.Left, outer);
    const std::string last = Fitted(picture, line.Right, outer);
    const double right = left + setup.PageWidth - setup.PageLeftMargin;
    if (!first.empty()) picture.Print(left + setup.PageLeftMargin, baseline, first);
    if (!last.empty()) picture.Print(right, baseline, last, Anchor::Right);
    if (line.Center.empty()) return;
    const double beside = std::max(picture.TextWidth(first), picture.TextWidth(last));
    const double room = setup.PageWidth - 2 * (setup.PageLeftMargin + beside + 8);
    picture.Print(left + setup.PageWidth / 2.0, baseline, Fitted(picture, line.Center, room), Anchor::Center);
}

}  // namespace

HeaderEdges MeasureHeader(Picture& picture, const PageSetup& setup, const TabFile& file, int track) {
    HeaderPainter header(picture, setup, file, 0, 0, false);
    header.Draw(file.Tracks[track]);
    return header.Edges;
}

void DrawPageFurniture(Picture& picture, const PageSetup& setup, const TabFile& file, int track, int left, int top,
                       int page, int pageCount, const RunningTexts* texts) {
    const bool ownHeader = page == 0 || file.ShowHeader;
    if (ownHeader) HeaderPainter(picture, setup, file, left, top).Draw(file.Tracks[track]);
    SetFont(picture, "Arial", 8, false, false, false, file.FontColor);
    if (texts && !ownHeader) DrawRunningLine(picture, setup, left, top + 40, texts->Header);
    const RunningLine own{
        "", file.Copyright,
        texts ? "" : LanguageText("str_PageNumber", {std::to_string(page + 1), std::to_string(pageCount)})};
    DrawRunningLine(picture, setup, left, top + setup.PageHeight - 31, texts ? texts->Footer : own);
}

}  // namespace Quillon::Drawing
