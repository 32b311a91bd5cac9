// The figures on the strings, and the columns of a bar.
#include <algorithm>
#include <array>
#include <cmath>

#include "drawing/NotationParts.h"

namespace Quillon::Drawing {

namespace {

using Core::PercAssignment;

struct DrumLetter {
    std::string_view Letter;
    std::int16_t PercAssignment::*Sound;
};

/// In the order in which a sound finds its letter.
constexpr std::array<DrumLetter, 12> DrumLetters = {{{"F", &PercAssignment::dbf},
                                                     {"O", &PercAssignment::dbo},
                                                     {"S", &PercAssignment::dbs},
                                                     {"X", &PercAssignment::dbx},
                                                     {"c", &PercAssignment::dlc},
                                                     {"f", &PercAssignment::dlf},
                                                     {"o", &PercAssignment::dlo},
                                                     {"r", &PercAssignment::dlr},
                                                     {"s", &PercAssignment::dls},
                                                     {"t", &PercAssignment::dlt},
                                                     {"x", &PercAssignment::dlx},
                                                     {"~", &PercAssignment::dro}}};

std::string Enclosed(const std::string& figure, const Core::Note& note) {
    return note.Ghost ? "(" + figure + ")" : figure;
}

std::string MarksBehind(const Core::Note& note) {
    std::string marks;
    if (note.Harmonic != Core::NoHarmonic) marks += "*";
    if (note.LetRing) marks += "..";
    return marks;
}

}  // namespace

std::string FretText(const Core::Note& note) {
    return note.Fret.empty() ? "" : Enclosed(note.Fret, note) + MarksBehind(note);
}

std::string PercussionText(const Core::Track& track, int string, const Core::Note& note) {
    const PercAssignment& sounds = track.PercStrings[string];
    for (const DrumLetter& own : DrumLetters) {
        if (own.Letter != note.Fret) continue;
        const std::int16_t sound = sounds.*own.Sound;
        if (sound == 0) break;  // a letter that plays nothing shows itself
        for (const DrumLetter& first : DrumLetters) {
            if (sounds.*first.Sound == sound) return std::string(first.Letter);
        }
    }
    return note.Fret;
}

std::string Figure(const Core::Track& track, int string, const Core::Note& note, std::string* core) {
    if (note.Fret.empty()) return "";
    std::string text = Enclosed(track.IsDrum ? PercussionText(track, string, note) : note.Fret, note);
    if (core) *core = text;
    return text + MarksBehind(note);
}

void DrawFigures(Picture& picture, const TabBar& bar, int strum, Color ink) {
    constexpr double halfDigit = 0.36;  // of the em
    constexpr int above = 4, margin = 1, near = 40;
    const Core::Strum& column = bar.Strum(strum);
    const double drop = std::round(halfDigit * NoteFont(bar.Context.File).Pixels());
    const double x = bar.Column(strum);
    picture.SetColor(ink);
    for (int string = 0; string < bar.Strings; ++string) {
        const Core::Note& note = column.Notes[string];
        if (note.Fret.empty()) continue;
        const int y = bar.LineY(string);
        const Extent extent = FigureExtent(picture, bar, string, note);
        // A wide figure of a first column leaves the bar line whole.
        double left = std::max(std::floor(x + 0.5 - extent.Left - margin), bar.Context.X + 1.0);
        // A near neighbour keeps its last digit.
        if (strum > 0 && x - bar.Column(strum - 1) < near && !bar.Strum(strum - 1).Notes[string].Fret.empty()) {
            const double end = bar.Column(strum - 1) + 0.5 + FigureExtent(picture, bar, strum - 1, string).Right;
            left = std::max(left, std::min(std::ceil(end), std::floor(x + 0.5 - extent.Left)));
        }
        const double right = std::ceil(x + 0.5 + extent.Right + margin);
        picture.Box(left, y - above, right - left, 2 * above, White);
        picture.Print(x + 0.5 - extent.Left, y + drop, Figure(bar.Track, string, note));
    }
}

void DrawStrum(Picture& picture, const BarContext& context, int strum) {
    if (context.ItsTrack().ShowTab) {
        TabBar bar(context);
        DrawFigures(picture, bar, strum, bar.Ink());
        DrawNoteSigns(picture, bar, strum);
        DrawLinks(picture, bar, strum);
        DrawBends(picture, bar, strum);
    }
    for (const StaffBar& staff : StaffBarsOf(context)) {
        picture.SetColor(staff.Ink());
        staff.IsDrum() ? DrawPercussionStrum(picture, staff, strum) : DrawStrumNotation(picture, staff, strum);
    }
}

namespace {

void DrawStrings(Picture& picture, TabBar& bar) {
    const double end = bar.Right() - (HasWidth(bar.Context) ? OverfullReach : -bar.Context.Width);
    // Figures of all columns first: their white boxes must not cut what reaches from one column to the next.
    for (int strum = 0; strum < bar.Bar.Strums().Count(); ++strum) {
        if (IsLeftOut(bar, strum)) continue;
        const bool inside = strum < bar.StrumCount() && bar.Column(strum) <= end;
        DrawFigures(picture, bar, strum, inside ? bar.Ink() : OverfullInk);
    }
    picture.SetColor(bar.Ink());
}

/// The count of what the page leaves out; what stands above the row keeps off it.
void DrawLeftOut(Picture& picture, TabBar& bar, const Label& label) {
    constexpr int ascent = 7;
    if (label.Text.empty()) return;
    picture.SetColor(LeftOutInk);
    Print(picture, SmallFont, label.X, label.Y + ascent, label.Text, Anchor::Left);
    const double top = label.Y + 1.0, bottom = label.Y + ascent + 1.0;
    bar.Around.Take({label.X - 1.0, top, label.X + picture.TextWidth(label.Text) + 1, bottom});
    picture.SetColor(bar.Ink());
}

/// A number that high notes moved may stand over this bar's end.
void TakeNextNumber(Picture& picture, TabBar& bar) {
    const BarContext& here = bar.Context;
    const Core::Bar* next = bar.Beside(1);
    if (!next) return;
    const BarContext behind{here.File, here.Track,           here.Bar + 1, here.X + here.Width,
                            here.Y,    next->Place.BarWidth, here.Look};
    const Label usual = BarNumberLabel(*next, behind.Bar, behind.X, behind.Y), placed = PlacedBarNumber(behind);
    if (placed.X == usual.X && placed.Y == usual.Y) return;
    picture.SetFont(SmallFont);
    const double right = placed.X + picture.TextWidth(placed.Text) + 1.2;
    bar.Around.Take({static_cast<double>(placed.X), placed.Y + 1.0, right, placed.Y + 8.0, true});
}

void DrawStringSigns(Picture& picture, TabBar& bar) {
    DrawLinksFromLastRow(picture, bar);
    for (int strum = 0; strum < bar.StrumCount(); ++strum) {
        DrawNoteSigns(picture, bar, strum);
        DrawLinks(picture, bar, strum);
    }
}

}  // namespace

void DrawBarStrums(Picture& picture, const BarContext& context) {
    TabBar bar(context);
    const std::vector<StaffBar> staves = StaffBarsOf(context);
    const bool tab = bar.Track.ShowTab;
    if (tab || bar.OnStaff) {
        if (tab) DrawStrings(picture, bar);
        picture.SetColor(bar.Ink());
        if (bar.OnStaff) bar.Heads = HeadColumns(staves.front());
        TakeStaffRoom(bar, staves);
        TakeRoom(picture, bar);
        TakeNextNumber(picture, bar);
        const bool staff = !staves.empty() && !staves.front().Place.OfOther;
        DrawLeftOut(picture, bar, LeftOutLabel(bar, staff ? &staves.front() : nullptr));
        if (tab) DrawStringSigns(picture, bar);
        DrawChords(picture, bar);
        for (int strum = 0; tab && strum < bar.StrumCount(); ++strum) DrawBends(picture, bar, strum);
        DrawMarks(picture, bar);
        DrawTexts(picture, bar);
        DrawMarksBelow(picture, bar);
    }
    for (const StaffBar& staff : staves) {
        if (staff.Place.OfOther) DrawLeftOut(picture, bar, LeftOutLabel(bar, &staff));
    }
    DrawNotation(picture, staves);
}

}  // namespace Quillon::Drawing
