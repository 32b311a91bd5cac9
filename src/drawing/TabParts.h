// What the sources of the bar's painter share: the tab's geometry in a bar, and the room around it that is taken.
#pragma once

#include <limits>
#include <string_view>
#include <vector>

#include "drawing/mod_TabDrawing.h"

namespace Quillon::Drawing {

constexpr int StringStep = 10;
/// From the tab's offset, where the first figure's cell begins, to its top line.
constexpr int FirstLineDrop = 6;
/// Height of one mark above or below the tab.
constexpr int MarkStep = 10;

inline const Font SmallFont{.Name = "Small Fonts", .Size = 6};
inline const Font AccentFont{.Name = "Arial", .Size = 7};
inline const Font SignFont{.Name = "Arial", .Size = 8};

struct Area {
    double Left, Top, Right, Bottom;
    bool IsBarNumber = false;  ///< a level run passes a bar number with a gap instead of going round it
};

/// What stands above and below a bar's tab, so that nothing is printed over anything else.
class Room {
public:
    Room() { taken.reserve(32); }
    void Take(const Area& area);
    /// What is looked for from here on stands below this y: the row above, or the paper's edge, is not its place.
    void SetCeiling(double y) { ceiling = y; }
    double Ceiling() const { return ceiling; }
    bool IsFree(const Area& area, bool passNumbers = false) const;
    /// Takes the lowest free place of this width whose middle is `firstMiddle`, or that less a multiple of `step`; the
    /// first one when none is free.
    /// Right of labelRight the mark is a thin run that may pass bar numbers. The middle is returned.
    double TakeLevel(double left, double right, double labelRight, double firstMiddle, double step);
    /// The parts of left..right at this height that no bar number stands in.
    std::vector<Point> Pieces(double left, double right, double middle) const;

private:
    std::vector<Area> taken;
    double ceiling = std::numeric_limits<double>::lowest();
};

/// A bar that shows its tab, or staves alone.
struct TabBar {
    explicit TabBar(const BarContext& bar);

    const BarContext& Context;
    const Core::Track& Track;
    const Core::Bar& Bar;
    int Strings;
    int Top;                    ///< y of the first string's line
    int Bottom;                 ///< y of the last string's line
    bool OnStaff;               ///< the tab is hidden: what belongs to no string stands around the staves instead
    int Shown;                  ///< see StrumCount
    std::vector<double> Heads;  ///< x of each column's heads, where no tab shows
    bool OnRowTop;              ///< no staff stands above the tab, so that it shares its room with the bar number
    Room Around;

