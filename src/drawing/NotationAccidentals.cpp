// Accidentals: which heads carry one, and where they stand so that none prints over another.
#include <algorithm>
#include <array>
#include <map>

#include "core/mod_TabFileManipulation.h"
#include "drawing/NotationParts.h"
#include "drawing/mod_PageLayout.h"

namespace Quillon::Drawing {

namespace {

constexpr double SignHalf = 2.8;   ///< of its width
constexpr double SignStep = 5.9;   ///< from one column of accidentals to the next
constexpr double SmallSign = 0.7;  ///< of an accidental at a small head
constexpr double HeadGap = 1.2;
constexpr double LedgerReach = 1.6;  ///< of a ledger line beyond its head and the gap
constexpr double RestReach = 5.5;

Accidental SignOf(int alteration) {
    return alteration > 0 ? Accidental::Sharp : alteration < 0 ? Accidental::Flat : Accidental::Natural;
}

/// Pitches that a tie of the bar before holds on each string, -1 without one.
std::array<int, Core::StringCount> HeldPitches(const StaffBar& bar) {
    std::array<int, Core::StringCount> held;
    held.fill(-1);
    if (bar.Context.Bar == 0) return held;
    const auto& strums = bar.Track.Bars[bar.Context.Bar - 1].Strums();
    for (int string = 0; string < Core::StringCount; ++string) {
        for (int s = strums.UpperBound(); s >= 0; --s) {
            const Core::Note& note = strums[s].Notes[string];
            if (note.Fret.empty()) continue;
            if (note.Tied) held[static_cast<std::size_t>(string)] = WrittenPitch(bar.Track, string, note);
            break;
        }
    }
    return held;
}

constexpr int Unclear = 9;  ///< two alterations of one place sounded together

/// What alters the places of a staff in the course of a bar.
class Alterations {
public:
    explicit Alterations(const StaffBar& where) : bar(where) {}

