// A neck drawn on a picture: strings, frets, markers and dots with a text. Scales are shown on it, and notes are
// clicked on it.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/Picture.h"

namespace Quillon::Library {

struct NeckPlace {
    int String = 0;  ///< 0 is the highest
    int Fret = 0;    ///< 0 is the open string
    bool operator==(const NeckPlace&) const = default;
};

/// Where strings and frets lie in a box, in its pixels from the top left. A narrow box shows a part of the neck.
class NeckGeometry {
public:
    static constexpr int MostFret = 22;

    /// As many frets as have room, `from` to `to` among them, and none beyond `last`. Left-handed the order of the
    /// strings is reversed.
    NeckGeometry(int strings, bool leftHanded, int from, int to, double width, double height, int last = MostFret);

    int Strings() const { return strings; }
    int First() const { return first; }  ///< the leftmost fret; 0 is left of the nut
    int Last() const { return first + count - 1; }
    double Left() const { return left; }
    double Right() const { return left + count * cell; }
    double Cell() const { return cell; }  ///< width of a fret
    double Gap() const { return gap; }    ///< from string to string
    double FretX(int fret) const { return left + (fret - first + 0.5) * cell; }
    double StringY(int string) const { return top + (leftHanded ? strings - 1 - string : string) * gap; }
    double Top() const { return top; }
    double Bottom() const { return top + (strings - 1) * gap; }
    void MoveBy(double x, double y) {
        left += x;
        top += y;
    }
    /// Of a dot.
    double Radius() const;
    std::optional<NeckPlace> At(double x, double y) const;

    static constexpr double LabelRoom = 26;
    static constexpr double NumberRoom = 16;  ///< below the strings

private:
    int strings;
    bool leftHanded;
    int first = 0, count = 1;
    double left = LabelRoom, top = 0, cell = 0, gap = 0;
};

struct NeckDot {
    enum class Kind : std::uint8_t { Tone, Tonic, Faint, FaintTonic, Picked };
    NeckPlace Place;
    std::string Text;
    Kind Is = Kind::Tone;
    bool Sounding = false;
};

/// Draws the neck and its dots. `labels` are the names of the open strings, the highest first.
void DrawNeck(Picture& picture, const NeckGeometry& neck, std::span<const std::string> labels,
              std::span<const NeckDot> dots);

}  // namespace Quillon::Library
