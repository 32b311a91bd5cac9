#include "library/ChordBoxes.h"

#include <algorithm>
#include <array>

#include "core/mod_Common.h"
#include "library/ChordNaming.h"
#include "platform/RunTimeError.h"

namespace Quillon::Library {

namespace {

// The points are first down, then across: 138 would lie outside a cell that is 110 wide, and read so the panels stand
// below each other, each in the middle of its cell.
constexpr std::array<DisplayMode, DisplayModes> Modes = {{
    {60, PanelPlace{15, 43}, {}, {}, 70},
    {90, {}, PanelPlace{25, 26}, {}, 100},
    {70, {}, {}, PanelPlace{22, 15}, 80},
    {100, PanelPlace{15, 43}, {}, PanelPlace{65, 13}, 110},
    {140, PanelPlace{15, 43}, PanelPlace{78, 23}, {}, 150},
    {110, {}, PanelPlace{22, 23}, PanelPlace{76, 13}, 120},
    {170, PanelPlace{15, 43}, PanelPlace{77, 23}, PanelPlace{138, 13}, 190},
}};

const Font NameFont{.Name = "Arial", .Size = 8, .Bold = true};
const Font SignFont{.Name = "Small Fonts", .Size = 6};
const Font NoteFont{.Name = "Arial", .Size = 7};
constexpr double LeastNoteStep = 14;  ///< that sharps of this size don't touch in

constexpr int LeastRows = 5;
constexpr int UsualStrings = 6;
constexpr double Unit = 15;  ///< from one string to the next, in a box's own size
constexpr double BoxScale = 1.0 / 3;
constexpr double FingersScale = 13.0 / 15;  ///< so that it stands in the middle of its cell

/// "X" and rings above the nut, base frets and fingers beside and below the box: as large as its strings leave room.
double SignSize(const BoxLook& look) { return std::clamp(look.StringStep * 0.6, 4.5, 11.0); }

void PrintMiddle(Picture& picture, double x, double middle, double points, std::string_view text, Anchor anchor) {
    Font font = SignFont;
    font.Size = points;
    picture.SetFont(font);
    constexpr double HalfDigit = 0.36;  ///< of the em
    picture.Print(x, middle + HalfDigit * font.Pixels(), text, anchor);
}

class Box {
public:
    Box(Picture& on, const ChordRec& of, const BoxLook& look)
        : picture(on), chord(of), l(look), frets(look.Frets.value_or(FretsOf(of))) {}

    void Draw() const {
        Grid();
        for (int string = 0; string < chord.NumStrings; ++string) Sign(string);
        Barre();
    }

private:
    double Right() const { return l.Left + (chord.NumStrings - 1) * l.StringStep; }
    /// String 0, the highest, stands at the right.
    double X(int string) const {
        return l.Lefthanded ? l.Left + string * l.StringStep : Right() - string * l.StringStep;
    }
    double RowStep() const { return l.FretStep * LeastRows / frets.Count; }
    double Bottom() const { return l.Top + l.FretStep * LeastRows; }
    double Y(int fret) const { return l.Top + (fret - frets.First + 0.5) * RowStep(); }
    double DotRadius() const { return std::min({l.StringStep * 0.36, RowStep() * 0.42, 9.0}); }

    void Grid() const {
        picture.SetColor(l.Colors.Faint);
        for (int row = 0; row <= frets.Count; ++row) {
            const double y = l.Top + row * RowStep();
            picture.Line(l.Left, y, Right(), y);
        }
        for (int string = 0; string < chord.NumStrings; ++string) picture.Line(X(string), l.Top, X(string), Bottom());
        picture.SetColor(l.Colors.Ink);
        if (frets.First == 1) picture.Line(l.Left, l.Top, Right(), l.Top, 2);
        const bool fretted = !PitchesOf(chord).empty();
        if (l.Frets ? frets.First > 1 : (chord.BaseFret > 0 || frets.First > 1) && fretted) {
            const double size = std::clamp(RowStep() * 0.9, 5.5, 10.0);
            PrintMiddle(picture, Right() + DotRadius() + 2, Y(frets.First), size, std::to_string(frets.First),
                        Anchor::Left);
        }
    }

    void Sign(int string) const {
        const double x = X(string);
        const double size = SignSize(l);
        const double above = l.Top - size / 2 - 1.5;
        const auto fret = AbsoluteFret(chord, string);
        picture.SetColor(l.Colors.Ink);
        if (IsMuted(chord, string)) {
            PrintMiddle(picture, x, above, size * 0.85, "X", Anchor::Center);
        } else if (fret && *fret == 0) {
            picture.Circle(x, above, size * 0.32);
        } else if (fret && *fret >= frets.First && *fret < frets.First + frets.Count) {
            picture.SetColor(l.Colors.Dot);
            picture.Disc(x, Y(*fret), DotRadius());
        }
        const std::string finger = FingerText(chord, string);
        if (!l.Fingers || finger.empty()) return;
        picture.SetColor(l.Colors.Ink);
        PrintMiddle(picture, x, Bottom() + size / 2 + 2, size * 0.85, finger, Anchor::Center);
    }

    /// One finger over all strings from the first to the last that it holds on the lowest fret.
    void Barre() const {
        if (!chord.ChordFlag) return;
        int lowest = 0, first = -1, last = -1;
        for (int string = 0; string < chord.NumStrings; ++string) {
            const auto fret = AbsoluteFret(chord, string);
            if (fret && *fret > 0 && (lowest == 0 || *fret < lowest)) lowest = *fret;
        }
        for (int string = 0; lowest > 0 && string < chord.NumStrings; ++string) {
            if (AbsoluteFret(chord, string) != lowest) continue;
            if (first < 0) first = string;
            last = string;
        }
        if (last == first || lowest < frets.First || lowest >= frets.First + frets.Count) return;
        picture.SetColor(l.Colors.Dot);
        picture.Line(X(first), Y(lowest), X(last), Y(lowest), std::max(2.0, DotRadius()));
    }