    /// Strums that stand in the bar. Those of a bar too full for its time reach into the next bar of the row; behind a
    /// row's last bar they stand in the margin, where the strings' figures are as good as any, but no staff is.
    int StrumCount() const { return Shown; }
    const Core::Strum& Strum(int strum) const { return Bar.Strums()[strum]; }
    double Column(int strum) const;
    /// x of the next column, and of the bar's right edge behind the last one.
    double NextColumn(int strum) const;
    /// The same for what stands over the heads of a column and under them, which may have stepped aside: they lead
    /// where no tab shows.
    double MarkX(int strum) const { return Heads.empty() ? Column(strum) : Heads[static_cast<std::size_t>(strum)]; }
    double NextMarkX(int strum) const { return strum + 1 < StrumCount() ? MarkX(strum + 1) : Right(); }
    int LineY(int string) const { return Top + StringStep * string; }
    double Right() const { return Context.X + Context.Width; }
    /// The bar `step` bars away when it stands on the same row beside the bars between, else null.
    const Core::Bar* Beside(int step) const;
    Color Ink() const { return Context.File.NoteFontColor; }
};

/// True for a strum whose figures would stand past the edge of the paper of a printed page.
bool IsLeftOut(const TabBar& bar, int strum);

/// The next note on a string after a strum, in this bar or the next one.
struct Partner {
    const Core::Note* Note = nullptr;
    double X = 0;           ///< of its column, or a little past the bar's end when it stands on another row
    bool SameRow = false;   ///< it stands on this row
    bool Adjacent = false;  ///< no other strum stands between
};
Partner NextOnString(const TabBar& bar, int strum, int string);

/// Ink of what reaches into the next bar: both stay legible.
constexpr Color OverfullInk = PackColor(0xC0, 0x8C, 0x8C);
/// Ink of the number of strums that a page leaves out.
constexpr Color LeftOutInk = PackColor(0xB0, 0x40, 0x40);
/// Behind this x a column stands in the next bar, and none of a bar that keeps its time does.
constexpr double OverfullReach = 4;

Font NoteFont(const Core::TabFile& file);
/// The text at a string of a strum, "" for none; `core` is its part that is centred.
std::string Figure(const Core::Track& track, int string, const Core::Note& note, std::string* core = nullptr);
/// How far a figure reaches to the left and right of its column. The fret with its parentheses is centred, so that
/// figures stand under each other; "*" and ".." hang behind it.
struct Extent {
    double Left = 0, Right = 0;
};
/// Leaves the note font in use.
Extent FigureExtent(Picture& picture, const TabBar& bar, int string, const Core::Note& note);
inline Extent FigureExtent(Picture& picture, const TabBar& bar, int strum, int string) {
    return FigureExtent(picture, bar, string, bar.Strum(strum).Notes[string]);
}
bool FretNumber(const std::string& fret, int& number);

/// The first bar of a bar's row.
int FirstOfRow(const TabBar& bar);
/// x of the row's left edge.
double RowLeft(const TabBar& bar);
int LastOfRow(const TabBar& bar);
/// Where a text of this width that wants to begin at `left` begins to stay on the paper; one that is too wide begins at
/// its left edge.
double LeftOnPaper(const TabBar& bar, double left, double width);
/// A text that fits on the paper in the font in use: its beginning and an ellipsis where it is wider.
std::string FitToPaper(Picture& picture, const TabBar& bar, const std::string& text);
/// The beginning of a text with an ellipsis, as long as fits into the width in the font in use; the ellipsis alone may
/// be wider.
std::string CutToFit(Picture& picture, const std::string& text, double width);
/// Where texts must end.
double PaperRight(const TabBar& bar);

void Print(Picture& picture, const Font& font, double x, double baseline, std::string_view text,
           Anchor anchor = Anchor::Center);
/// A flat bow from left to right, its ends at y and its middle `rise` higher: thin at its ends, twice as thick in its
/// middle.
/// Its right end stands `fall` lower.
void DrawBow(Picture& picture, double left, double right, double y, double rise, double fall = 0);
/// A wave along `middle`.
void DrawWave(Picture& picture, double left, double right, double middle, double amplitude);
/// Where the curves of a bend stand: from a note's right to the right, from its height up to the arrow's tip.
struct BendRoom {
    double X, Low, High;
    double Step;  ///< width of a curve
    const Font& Letters;
    Room& Around;  ///< gives the amounts their place
};
/// The values at which a note's bend starts, turns and ends; none for one that does not bend.
std::vector<double> BendTurns(const Core::Note& note);
/// True when the note is bent before it sounds.
bool IsHeldBend(const std::vector<double>& turns);
void DrawBendTurns(Picture& picture, const std::vector<double>& turns, const BendRoom& room);
/// A filled arrowhead whose tip is at x, y; `direction` -1 points upward, 1 downward.
void DrawArrowhead(Picture& picture, double x, double y, int direction, double size = 5);

// The painters of a bar, in the order in which they are called.
void DrawFigures(Picture& picture, const TabBar& bar, int strum, Color ink);
void DrawLinks(Picture& picture, TabBar& bar, int strum);      ///< hammer-ons, pull-offs, ties, slides
void DrawLinksFromLastRow(Picture& picture, TabBar& bar);      ///< their ends when they began on the row before
void DrawNoteSigns(Picture& picture, TabBar& bar, int strum);  ///< grace notes, trills, strokes, slashes
void DrawBends(Picture& picture, TabBar& bar, int strum);
void DrawChords(Picture& picture, TabBar& bar);
void DrawMarks(Picture& picture, TabBar& bar);
/// Right end of the repeat count; it keeps clear of the next bar's number.
int RepeatCountRight(const TabBar& bar);
void TakeRoom(Picture& picture, TabBar& bar);  ///< bar numbers, signs, texts of the bar before
void DrawTexts(Picture& picture, TabBar& bar);
void DrawMarksBelow(Picture& picture, TabBar& bar);
/// Lines of fingers and dynamics that stand under each strum of a bar without tab.
std::vector<int> MarkLinesBelow(const TabBar& bar);

enum class Sign { DalSegno, Coda, ToCoda, Segno };
/// A navigation sign at the left and top of its cell of 16 pixels.
struct PlacedSign {
    Sign What;
    int X, Y;
};
std::vector<PlacedSign> SignsOf(const BarContext& bar);
void DrawSign(Picture& picture, Sign what, int x, int y);
/// What a sign covers.
Area SignArea(Picture& picture, const PlacedSign& sign);

}  // namespace Quillon::Drawing