    int Of(int step) const {
        const auto known = altered.find(step);
        return known != altered.end() ? known->second : KeyAlteration(bar.Key, step, bar.Place.Clef);
    }
    void Set(int step, int alteration) { altered[step] = alteration; }

private:
    const StaffBar& bar;
    std::map<int, int> altered;
};

/// Signs of the grace notes of a column, which hold for what follows on their places as any others do.
void ChooseGraceSigns(const StaffBar& bar, int strum, std::vector<StaffNote>& notes, Alterations& altered) {
    std::vector<Spelling> shown;
    for (StaffNote& note : notes) {
        const Core::Note& own = bar.Strum(strum).Notes[note.String];
        if (!own.HasGrace || own.GraceFret.empty() || own.GraceFret == "x" || own.GraceFret == "X") continue;
        const Spelling spelling = SpellNote(bar, note.String, own.GraceFret);
        if (spelling.Alteration == altered.Of(spelling.Step)) continue;
        note.GraceSign = SignOf(spelling.Alteration);
        shown.push_back(spelling);
    }
    for (const Spelling& spelling : shown) altered.Set(spelling.Step, spelling.Alteration);
}

/// Gives its sign to each head that differs from the key and from what stood on its place in the bar before.
void ChooseSigns(StaffBar& bar) {
    auto held = HeldPitches(bar);
    Alterations altered(bar);
    for (int s = 0; s < bar.Count(); ++s) {
        std::vector<StaffNote>& notes = bar.Column(s).Notes;
        ChooseGraceSigns(bar, s, notes, altered);
        const auto clashes = [&](const StaffNote& note) {
            return std::any_of(notes.begin(), notes.end(), [&](const StaffNote& other) {
                return !other.Cross && other.Step == note.Step && other.Alteration != note.Alteration;
            });
        };
        for (StaffNote& note : notes) {
            int& holds = held[static_cast<std::size_t>(note.String)];
            const bool tiedOver = holds == note.Pitch;
            holds = -1;
            if (tiedOver || note.Cross) continue;
            if (clashes(note)) {
                // Each shows its own; so does the next on this place.
                altered.Set(note.Step, Unclear);
                const bool there = std::any_of(notes.data(), &note, [&](const StaffNote& other) {
                    return other.Step == note.Step && other.Alteration == note.Alteration &&
                           other.Sign != Accidental::None;
                });
                if (!there) note.Sign = SignOf(note.Alteration);
                continue;
            }
            if (note.Alteration == altered.Of(note.Step)) continue;
            altered.Set(note.Step, note.Alteration);
            note.Sign = SignOf(note.Alteration);
        }
    }
}

/// The topmost sign nearest to the heads, then the lowest, and so on inward; each in the first column where it is free.
void PlaceSigns(StaffColumn& column) {
    std::vector<StaffNote*> signs;
    for (StaffNote& note : column.Notes) {
        if (note.Sign != Accidental::None) signs.push_back(&note);
    }
    std::sort(signs.begin(), signs.end(), [](auto* a, auto* b) {
        return a->Y != b->Y ? a->Y < b->Y : a->X > b->X;  // on one place in the order of their heads
    });
    std::vector<std::vector<Area>> columns;
    const double scale = column.SignsAreSmall() ? SmallSign : 1;
    const bool atLedger = std::any_of(signs.begin(), signs.end(),
                                      [](const StaffNote* note) { return note->Step >= 10 || note->Step <= -2; });
    const double first = column.Left - (HeadGap + SignHalf + (atLedger ? LedgerReach : 0)) * scale;
    for (std::size_t low = 0, high = signs.size(), turn = 0; low < high; ++turn) {
        StaffNote& note = *(turn % 2 == 0 ? signs[low++] : signs[--high]);
        const Area own = SignArea(column, note);
        const auto isFree = [&](const std::vector<Area>& taken) {
            return std::none_of(taken.begin(), taken.end(),
                                [&](const Area& other) { return own.Top < other.Bottom && other.Top < own.Bottom; });
        };
        std::size_t at = 0;
        while (at < columns.size() && !isFree(columns[at])) ++at;
        if (at == columns.size()) columns.emplace_back();
        columns[at].push_back(own);
        note.SignX = first - SignStep * scale * static_cast<double>(at);
    }
    for (const StaffNote* note : signs) column.Left = std::min(column.Left, note->SignX - SignHalf * scale);
}

/// Grace notes, and what the hands do before the notes sound.
void PlaceWhatComesBefore(StaffBar& bar, int strum) {
    constexpr double graceHalf = 3.5, signHalf = 2, strokeAway = 5, strokeHalf = 3, slide = 10;
    StaffColumn& column = bar.Column(strum);
    bool slidesInto = false;
    for (const StaffNote& note : column.Notes) {
        const Core::Note& own = bar.Strum(strum).Notes[note.String];
        if (own.Technique == Core::SlideIntoUp || own.Technique == Core::SlideIntoDown) slidesInto = true;
    }
    if (slidesInto && bar.ShowsHands()) column.Left -= slide;
    if (const std::vector<GraceHead> graces = GraceHeads(bar, strum); !graces.empty()) {
        double right = 0, left = -graceHalf;
        for (const GraceHead& head : graces) {
            right = std::max(right, head.DX);
            if (head.Sign != Accidental::None) left = std::min(left, head.SignDX - signHalf);
        }
        column.GraceX = column.Left - graceHalf - 1 - right;
        column.Left = column.GraceX + left - 0.5;
    }
    if (bar.Strum(strum).Stroke != 0 && bar.ShowsHands() && column.Sounds()) {
        column.StrokeX = column.Left - strokeAway;
        column.Left = column.StrokeX - strokeHalf;
    }
}

}  // namespace

Area SignArea(const StaffColumn& column, const StaffNote& note) {
    const double scale = column.SignsAreSmall() ? SmallSign : 1;
    const bool flat = note.Sign == Accidental::Flat;
    return {note.SignX - SignHalf * scale, note.Y - (flat ? 11.5 : 8) * scale, note.SignX + SignHalf * scale,
            note.Y + (flat ? 5 : 8) * scale};
}

double HeadReach(const StaffBar& bar, int strum, const StaffNote& note) {
    constexpr double usual = 4.6, whole = 5.5, parentheses = 8.8;
    if (bar.Strum(strum).Notes[note.String].Ghost) return parentheses;
    return (bar.Strum(strum).Length <= 0 ? whole : usual) * bar.Column(strum).Scale();
}

void PlaceAccidentals(StaffBar& bar) {
    if (!bar.IsDrum()) ChooseSigns(bar);
    for (int s = 0; s < bar.Count(); ++s) PlaceBefore(bar, s);
}

void PlaceBefore(StaffBar& bar, int strum) {
    StaffColumn& column = bar.Column(strum);
    column.Left = column.X - RestReach * column.Scale();
    if (!column.Notes.empty()) {
        column.Left = column.X;
        for (const StaffNote& note : column.Notes) {
            column.Left = std::min(column.Left, note.X - HeadReach(bar, strum, note));
        }
    }
    PlaceSigns(column);
    PlaceWhatComesBefore(bar, strum);
    // The strokes stand lower or higher than what else comes before the heads.
    if (TremoloStrokes(bar, strum) > 0) column.Left = std::min(column.Left, StemXAhead(bar, strum) - TremoloReach);
}

}  // namespace Quillon::Drawing
