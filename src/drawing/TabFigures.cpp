// The figures on the strings, and the columns of a bar.
#include <array>
#include <cmath>

#include "drawing/TabParts.h"

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

std::string WithMarks(const std::string& figure, const Core::Note& note) {
    std::string text = figure;
    if (note.Ghost) text = "(" + text + ")";
    if (note.Harmonic != Core::NoHarmonic) text += "*";
    if (note.LetRing) text += "..";
    return text;
}

}  // namespace

std::string FretText(const Core::Note& note) { return note.Fret.empty() ? "" : WithMarks(note.Fret, note); }

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

std::string Figure(const Core::Track& track, int string, const Core::Note& note) {
    if (note.Fret.empty()) return "";
    return track.IsDrum ? WithMarks(PercussionText(track, string, note), note) : FretText(note);
}

void DrawFigures(Picture& picture, const TabBar& bar, int strum) {
    constexpr double halfDigit = 0.36;  // of the em
    constexpr int above = 4, margin = 1;
    const Core::Strum& column = bar.Strum(strum);
    const Font font = NoteFont(bar.Context.File);
    const double x = bar.Column(strum);
    bool ready = false;
    for (int string = 0; string < bar.Strings; ++string) {
        const Core::Note& note = column.Notes[string];
        if (note.Fret.empty()) continue;
        if (!ready) {
            picture.SetFont(font);
            picture.SetColor(bar.Ink());
            ready = true;
        }
        const std::string text = Figure(bar.Track, string, note);
        const int y = bar.LineY(string);
        const double width = std::ceil(picture.TextWidth(text)) + 2 * margin;
        const double left = std::floor(x + 0.5 - width / 2);
        picture.Box(left, y - above, width, 2 * above, White);
        picture.Print(x, y + std::round(halfDigit * font.Pixels()), text, Anchor::Center);
    }
}

void DrawStrum(Picture& picture, const BarContext& context, int strum) {
    if (!context.ItsTrack().ShowTab) return;
    TabBar bar(context);
    DrawFigures(picture, bar, strum);
    DrawNoteSigns(picture, bar, strum);
    DrawLinks(picture, bar, strum);
    DrawBends(picture, bar, strum);
}

void DrawBarStrums(Picture& picture, const BarContext& context) {
    if (!context.ItsTrack().ShowTab) return;
    TabBar bar(context);
    // Figures of all columns first: their white boxes must not cut what reaches from one column to the next.
    for (int strum = 0; strum < bar.StrumCount(); ++strum) DrawFigures(picture, bar, strum);
    picture.SetColor(bar.Ink());
    TakeRoom(picture, bar);
    DrawLinksFromLastRow(picture, bar);
    for (int strum = 0; strum < bar.StrumCount(); ++strum) {
        DrawNoteSigns(picture, bar, strum);
        DrawLinks(picture, bar, strum);
    }
    DrawChords(picture, bar);
    for (int strum = 0; strum < bar.StrumCount(); ++strum) DrawBends(picture, bar, strum);
    DrawMarks(picture, bar);
    DrawTexts(picture, bar);
    DrawMarksBelow(picture, bar);
}

}  // namespace Quillon::Drawing
