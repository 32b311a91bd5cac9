// One bar in lines, circles and small text: frame, figures, techniques, staves, signs, lyrics.
//
// x and y are the bar's left edge and the top of its row; the columns are the StrumX of the bar's place.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/mod_TabFileStructure.h"
#include "platform/Picture.h"

namespace Quillon::Drawing {

/// Colour of bar numbers and repeat counts.
constexpr Color HighlightColor = PackColor(49, 106, 197);

/// Points of the largest text that is drawn; a file may ask for any number.
constexpr double LargestFontSize = 200;

/// How all rows of a laid-out track look, beside what the document says.
struct RowLook {
    double LyricsSize = 0;   ///< points; 0 without lyrics
    int LyricsDrop = 0;      ///< the most by which they stand lower under low notes, so that they stay off the next row
    int LyricsHeight = 0;    ///< of all lines of lyrics together
    int ChartDrop = 0;       ///< how much lower than usual chord charts stand, to make room for the lyrics above them
    int PaperLeft = 0;       ///< where texts may begin, from a row's left edge; with PaperRight 0 they reach anywhere
    int PaperRight = 0;      ///< where they must end
    int TopMargin = 0;       ///< from a page's top to its first row; 0 where marks may rise as far as they want
    double HeaderLeft = 0;   ///< of the lower lines of a page's header: where the texts at the left end,
    double HeaderRight = 0;  ///< and where those at the right begin, both from a row's left edge
    int RowHeadRoom = 0;     ///< pixels left of a row that clefs may take; 0 for no clef on a row that changes nothing
    bool Printed = false;    ///< on paper or in a file: nothing stands over the music of another bar
};

struct Label {
    std::string Text;
    int X = 0;
    int Y = 0;  ///< top of the text
};

/// Everything a bar's painter reads.
struct BarContext {
    const Core::TabFile& File;
    int Track;
    int Bar;
    int X;
    int Y;
    int Width;
    RowLook Look{};
    mutable std::optional<Label> Number{};  ///< the bar's, once it found its place among the notes

    const Core::Track& ItsTrack() const { return File.Tracks[Track]; }
    const Core::Bar& ItsBar() const { return ItsTrack().Bars[Bar]; }
    const Core::BarInfo& Info() const { return File.BarInfos[Bar]; }
};

/// Bar number, staves with clef and figures, repeat dots, tab lines, bar lines, repeat count.
void DrawBarFrame(Picture& picture, const BarContext& bar);
/// Every strum from left to right, the marks above and below the tab, or the staves where no tab shows, which make room
/// for one another, then the notation of the staves.
void DrawBarStrums(Picture& picture, const BarContext& bar);
/// One column: fret numbers and the techniques on the strings, then its notation on the staves that the track shows.
void DrawStrum(Picture& picture, const BarContext& bar, int strum);
/// D.S., coda, to coda and segno, in this order: the first 36 above the row, further ones higher by 16.
void DrawBarMarks(Picture& picture, const BarContext& bar);
/// How a laid-out track shows the lyrics of `lyricsTrack` on every row: at one point less than the document's text
/// font, smaller in whole points where the lines do not fit between two rows. Chord charts come down first, as far as
/// they can.
RowLook LookOfLyrics(const Core::TabFile& file, int track, int lyricsTrack);
/// The lyric lines of the strums of `lyricsTrack`'s bar under this bar's row, in columns worked out apart. Words that
/// would meet each other, or leave the paper, step a little aside; where that does not do, the row's words get smaller,
/// and long ones are cut before they are hard to read. Under a staff they keep clear of its lowest notes.
void DrawLyrics(Picture& picture, const BarContext& bar, int lyricsTrack);
/// Two dots at y and y + 7.
void DrawRepeatDots(Picture& picture, double x, double y);
/// `lines` level lines from x1 to x2, `step` pixels apart.
void DrawStaffLines(Picture& picture, int x1, int x2, int y, int lines, int step);

/// The point at which Picture's Print without a place prints: the left end, or other anchor, of the baseline.
void MoveTo(Picture& picture, double x, double y);
void SetFont(Picture& picture, std::string_view name, double size, bool bold, bool italic, bool strike, Color color);

/// The figure of a note as it stands on its string: the fret, with "(" and ")" for a ghost note, then "*" for a
/// harmonic, then ".." for let ring. "" for no note.
std::string FretText(const Core::Note& note);
/// The figure of a note on a drum track: the letter of the first assignment of its string, in the order
/// F O S X c f o r s t x ~, that plays the sound of the note's own letter.
std::string PercussionText(const Core::Track& track, int string, const Core::Note& note);

/// What the wheel is sent for a point of a bend curve lets this many units make a whole tone, at the first-run bend
/// coefficient and a wheel of two semitones.
constexpr double BendUnitsPerTone = 8;
/// The amount of a bend of `value` units, to the quarter of a tone: "¼" to "3".
std::string BendLabel(double value);

/// Bar number and where it stands.
Label BarNumberLabel(const Core::Bar& bar, int index, int x, int y);

}  // namespace Quillon::Drawing
