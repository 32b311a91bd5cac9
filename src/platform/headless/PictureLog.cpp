#include "platform/headless/PictureLog.h"

#include <charconv>
#include <cmath>

namespace Quillon {

namespace {

std::string Number(double value) {
    const double rounded = std::round(value * 100) / 100;
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, rounded == 0 ? 0.0 : rounded).ptr;
    return {buffer, end};
}

std::string Numbers(std::initializer_list<double> values) {
    std::string text;
    for (const double value : values) text += " " + Number(value);
    return text;
}

std::string Places(std::span<const Point> points) {
    std::string text;
    for (const Point& point : points) text += " " + Number(point.X) + "," + Number(point.Y);
    return text;
}

std::string Width(double width) { return width == 1 ? "" : " w" + Number(width); }

std::string Hex(Color color) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text = " #";
    for (const int part : {RedOf(color), GreenOf(color), BlueOf(color)}) {
        text += digits[static_cast<std::size_t>(part >> 4)];
        text += digits[static_cast<std::size_t>(part & 15)];
    }
    return text;
}

int CharacterCount(std::string_view text) {
    int count = 0;
    for (const char c : text) count += (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    return count;
}

}  // namespace

void PictureLog::Remark(std::string_view text) { (log += text) += '\n'; }

void PictureLog::UseColor() {
    if (color == loggedColor) return;
    log += "color" + Hex(color) + "\n";
    loggedColor = color;
}

void PictureLog::Line(double x1, double y1, double x2, double y2, double width) {
    UseColor();
    log += "line" + Numbers({x1, y1, x2, y2}) + Width(width) + "\n";
}

void PictureLog::Polyline(std::span<const Point> points, double width) {
    UseColor();
    log += "polyline" + Width(width) + Places(points) + "\n";
}

void PictureLog::Polygon(std::span<const Point> points) {
    UseColor();
    log += "polygon" + Places(points) + "\n";
}

void PictureLog::Stamp(const Shape& shape, double x, double y) {
    UseColor();
    ((log += "shape ") += shape.Name) += Numbers({x, y}) + "\n";
}

void PictureLog::Box(double x, double y, double width, double height, Color fill) {
    log += "box" + Numbers({x, y, width, height}) + Hex(fill) + "\n";
}

void PictureLog::Circle(double x, double y, double radius, double width) {
    UseColor();
    log += "circle" + Numbers({x, y, radius}) + Width(width) + "\n";
}

void PictureLog::Disc(double x, double y, double radius) {
    UseColor();
    log += "disc" + Numbers({x, y, radius}) + "\n";
}

void PictureLog::Print(double x, double baseline, std::string_view text, Anchor anchor) {
    UseColor();
    if (font != loggedFont) {
        log += "font " + font.Name + " " + Number(font.Size);
        if (font.Bold) log += " bold";
        if (font.Italic) log += " italic";
        if (font.Underline) log += " underline";
        if (font.Strike) log += " strike";
        log += '\n';
        loggedFont = font;
    }
    log += "text" + Numbers({x, baseline});
    if (anchor == Anchor::Center) log += " center";
    if (anchor == Anchor::Right) log += " right";
    ((log += " \"") += text) += "\"\n";
}

double PictureLog::TextWidth(std::string_view text) { return CharacterCount(text) * 0.55 * font.Pixels(); }

}  // namespace Quillon
