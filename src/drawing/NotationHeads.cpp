// Where the heads of a bar stand, and their painting: heads, ledger lines, dots.
#include <algorithm>
#include <array>
#include <cmath>

#include "core/mod_TabFileManipulation.h"
#include "drawing/NotationParts.h"
#include "drawing/mod_PageLayout.h"

namespace Quillon::Drawing {

namespace {

constexpr int LowestPitch = 23, HighestPitch = 105;  ///< of the staff's table
constexpr double HeadAside = 6, WholeExtra = 3;      ///< of a head that makes room for its neighbour

/// Steps of the scale from the lowest octave on.
int ScaleStep(int pitch, bool useFlats) {
    static constexpr std::array<int, 12> below = {0, 0, 1, 1, 2, 3, 3, 4, 4, 5, 5, 6};
    static constexpr std::array<int, 12> above = {0, 1, 1, 2, 2, 3, 4, 4, 5, 5, 6, 6};
    const auto place = static_cast<std::size_t>(pitch % 12);
    return pitch / 12 * 7 + (useFlats ? above : below)[place];
}

bool IsBlackKey(int pitch) { return ScaleStep(pitch, true) != ScaleStep(pitch, false); }

HeadSize SizeFor(double room, double full, double small) {
    return room >= full ? HeadSize::Full : room >= small ? HeadSize::Small : HeadSize::Tiny;
}

/// Heads of columns that nearly touch get smaller, those of a beam group alike; a rest does on its own.
void ChooseSizes(StaffBar& bar) {
    constexpr double fullHead = 8.2, smallHead = 6, fullRest = 10.5, smallRest = 8;
    const auto room = [&](int s, bool besideNotes) {
        double nearest = fullRest;
        for (const int other : {s - 1, s + 1}) {
            const bool there = other >= 0 && other < bar.Count() && (!besideNotes || bar.HasNotes(other));
            if (there) nearest = std::min(nearest, std::abs(bar.Column(other).X - bar.Column(s).X));
        }
        return nearest;
    };
    for (const BeamGroup& group : bar.Groups) {
        double nearest = fullHead;
        for (int s = group.First; s <= group.Last; ++s) {
            if (bar.HasNotes(s)) nearest = std::min(nearest, room(s, true));
        }
        for (int s = group.First; s <= group.Last; ++s) {
            bar.Column(s).Size =
                bar.HasNotes(s) ? SizeFor(nearest, fullHead, smallHead) : SizeFor(room(s, false), fullRest, smallRest);
        }
    }
}

HeadKind KindOf(const StaffNote& note, std::int32_t length) {
    if (note.Diamond) return length <= 1 ? HeadKind::DiamondOpen : HeadKind::Diamond;
    return length <= 0 ? HeadKind::Whole : length == 1 ? HeadKind::Half : HeadKind::Filled;
}

}  // namespace

Spelling SpellPitch(int pitch, bool useFlats, Clef clef) {
    const int shown = std::clamp(pitch, LowestPitch, HighestPitch);
    const int bottomLine = clef == Clef::Bass ? 31 : 52;
    Spelling spelling{ScaleStep(shown, useFlats) - ScaleStep(bottomLine, false), 0};
    if (IsBlackKey(shown)) spelling.Alteration = useFlats ? -1 : 1;
    return spelling;
}

bool Takes(const StaffPlace& place, int pitch) { return pitch >= LowestOnTreble ? place.TakesHigh : place.TakesLow; }

double StaffColumn::Highest() const {
    double y = Notes.empty() ? StemStart : Notes.front().Y;
    for (const StaffNote& note : Notes) y = std::min(y, note.Y);
    return y;
}

double StaffColumn::Lowest() const {
    double y = Notes.empty() ? StemStart : Notes.front().Y;
    for (const StaffNote& note : Notes) y = std::max(y, note.Y);
    return y;
}

bool StaffBar::HasNotes(int strum) const {
    for (int string = 0; string < std::clamp<int>(Track.Strings, 0, Core::StringCount); ++string) {
        if (!Strum(strum).Notes[string].Fret.empty()) return true;
    }
    return false;
}

StaffBar::StaffBar(const BarContext& bar, const StaffPlace& place)
    : Context(bar),
      Place(place),
      Track(place.Track),
      Bar(Track.Bars[bar.Bar]),
      Key(Track.IsDrum ? 0 : Bar.Key),
      UseFlats(KeyUsesFlats(Key)),
      Groups(BeamGroups(Track, Bar, bar.Info())) {
    const int count = Bar.Strums().Count();
    Columns.resize(static_cast<std::size_t>(count));
    Shown = count;
    double elapsed = 0;
    const double total = Core::BarLengthIn64ths(bar.File, bar.Bar);
    const double start = BarStartOffset(bar.ItsBar()), usable = bar.Width - start - 5;
    for (int s = 0; s < count; ++s) {
        StaffColumn& column = Column(s);
        // The columns of another track are worked out apart, by musical time in the frame of the bar above.
        column.X = Place.OfOther ? bar.X + start + (total > 0 ? elapsed / total : 0) * usable
                                 : Bar.Place.StrumX[s] + (bar.X - Bar.Place.BarX);
        elapsed += Core::StrumLength(Strum(s));
        column.Hooks = std::max(0, std::clamp(Strum(s).Length, 0, 6) - 2);
    }
    ChooseSizes(*this);
    KeepOffTheBarLine();
    IsDrum() ? PlaceDrumHeads(*this) : PlaceHeads(*this);
    bool sounds = false;
    // Of two staves a rest stands on that of the notes before it in the bar, at the bar's start on that of the first
    // ones, so that each staff can be counted.
    const bool divides = Place.TakesHigh != Place.TakesLow;
    bool takesRests = Place.TakesRests;
    for (int s = 0; divides && s < count; ++s) {
        if (!HasNotes(s)) continue;
        takesRests = !Column(s).Notes.empty();
        break;
    }
    for (int s = 0; s < count; ++s) {
        StaffColumn& column = Column(s);
        const bool empty = !HasNotes(s);
        if (divides && !empty) takesRests = !column.Notes.empty();
        column.Slash = empty && Strum(s).Hash != 0 && Place.TakesRests;
        column.Rest = empty && !column.Slash && takesRests;
        sounds = sounds || column.Sounds() || column.Rest;
    }
    // A bar that rests as a whole shows it in its middle.
    const bool restsWhole = count == 1 && Column(0).Rest && Strum(0).Length == 0 && !Strum(0).Dotted;
    Silent = !sounds || restsWhole;
    if (count > 0 && Column(count - 1).X > Right() - OverfullReach && HasWidth(bar)) LeaveOutWhatReachesOut();
}

bool HasWidth(const BarContext& bar) { return bar.Width > BarStartOffset(bar.ItsBar()) + 5; }

bool IsLeftOut(const StaffBar& bar, int strum) {
    constexpr double reach = 6;
    if (strum < bar.Count() || !bar.Context.Look.Printed) return false;
    const TabBar row(bar.Context);
    return row.Beside(1) || bar.Column(strum).X + reach > PaperRight(row);
}

void StaffBar::KeepOffTheBarLine() {
    constexpr double line = 6, doubleLine = 10, dots = 14, least = 5;
    const bool ends = Context.Bar == Context.ItsTrack().Bars.UpperBound();
    const double limit = Right() - (Context.Info().RepeatClose > 0 ? dots : ends ? doubleLine : line);
    for (int s = 1; HasWidth(Context) && s < All(); ++s) {
        const double x = Column(s).X, before = Column(s - 1).X;
        if (x <= limit || x > Right() - OverfullReach) continue;
        Column(s).X = std::round(std::max(limit, before + std::max(least, (x - before) / 2)));
        Column(s).X = std::min(x, Column(s).X);
    }
}

void StaffBar::LeaveOutWhatReachesOut() {
    while (Shown > 1 && Column(Shown - 1).X > Right() - OverfullReach) --Shown;
    std::erase_if(Groups, [&](const BeamGroup& group) { return group.First >= Shown; });
    if (!Groups.empty()) Groups.back().Last = std::min(Groups.back().Last, Shown - 1);
}

Spelling SpellNote(const StaffBar& bar, int string, const std::string& fret) {
    Core::Note note;
    note.Fret = fret;
    if (bar.IsDrum()) return {DrumLaneStep(LaneOfNote(bar.Track, string, note)), 0};
    return SpellPitch(WrittenPitch(bar.Track, string, note), bar.UseFlats, bar.Place.Clef);
}

namespace {

/// Heads of neighbouring places that are three semitones apart, as A flat and B, count as no neighbours: the upper one
/// steps aside all the same where it would stand on the other.
void PartAugmentedSeconds(StaffColumn& column, double aside) {
    constexpr int augmentedSecond = 3;
    for (StaffNote& upper : column.Notes) {
        const auto touches = [&](double x) {
            return std::ranges::any_of(column.Notes, [&](const StaffNote& other) {
                return &other != &upper && other.X == x && std::abs(other.Step - upper.Step) <= 1;
            });
        };
        const bool onLower = std::ranges::any_of(column.Notes, [&](const StaffNote& lower) {
            return lower.X == upper.X && upper.Step - lower.Step == 1 && upper.Pitch - lower.Pitch == augmentedSecond;
        });
        const double away = upper.X == column.X ? column.X + aside : column.X;
        if (onLower && !touches(away)) upper.X = away;
    }
    column.Displaced = std::ranges::any_of(column.Notes, [&](const StaffNote& note) { return note.X != column.X; });
}

}  // namespace

void PlaceHeads(StaffBar& bar) {
    for (int s = 0; s < bar.Count(); ++s) {
        StaffColumn& column = bar.Column(s);
        const Core::Strum& strum = bar.Strum(s);
        bool allDisplaced = true;
        // A whole note is wider than the others and steps further aside.
        const double aside = (HeadAside + (strum.Length <= 0 ? WholeExtra : 0)) * column.Scale();
        for (const Head& head : StrumHeads(bar.Track, strum, bar.UseFlats)) {
            const Core::Note& note = strum.Notes[head.String];
            StaffNote placed{head.String, WrittenPitch(bar.Track, head.String, note)};
            if (!Takes(bar.Place, placed.Pitch)) continue;
            const Spelling spelling = SpellPitch(placed.Pitch, bar.UseFlats, bar.Place.Clef);
            placed.Step = spelling.Step;
            placed.Alteration = spelling.Alteration;
            placed.X = column.X + (head.DX != 0 ? aside : 0);
            placed.Y = bar.YOf(spelling.Step);
            placed.Cross = note.Fret == "x" || note.Fret == "X";
            placed.Diamond = note.Harmonic != Core::NoHarmonic;
            allDisplaced = allDisplaced && head.DX != 0;
            column.Displaced = column.Displaced || head.DX != 0;
            column.Notes.push_back(placed);
        }
        // Its neighbours may stand on the other of two staves.
        if (allDisplaced && column.Displaced) {
            for (StaffNote& note : column.Notes) note.X = column.X;
            column.Displaced = false;
        }
        if (column.Notes.size() > 1) PartAugmentedSeconds(column, aside);
    }
}

void DrawNoteHead(Picture& picture, const StaffBar& bar, int strum, const StaffNote& note) {
    // The circle of a longer one is no higher than a head, so that those of neighbouring strings stay apart.
    constexpr double crossSize = 10.5, crossDrop = 3.6, circled = 0.67, circle = 3.6, openAway = 8, openRadius = 2.2;
    const std::int32_t length = bar.Strum(strum).Length;
    const StaffColumn& column = bar.Column(strum);
    if (note.Cross) {
        const double scale = column.Scale() * (length <= 1 ? circled : 1);
        const Font font{.Name = "Arial", .Size = crossSize * scale, .Bold = true};
        Print(picture, font, note.X, note.Y + crossDrop * scale, "x");
        if (length <= 1) picture.Circle(note.X, note.Y, circle, 1);
    } else {
        picture.Stamp(HeadShape(KindOf(note, length), column.Size), note.X, note.Y);
    }
    if (note.Open) picture.Circle(note.X, note.Y - openAway, openRadius, 1);
    const Core::Note& own = bar.Strum(strum).Notes[note.String];
    if (own.Ghost) picture.Stamp(ParenthesesShape(), note.X, note.Y);
}

void DrawLedgerLine(Picture& picture, double x, double y, LedgerLine variant, double scale) {
    const bool wide = variant == LedgerLine::Wide || variant == LedgerLine::WideAtSharp;
    const bool sharp = variant == LedgerLine::PlainAtSharp || variant == LedgerLine::WideAtSharp;
    const double half = std::round((wide ? 8 : 7) * scale);
    // Of a sharp's line the first half ends at the head, of another's in its middle.
    const double meet = sharp ? x - std::round(HeadHalf * scale) : x;
    picture.Line(x - half, y, meet, y);
    picture.Line(meet, y, x + half, y);
}

void DrawLedgerLines(Picture& picture, const StaffBar& bar, int strum) {
    constexpr int topLine = 8;
    const StaffColumn& column = bar.Column(strum);
    const bool wide = bar.Strum(strum).Length <= 0;
    // Those that a farther head of the same side draws for a nearer one stand once.
    const auto drawTo = [&](bool displaced, bool above) {
        int farthest = above ? topLine : 0;
        bool sharpThere = false;
        double x = column.X;
        for (const StaffNote& note : column.Notes) {
            if ((note.X != column.X) != displaced) continue;
            x = note.X;
            if (above ? note.Step > farthest : note.Step < farthest) {
                farthest = note.Step;
                sharpThere = note.Alteration > 0;
            }
        }
        for (int step = above ? topLine + 2 : -2; above ? step <= farthest : step >= farthest; step += above ? 2 : -2) {
            const bool sharp = sharpThere && std::abs(step - farthest) <= 1;
            DrawLedgerLine(picture, x, bar.YOf(step),
                           wide ? (sharp ? LedgerLine::WideAtSharp : LedgerLine::Wide)
                                : (sharp ? LedgerLine::PlainAtSharp : LedgerLine::Plain),
                           column.Scale());
        }
    };
    for (const bool above : {true, false}) {
        drawTo(false, above);
        if (column.Displaced) drawTo(true, above);
    }
}

void DrawDots(Picture& picture, const StaffBar& bar, int strum) {
    constexpr double radius = 1.35, away = 8.3, awayFromFlag = 11.5, clear = 2.4;
    const Core::Strum& own = bar.Strum(strum);
    const StaffColumn& column = bar.Column(strum);
    if (!own.Dotted) return;
    if (column.Rest || column.Slash) {
        picture.Disc(column.X + (own.Length <= 1 || column.Slash ? away : 6.5), bar.Place.Top + column.RestDrop + 10.5,
                     radius);
        return;
    }
    const bool flagged = column.StemUp && column.Hooks > 0 && !column.Beamed;
    double x = column.X + ((column.Displaced ? 6 : 0) + (flagged ? awayFromFlag : away)) * column.Scale();
    // Parentheses and wide heads reach further than others.
    for (const StaffNote& note : column.Notes) x = std::max(x, note.X + HeadReach(bar, strum, note) + clear);
    std::vector<const StaffNote*> notes;
    for (const StaffNote& note : column.Notes) notes.push_back(&note);
    std::sort(notes.begin(), notes.end(), [](auto* a, auto* b) { return a->Step > b->Step; });
    std::vector<int> taken;
    const StaffNote* above = nullptr;
    for (const StaffNote* note : notes) {
        if (above && above->Step == note->Step) continue;  // one dot for both heads of a place
        above = note;
        // In the space above a line; in the one below when that is taken.
        int step = note->OnLine() ? note->Step + 1 : note->Step;
        const auto isTaken = [&](int at) { return std::find(taken.begin(), taken.end(), at) != taken.end(); };
        if (isTaken(step) && note->OnLine()) step -= 2;
        if (isTaken(step)) continue;
        taken.push_back(step);
        picture.Disc(x, bar.YOf(step), radius);
    }
}

}  // namespace Quillon::Drawing
