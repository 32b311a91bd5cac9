#include "library/NeckView.h"

#include <algorithm>
#include <cmath>

namespace Quillon::Library {

namespace {

constexpr double LeastCell = 26;  ///< pixels: a dot with two letters
constexpr double MostCell = 64;
constexpr double MostGap = 34;
constexpr double RightRoom = 8;

constexpr Color Ground = PackColor(0xF7, 0xF2, 0xE8);
constexpr Color MarkerColor = PackColor(0xE2, 0xDA, 0xCB);
constexpr Color WireColor = PackColor(0xA9, 0xA7, 0xA3);
constexpr Color StringColor = PackColor(0x6E, 0x6C, 0x69);
constexpr Color LabelColor = PackColor(0x55, 0x55, 0x55);
constexpr Color ToneColor = PackColor(0x2A, 0x7A, 0xE2);
constexpr Color TonicColor = PackColor(0x12, 0x35, 0x66);
constexpr Color FaintColor = PackColor(0x8A, 0x95, 0xA5);
constexpr Color SoundingColor = PackColor(0xE8, 0x6A, 0x17);

constexpr int Octave = 12;

int MarkersAt(int fret) {
    const int within = fret % Octave;
    if (fret > 0 && within == 0) return 2;
    return within == 3 || within == 5 || within == 7 || within == 9 ? 1 : 0;
}

/// A font whose capitals stand well in a dot.
Font DotFont(double radius, bool bold) {
    return {.Name = "Small Fonts", .Size = std::clamp(radius * 0.72, 4.0, 9.0), .Bold = bold};
}

/// From the middle of a text down to its baseline.
double Drop(const Font& font) { return font.Pixels() * 0.36; }

void DrawWood(Picture& picture, const NeckGeometry& neck) {
    const double edge = std::min(neck.Gap(), MostGap) * 0.5;
    const double nut = neck.First() == 0 ? neck.Left() + neck.Cell() : neck.Left();
    const double top = neck.Top() - edge, bottom = neck.Bottom() + edge;
    picture.Box(nut, top, neck.Right() - nut, bottom - top, Ground);
    const double middle = (top + bottom) / 2;
    const double marker = std::min(neck.Gap() * 0.22, 6.0);
    const Font numbers{.Name = "Small Fonts", .Size = 7};
    for (int fret = std::max(1, neck.First()); fret <= neck.Last(); ++fret) {
        const int markers = MarkersAt(fret);
        picture.SetColor(MarkerColor);
        if (markers == 1) picture.Disc(neck.FretX(fret), middle, marker);
        const double apart = (bottom - top) * 0.26;
        if (markers == 2) {
            for (const double y : {middle - apart, middle + apart}) picture.Disc(neck.FretX(fret), y, marker);
        }
        picture.SetColor(WireColor);
        const double wire = neck.FretX(fret) + neck.Cell() / 2;
        picture.Line(wire, top, wire, bottom, 2);
        if (markers == 0 && fret != 1 && fret != neck.First()) continue;
        picture.SetFont(numbers);
        picture.SetColor(LabelColor);
        picture.Print(neck.FretX(fret), bottom + numbers.Pixels() + 3, std::to_string(fret), Anchor::Center);
    }
    picture.SetColor(neck.First() == 0 ? Black : WireColor);
    picture.Line(nut, top, nut, bottom, neck.First() == 0 ? 4 : 2);
}

void DrawStrings(Picture& picture, const NeckGeometry& neck, std::span<const std::string> labels) {
    const Font font{.Name = "Small Fonts", .Size = 8};
    picture.SetFont(font);
    for (int string = 0; string < neck.Strings(); ++string) {
        const double y = neck.StringY(string);
        picture.SetColor(StringColor);
        picture.Line(neck.Left(), y, neck.Right(), y, 1 + string * 0.25);
        if (static_cast<std::size_t>(string) >= labels.size()) continue;
        picture.SetColor(LabelColor);
        picture.Print(neck.Left() - 6, y + Drop(font), labels[static_cast<std::size_t>(string)], Anchor::Right);
    }
}

void DrawDot(Picture& picture, const NeckGeometry& neck, const NeckDot& dot) {
    using Kind = NeckDot::Kind;
    const double x = neck.FretX(dot.Place.Fret), y = neck.StringY(dot.Place.String);
    const double radius = neck.Radius();
    const bool tonic = dot.Is == Kind::Tonic || dot.Is == Kind::FaintTonic;
    const bool faint = dot.Is == Kind::Faint || dot.Is == Kind::FaintTonic;
    const Font font = DotFont(radius, !faint);
    if (faint && !dot.Sounding) {
        picture.SetColor(Ground);
        picture.Disc(x, y, radius * 0.86);
        picture.SetColor(tonic ? TonicColor : FaintColor);
        picture.Circle(x, y, radius * 0.86, tonic ? 1.6 : 1);
    } else {
        const Color fill = tonic ? TonicColor : ToneColor;
        picture.SetColor(dot.Sounding ? SoundingColor : fill);
        picture.Disc(x, y, dot.Sounding ? radius * 1.15 : radius);
        // The tonic is told by more than its colour.
        if (tonic) picture.Circle(x, y, radius + 2, 1.4);
        picture.SetColor(White);
    }
    picture.SetFont(font);
    picture.Print(x, y + Drop(font), dot.Text, Anchor::Center);
}

}  // namespace

NeckGeometry::NeckGeometry(int stringCount, bool lefty, int from, int to, double width, double height, int last)
    : strings(std::max(1, stringCount)), leftHanded(lefty) {
    from = std::clamp(from, 0, last);
    to = std::clamp(to, from, last);
    const int all = last + 1;
    const int needed = to - from + 1;
    const double room = std::max(1.0, width - LabelRoom - RightRoom);
    count = std::clamp(static_cast<int>(room / LeastCell), needed, all);
    // The neck stands still while what is to be seen lies in its lower part.
    if (to >= count) first = std::clamp(to - count + 1 + (count - needed) / 2, 0, all - count);
    cell = std::min(room / count, MostCell);
    gap = std::clamp((height - NumberRoom) / strings, 1.0, MostGap);  // half of it above and below the strings
    top = (height - NumberRoom - (strings - 1) * gap) / 2;
}

double NeckGeometry::Radius() const { return std::clamp(std::min(gap, cell) * 0.42, 3.0, 12.0); }

std::optional<NeckPlace> NeckGeometry::At(double x, double y) const {
    if (x < Left() || x >= Right()) return {};
    const int fret = first + static_cast<int>((x - Left()) / cell);
    const int row = static_cast<int>(std::floor((y - top) / gap + 0.5));
    if (row < 0 || row >= strings) return {};
    return NeckPlace{leftHanded ? strings - 1 - row : row, std::min(fret, Last())};
}

void DrawNeck(Picture& picture, const NeckGeometry& neck, std::span<const std::string> labels,
              std::span<const NeckDot> dots) {
    DrawWood(picture, neck);
    DrawStrings(picture, neck, labels);
    for (const NeckDot& dot : dots) {
        if (dot.Place.Fret >= neck.First() && dot.Place.Fret <= neck.Last()) DrawDot(picture, neck, dot);
    }
}

}  // namespace Quillon::Library
