// What the sources of the staff's painter share: a bar of one staff as it is going to stand, worked out before any of
// it is painted.
#pragma once

#include <vector>

#include "drawing/NotationShapes.h"
#include "drawing/TabParts.h"
#include "drawing/mod_NotationDrawing.h"

namespace Quillon::Drawing {

constexpr int StaffStep = 7;         ///< between two lines
constexpr double HalfStep = 3.5;     ///< between a line and a space: the exact height, which clicks round
constexpr int StaffLineSpan = 28;    ///< from the top line to the bottom line
constexpr double HeadHalf = 4;       ///< from a head's middle to the middle of its stem
constexpr double OctaveLong = 24.5;  ///< a stem

/// Where a staff stands in a row, and of which track.
struct StaffPlace {
    const Core::Track& Track;
    Drawing::Clef Clef;
    int Top;                 ///< y of the top line
    bool TakesHigh = true;   ///< notes from middle C, sounding 48, up
    bool TakesLow = true;    ///< notes below that
    bool TakesRests = true;  ///< those of a bar without notes, and strokes that stand for chords
    bool OfOther = false;    ///< the staff of the track whose lyrics are shown
};
/// The staves of a row from the top down.
std::vector<StaffPlace> StaffPlacesOf(const BarContext& bar);

struct StaffNote {
    int String = 0;
    int Pitch = 0;  ///< as written
    int Step = 0;   ///< half steps of the staff above its bottom line
    double X = 0;   ///< of the head's middle
    double Y = 0;
    int Alteration = 0;  ///< 1 sharp, -1 flat, as spelled
    Accidental Sign = Accidental::None;
    double SignX = 0;
    Accidental GraceSign = Accidental::None;  ///< of its grace note
    bool Cross = false;                       ///< a dead note, or a cymbal
    bool Diamond = false;                     ///< a harmonic
    bool Open = false;                        ///< an open hi-hat, which nothing else tells where no tab shows
    bool OnLine() const { return Step % 2 == 0; }
};

struct StaffColumn {
    double X = 0;        ///< of its undisplaced heads
    double Left = 0;     ///< of what stands before the heads: accidentals, grace notes
    double GraceX = 0;   ///< of the heads of its grace notes
    double StrokeX = 0;  ///< of the stroke over its strings, where the staff shows it
    HeadSize Size = HeadSize::Full;
    std::vector<StaffNote> Notes;
    bool Rest = false;
    double RestDrop = 0;  ///< of a rest that makes room for a beam
    bool Slash = false;   ///< a stroke that stands for a chord
    bool StemUp = true;
    bool HasStem = false;
    double StemX = 0;
    double StemStart = 0;  ///< at the head that is farthest from its end
    double StemEnd = 0;
    int Hooks = 0;  ///< flags or beams that its length asks for
    bool Beamed = false;
    bool Displaced = false;  ///< some head stands right of the others
    bool Crowded = false;    ///< its accidentals are small ones, as full ones find no room

    bool Sounds() const { return !Notes.empty() || Slash; }
    double Scale() const { return ScaleOf(Size); }
    bool SignsAreSmall() const { return Crowded || Size != HeadSize::Full; }
    double Highest() const;  ///< y of the topmost head
    double Lowest() const;
};

/// A stroke of a beam from stem to stem.
struct BeamStroke {
    double X1, Y1, X2, Y2;  ///< middle of the stroke
};

/// Strums under one beam.
struct BeamRun {
    std::vector<int> Strums;
    bool Up = true;
    double Start = 0, Slope = 0;  ///< y of the main beam's middle at the first stem, and its fall per pixel
};

struct StaffBar {
    StaffBar(const BarContext& bar, const StaffPlace& place);

    const BarContext& Context;
    const StaffPlace Place;
    const Core::Track& Track;
    const Core::Bar& Bar;
    std::int32_t Key;  ///< of the bar; drums stand in none
    bool UseFlats;
    int Shown = 0;        ///< columns that stand in the bar; those of a bar too full for its time reach out of it
    bool Silent = false;  ///< nothing of the bar stands on this staff, or one rest as long as the bar
    std::vector<BeamGroup> Groups;
    std::vector<StaffColumn> Columns;
    std::vector<BeamStroke> Beams;  ///< the first of each run is the one that all its stems reach
    std::vector<BeamRun> Runs;