    Picture& picture;
    const ChordRec& chord;
    const BoxLook& l;
    BoxFrets frets;
};

/// Places are for six strings; fewer or more stand about the same middle.
double LeftFor(const ChordRec& chord, double left, double step) {
    return left + (UsualStrings - chord.NumStrings) * step / 2;
}

/// The middles of what is written string by string, from the left.
struct Columns {
    double First = 0;
    double Step = 0;
};

/// Below the strings of a large box, else on their own with the room that the cell has.
Columns NoteColumns(const DisplayMode& shows, const ChordRec& chord) {
    if (shows.Fingers) {
        constexpr double step = Unit * FingersScale;
        return {LeftFor(chord, shows.Fingers->Left, step), step};
    }
    const double step = chord.NumStrings > UsualStrings ? Unit * UsualStrings / chord.NumStrings : Unit;
    return {LeftFor(chord, shows.Notes->Left, step) + step / 2 - 3, step};
}

void DrawNotes(Picture& picture, const ChordRec& chord, Columns columns, double top, bool lefthanded, bool flats,
               const BoxColors& colors) {
    constexpr double fretLine = 9, noteLine = 21;
    Font font = NoteFont;
    font.Size *= std::min(1.0, columns.Step / LeastNoteStep);
    picture.SetFont(font);
    for (int string = 0; string < chord.NumStrings; ++string) {
        const double x = columns.First + (lefthanded ? string : chord.NumStrings - 1 - string) * columns.Step;
        const auto fret = AbsoluteFret(chord, string);
        const auto pitch = PitchOn(chord, string);
        picture.SetColor(colors.Faint);
        picture.Print(x, top + fretLine,
                      fret                     ? std::to_string(*fret)
                      : IsMuted(chord, string) ? "x"
                                               : "",
                      Anchor::Center);
        picture.SetColor(colors.Ink);
        if (pitch) picture.Print(x, top + noteLine, PitchClassName(*pitch, flats), Anchor::Center);
    }
}

/// As much of a name as its cell is wide.
std::string Fitting(Picture& picture, const std::string& name, double width) {
    if (picture.TextWidth(name) <= width) return name;
    std::string shown = name;
    while (!shown.empty() && picture.TextWidth(shown + "...") > width) {
        const auto isInside = [&shown] { return (static_cast<unsigned char>(shown.back()) & 0xC0U) == 0x80U; };
        while (isInside()) shown.pop_back();
        shown.pop_back();
    }
    return shown + "...";
}

}  // namespace

const DisplayMode& ModeOf(int mode) {
    if (mode < 0 || mode >= DisplayModes) RaiseSubscriptOutOfRange();
    return Modes.at(static_cast<std::size_t>(mode));
}

BoxFrets FretsOf(const ChordRec& chord) {
    int lowest = 0, highest = 0;
    for (int string = 0; string < chord.NumStrings; ++string) {
        const int fret = AbsoluteFret(chord, string).value_or(0);
        if (fret > 0 && (lowest == 0 || fret < lowest)) lowest = fret;
        highest = std::max(highest, fret);
    }
    BoxFrets frets;
    // Beside open strings the base is 0, however high the hand lies.
    if (chord.BaseFret > 0 && lowest > 0)
        frets.First = chord.BaseFret;
    else if (highest > LeastRows)
        frets.First = lowest;
    frets.Count = std::max(LeastRows, highest - frets.First + 1);
    return frets;
}

void DrawChordBox(Picture& picture, const ChordRec& chord, const BoxLook& look) { Box(picture, chord, look).Draw(); }

void DrawChordCell(Picture& picture, double x, double y, const std::string& name, const ChordRec* chord, int mode,
                   bool lefthanded, const BoxColors& colors) {
    const DisplayMode& shows = ModeOf(mode);
    constexpr double middle = DisplayMode::CellWidth / 2.0;
    constexpr double nameLine = 11;
    picture.SetFont(NameFont);
    picture.SetColor(colors.Ink);
    picture.Print(x + middle, y + nameLine, Fitting(picture, name, DisplayMode::CellWidth - 4), Anchor::Center);
    if (!chord) {
        picture.SetColor(colors.Faint);
        return PrintMiddle(picture, x + middle, y + shows.CellHeight / 2.0 + nameLine / 2, 16, "?", Anchor::Center);
    }
    const auto box = [&](const std::optional<PanelPlace>& place, double scale, double fretStep, bool fingers) {
        if (!place) return;
        BoxLook look{.StringStep = Unit * scale,
                     .FretStep = fretStep,
                     .Fingers = fingers,
                     .Lefthanded = lefthanded,
                     .Colors = colors};
        look.Left = x + LeftFor(*chord, place->Left, look.StringStep);
        look.Top = y + place->Top + SignSize(look) + 3;
        DrawChordBox(picture, *chord, look);
    };
    // The heights are what a cell has room for between its panels.
    constexpr double smallFret = 7, largeFret = 7;
    box(shows.Box, BoxScale, smallFret, false);
    box(shows.Fingers, FingersScale, largeFret, true);
    if (shows.Notes) {
        Columns columns = NoteColumns(shows, *chord);
        columns.First += x;
        const double clear = shows.Fingers ? 2 : 0;  // of the fingers above
        DrawNotes(picture, *chord, columns, y + shows.Notes->Top + clear, lefthanded, PrefersFlats(name), colors);
    }
}

}  // namespace Quillon::Library
