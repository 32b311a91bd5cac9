// The staves of a bar: all of it worked out first, then painted column by column.
#include <algorithm>

#include "core/mod_TabFileManipulation.h"
#include "drawing/NotationParts.h"

namespace Quillon::Drawing {

namespace {

/// Of two staves the treble shows strokes that stand for chords, unless all notes of the bar stand on the bass.
void GiveStrokesToTheStaffInUse(const BarContext& bar, std::vector<StaffPlace>& places) {
    if (places.size() < 2 || places[1].OfOther || bar.ItsTrack().IsDrum) return;
    bool high = false, low = false;
    for (const Core::Strum& strum : bar.ItsBar().Strums()) {
        for (int string = 0; string < std::clamp<int>(bar.ItsTrack().Strings, 0, Core::StringCount); ++string) {
            if (strum.Notes[string].Fret.empty()) continue;
            const bool takes = Takes(places[1], WrittenPitch(bar.ItsTrack(), string, strum.Notes[string]));
            (takes ? low : high) = true;
        }
    }
    places[0].TakesRests = high || !low;
    places[1].TakesRests = !places[0].TakesRests;
}

}  // namespace

std::vector<StaffBar> StaffBarsOf(const BarContext& bar) {
    std::vector<StaffPlace> places = StaffPlacesOf(bar);
    GiveStrokesToTheStaffInUse(bar, places);
    std::vector<StaffBar> staves;
    staves.reserve(places.size());
    for (const StaffPlace& place : places) {
        if (bar.Bar > place.Track.Bars.UpperBound()) continue;
        staves.emplace_back(bar, place);
        PlaceAccidentals(staves.back());
    }
    MakeRoomBefore(staves);
    for (StaffBar& staff : staves) {
        PlaceStems(staff);
        PlaceBeams(staff);
    }
    return staves;
}

std::vector<double> HeadColumns(const StaffBar& bar) {
    std::vector<double> columns;
    for (const StaffColumn& column : bar.Columns) columns.push_back(column.X);
    return columns;
}

void DrawStrumNotation(Picture& picture, const StaffBar& bar, int strum) {
    const StaffColumn& column = bar.Column(strum);
    if (column.Rest) DrawRest(picture, bar, strum);
    if (column.Slash) picture.Stamp(HeadShape(HeadKind::Slash), column.X, bar.Place.Top + 2.0 * StaffStep);
    if (column.Sounds()) {
        picture.SetColor(bar.Context.File.LineColor);
        DrawLedgerLines(picture, bar, strum);
        picture.SetColor(bar.Ink());
        for (const StaffNote& note : column.Notes) {
            DrawNoteHead(picture, bar, strum, note);
            if (note.Sign == Accidental::None) continue;
            picture.Stamp(AccidentalShape(note.Sign, column.SignsAreSmall()), note.SignX, note.Y);
        }
        DrawStem(picture, bar, strum);
        DrawGraceNotes(picture, bar, strum);
    }
    if (column.Sounds() || column.Rest) DrawDots(picture, bar, strum);
    DrawStaffLinks(picture, bar, strum);
    DrawStaffSigns(picture, bar, strum);
}

void DrawPercussionStrum(Picture& picture, const StaffBar& bar, int strum) {
    // The heads of a drum staff are placed by lane; from there on it is drawn as any other.
    DrawStrumNotation(picture, bar, strum);
}

void DrawStaff(Picture& picture, const StaffBar& staff) {
    picture.SetColor(staff.Ink());
    if (staff.Silent) return DrawBarRest(picture, staff);
    DrawStaffLinksFromLastRow(picture, staff);
    for (int strum = 0; strum < staff.Count(); ++strum) {
        staff.IsDrum() ? DrawPercussionStrum(picture, staff, strum) : DrawStrumNotation(picture, staff, strum);
    }
    picture.SetColor(OverfullInk);
    for (int strum = staff.Count(); strum < staff.All(); ++strum) {
        if (IsLeftOut(staff, strum)) continue;
        for (const StaffNote& note : staff.Column(strum).Notes) DrawNoteHead(picture, staff, strum, note);
    }
    picture.SetColor(staff.Ink());
    DrawBeams(picture, staff);
    DrawTuplets(picture, staff);
}

void DrawNotation(Picture& picture, const std::vector<StaffBar>& staves) {
    for (const StaffBar& staff : staves) DrawStaff(picture, staff);
}

void TakeStaffRoom(TabBar& bar, const std::vector<StaffBar>& staves) {
    constexpr double side = 8, displaced = 6, margin = 1;
    for (const StaffBar& staff : staves) {
        if (staff.Place.OfOther) continue;
        const bool top = staff.Place.Top == bar.Context.Y;
        const bool bottom = !bar.Track.ShowTab && staff.Bottom() == bar.Bottom;
        const auto take = [&](double left, double highest, double right, double lowest) {
            if (top && highest < staff.Place.Top - 2) {
                bar.Around.Take({left, highest - margin, right, static_cast<double>(staff.Place.Top)});
            }
            if (bottom && lowest > staff.Bottom() + 2) {
                bar.Around.Take({left, static_cast<double>(staff.Bottom()), right, lowest + margin});
            }
        };
        for (int s = 0; s < staff.Count(); ++s) {
            const StaffColumn& column = staff.Column(s);
            if (!column.Sounds()) continue;
            const double end = column.HasStem ? column.StemEnd : column.StemStart;
            take(std::min(column.Left, column.X - side), std::min(column.Highest() - 4, end),
                 column.X + side + (column.Displaced ? displaced : 0), std::max(column.Lowest() + 4, end));
        }
        for (int s = 0; s < staff.Count(); ++s) {
            for (const StaffNote& note : staff.Column(s).Notes) {
                const Core::Note& own = staff.Strum(s).Notes[note.String];
                const bool bow = own.Tied || own.Technique == Core::HammerOnPullOff;
                if (bow && !staff.Column(s).StemUp) take(note.X, note.Y - 12, staff.NextX(s), note.Y);
                if (own.Technique == Core::HammerOnPullOff && staff.ShowsHands() && !staff.Column(s).StemUp) {
                    // The letter over the bow.
                    constexpr double letterTop = 21, half = 4;
                    const double other = s + 1 < staff.Count() && !staff.Column(s + 1).Notes.empty()
                                             ? staff.Column(s + 1).Highest()
                                             : note.Y;
                    const double middle = (note.X + staff.NextX(s)) / 2;
                    take(middle - half, std::min(note.Y, other) - letterTop, middle + half, note.Y);
                }
                if (own.Technique == Core::Staccato && staff.ShowsHands()) {
                    const StaffColumn& column = staff.Column(s);
                    const double dot = StaccatoY(staff, column);
                    take(column.X - 3, dot - 2, column.X + 3, dot + 2);
                }
                if (own.HasBend && !bar.Track.ShowTab) {
                    const double curves = static_cast<double>(std::max<std::size_t>(2, BendTurns(own).size())) - 1;
                    take(note.X, note.Y - 20, note.X + 11 + BendStep * curves, note.Y);
                }
            }
        }
        for (const BeamStroke& beam : staff.Beams) {
            take(beam.X1, std::min(beam.Y1, beam.Y2) - 2, beam.X2, std::max(beam.Y1, beam.Y2) + 2);
        }
    }
}

}  // namespace Quillon::Drawing