    int Count() const { return Shown; }
    int All() const { return static_cast<int>(Columns.size()); }
    StaffColumn& Column(int strum) { return Columns[static_cast<std::size_t>(strum)]; }
    /// A column at the very end of the bar, as the first one too many for its time, steps aside for the line.
    void KeepOffTheBarLine();
    void LeaveOutWhatReachesOut();
    const StaffColumn& Column(int strum) const { return Columns[static_cast<std::size_t>(strum)]; }
    const Core::Strum& Strum(int strum) const { return Bar.Strums()[strum]; }
    /// True when a strum holds a note that is drawn; those on strings that the track no longer uses are not.
    bool HasNotes(int strum) const;
    int Bottom() const { return Place.Top + StaffLineSpan; }
    double YOf(int step) const { return Bottom() - HalfStep * step; }
    double Right() const { return Context.X + Context.Width; }
    double NextX(int strum) const { return strum + 1 < Count() ? Column(strum + 1).X : Right(); }
    Color Ink() const { return Context.File.NoteFontColor; }
    /// Where no tab tells what the hands do, the staff does.
    bool ShowsHands() const { return !Track.ShowTab; }
    bool IsDrum() const { return Place.Clef == Clef::Percussion; }
};

/// Half steps above the bottom line of a staff, and the sign that the spelling carries; a pitch off the table stands at
/// the end it is past.
struct Spelling {
    int Step = 0;
    int Alteration = 0;
};
Spelling SpellPitch(int pitch, bool useFlats, Clef clef);
/// The alteration that a key gives to a place of the staff.
int KeyAlteration(std::int32_t key, int step, Clef clef);
/// Sharps of a key, or flats counted below 0.
int KeySigns(std::int32_t key);
/// The place of a fret on a string of the bar's track; on a drum track that of the lane of a letter.
Spelling SpellNote(const StaffBar& bar, int string, const std::string& fret);
/// True when the staff takes a pitch.
bool Takes(const StaffPlace& place, int pitch);

// What works a bar out, in this order.
void PlaceHeads(StaffBar& bar);
void PlaceDrumHeads(StaffBar& bar);
void PlaceAccidentals(StaffBar& bar);
/// Places what stands before the heads of a column: accidentals, grace notes, strokes.
void PlaceBefore(StaffBar& bar, int strum);
/// Moves columns that would print over the bar line, a repeat's dots or the note before a little to
/// the right, alike on all staves.
void MakeRoomBefore(std::vector<StaffBar>& staves);
/// The parts of a column: heads, accidentals, ledger lines above the staff, grace notes, a rest.
std::vector<Area> AreasOf(const StaffBar& bar, int strum);
/// From a head's middle to its side.
double HeadReach(const StaffBar& bar, int strum, const StaffNote& note);
/// A grace note's head, told from the column's place for them.
struct GraceHead {
    int Step = 0;
    double DX = 0;  ///< right of the stem when another head stands beside it
    Accidental Sign = Accidental::None;
    double SignDX = 0;
    bool Cross = false;
};
/// The heads of a strum's grace notes from the top down; those of one place stand once.
std::vector<GraceHead> GraceHeads(const StaffBar& bar, int strum);
/// What an accidental covers.
Area SignArea(const StaffColumn& column, const StaffNote& note);
void PlaceStems(StaffBar& bar);
void PlaceBeams(StaffBar& bar);

// What paints it.
/// Of the figures of the time signature on a staff.
double TimeFiguresWidth(const BarContext& bar);
/// How far a crowded key signature pushes the time signature, and the first column of the staves, to the right.
double SignatureOverhang(const BarContext& bar);
void DrawSignatures(Picture& picture, const BarContext& bar, const StaffPlace& place);
/// What the clefs of a row's first bar take left of it, 0 where none stand there: the bar shows its own, or the row
/// does without.
double RowHeadWidth(const BarContext& bar);
/// A staff's clef and key left of its row.
void DrawRowHead(Picture& picture, const BarContext& bar, const StaffPlace& place);
void DrawStrumNotation(Picture& picture, const StaffBar& bar, int strum);
void DrawPercussionStrum(Picture& picture, const StaffBar& bar, int strum);
void DrawNoteHead(Picture& picture, const StaffBar& bar, int strum, const StaffNote& note);
enum class LedgerLine { Plain, PlainAtSharp, Wide, WideAtSharp };
/// A short line through x, y in two pieces: 14 pixels from 3 left of the head, further for a whole note's and shorter
/// for a small head's. The pieces of a sharp's line meet at the head's side, so that they tell the variants apart.
void DrawLedgerLine(Picture& picture, double x, double y, LedgerLine variant, double scale = 1);
void DrawLedgerLines(Picture& picture, const StaffBar& bar, int strum);
void DrawRest(Picture& picture, const StaffBar& bar, int strum);
/// The rest of a whole bar, in its middle.
void DrawBarRest(Picture& picture, const StaffBar& bar);
void DrawDots(Picture& picture, const StaffBar& bar, int strum);
void DrawStem(Picture& picture, const StaffBar& bar, int strum);
void DrawBeams(Picture& picture, const StaffBar& bar);
void DrawTuplets(Picture& picture, const StaffBar& bar);
/// A small head before the column for each string's grace note.
void DrawGraceNotes(Picture& picture, const StaffBar& bar, int strum);
/// Ties, bows of hammer-ons and pull-offs, slides, and the short bows of notes that ring on.
void DrawStaffLinks(Picture& picture, const StaffBar& bar, int strum);
void DrawStaffLinksFromLastRow(Picture& picture, const StaffBar& bar);
/// Strokes of the hand, tremolo picking and slides into and out of notes, where no tab tells them.
void DrawStaffSigns(Picture& picture, const StaffBar& bar, int strum);

/// Width of a curve of a bend where no tab shows it.
constexpr double BendStep = 7;
/// How far the strokes of tremolo picking reach to either side of a stem.
constexpr double TremoloReach = 4;
/// Strokes of tremolo picking that a column shows, 0 to 3.
int TremoloStrokes(const StaffBar& bar, int strum);
/// x of the stem that a column is going to have.
double StemXAhead(const StaffBar& bar, int strum);

/// Of the dot of a staccato column, which holds notes.
double StaccatoY(const StaffBar& bar, const StaffColumn& column);

/// A staff of a bar with all that stands on it.
void DrawStaff(Picture& picture, const StaffBar& staff);
/// The staves of a bar with all that stands on them.
void DrawNotation(Picture& picture, const std::vector<StaffBar>& staves);
/// The staves of a bar, worked out.
std::vector<StaffBar> StaffBarsOf(const BarContext& bar);
/// The number of the bar: at its place, or as far above it as the notes there ask for.
Label PlacedBarNumber(const BarContext& bar);
/// False for a bar of a page so narrow that its columns find no room, where none tells of a bar too full.
bool HasWidth(const BarContext& bar);
/// True for a column of a bar too full for its time that a printed page leaves out, as it would stand over the music of
/// the next bar, or past the edge of the paper. On the screen all of them show.
bool IsLeftOut(const StaffBar& bar, int strum);
/// How many strums with notes a printed page leaves out on a staff, or on the tab where it is null: "+2" over the end
/// of the bar. No text where it leaves out none.
Label LeftOutLabel(const TabBar& bar, const StaffBar* staff);
/// x of the heads of each column, of those that a bar too full leaves out too.
std::vector<double> HeadColumns(const StaffBar& bar);
/// Takes the room above the row that the notes reach into, and below it where no tab stands.
void TakeStaffRoom(TabBar& bar, const std::vector<StaffBar>& staves);

}  // namespace Quillon::Drawing
