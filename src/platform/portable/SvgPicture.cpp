#include "platform/portable/SvgPicture.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "platform/portable/FontWidths.h"

namespace Quillon {

namespace {

/// Hundredths of a pixel are finer than any printer's dots.
std::string Number(double value) {
    const double rounded = std::round(value * 100) / 100;
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, rounded == 0 ? 0.0 : rounded).ptr;
    return {buffer, end};
}

std::string Hex(Color color) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text = "#";
    for (const int part : {RedOf(color), GreenOf(color), BlueOf(color)}) {
        text += digits[static_cast<std::size_t>(part >> 4)];
        text += digits[static_cast<std::size_t>(part & 15)];
    }
    return text;
}

/// A path from point to point, each told by its way from the one before: rounded as a place, so that no error gathers.
class PathText {
public:
    explicit PathText(double shift) : offset(shift) {}
    void To(const Point& point) {
        const double toX = Rounded(point.X + offset), toY = Rounded(point.Y + offset);
        if (text.empty()) {
            text = "M" + Number(toX) + " " + Number(toY);
        } else {
            if (first) text += 'l';
            Add(toX - x, !first);
            Add(toY - y, true);
            first = false;
        }
        x = toX;
        y = toY;
    }
    std::string text;

private:
    static double Rounded(double value) { return std::round(value * 100) / 100; }
    void Add(double value, bool apart) {
        std::string number = Number(value);
        if (number.starts_with("0.")) number.erase(0, 1);
        if (number.starts_with("-0.")) number.erase(1, 1);
        if (apart && number.front() != '-') text += ' ';
        text += number;
    }

    double offset;
    double x = 0, y = 0;
    bool first = true;
};

/// A closed outline. All of a drawing turn the same way, so that two that overlap never cut each other out.
std::string OutlineText(std::span<const Point> points, double offset) {
    double area = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Point& next = points[(i + 1) % points.size()];
        area += points[i].X * next.Y - next.X * points[i].Y;
    }
    PathText path(offset);
    for (std::size_t i = 0; i < points.size(); ++i) path.To(points[area < 0 ? points.size() - 1 - i : i]);
    return path.text + "z";
}

bool IsWhole(double value) { return value == std::floor(value); }

std::string_view Fallback(std::string_view name) {
    switch (FamilyOf(name)) {
        case FontFamily::Serif:
            return "Times, serif";
        case FontFamily::Mono:
            return "Courier, monospace";
        case FontFamily::Sans:
            break;
    }
    return "Arial, Helvetica, sans-serif";
}

}  // namespace

std::string EscapeXml(std::string_view text) {
    constexpr std::string_view replacement = "\xEF\xBF\xBD";
    std::string result;
    const auto byte = [&](std::size_t i) -> unsigned {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0;
    };
    for (std::size_t i = 0; i < text.size();) {
        const unsigned lead = byte(i);
        if (lead < 0x80) {
            const char c = text[i++];
            switch (c) {
                case '&':
                    result += "&amp;";
                    break;
                case '<':
                    result += "&lt;";
                    break;
                case '>':
                    result += "&gt;";
                    break;
                case '"':
                    result += "&quot;";
                    break;
                case '\t':
                case '\n':
                case '\r':
                    result += ' ';
                    break;
                default:
                    if (lead < 32) {
                        result += replacement;
                    } else {
                        result += c;
                    }
            }
            continue;
        }
        const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
        bool whole = lead >= 0xC2 && lead <= 0xF4;
        for (std::size_t k = 1; k < length; ++k) whole = whole && (byte(i + k) & 0xC0) == 0x80;
        const bool surrogate = lead == 0xED && byte(i + 1) >= 0xA0;
        const bool noCharacter = lead == 0xEF && byte(i + 1) == 0xBF && byte(i + 2) >= 0xBE;  // U+FFFE, U+FFFF
        if (!whole) {
            result += replacement;
            ++i;
            continue;
        }
        if (surrogate || noCharacter) {
            result += replacement;
        } else {
            result += text.substr(i, length);
        }
        i += length;
    }
    return result;
}

SvgPicture::SvgPicture(double pictureWidth, double pictureHeight) : width(pictureWidth), height(pictureHeight) {}

std::string SvgPicture::Text() const {
    const std::string size =
        Number(width) + "\" height=\"" + Number(height) + "\" viewBox=\"0 0 " + Number(width) + " " + Number(height);
    std::string text = "<svg xmlns=\"http://www.w3.org/2000/svg\"";
    if (!shapes.empty()) text += " xmlns:xlink=\"http://www.w3.org/1999/xlink\"";  // what all viewers know
    text += " width=\"" + size + "\">\n";
    if (!shapes.empty()) {
        text += "<defs>\n";
        for (const auto& [shape, name] : shapes) {
            text += "<path id=\"" + name + "\" d=\"";
            for (const auto& part : shape->Parts) text += OutlineText(part, 0);
            text += "\"/>\n";
        }
        text += "</defs>\n";
    }
    text += "<path fill=\"#ffffff\" d=\"M0 0h" + Number(width) + "v" + Number(height) + "H0z\"/>\n";
    return text + body + (open.empty() ? "" : std::string(close)) + "</svg>\n";
}

void SvgPicture::Enter(const std::string& opening, std::string_view closing) {
    if (open == opening) return;
    if (!open.empty()) body += close;
    body += opening;
    open = opening;
    close = closing;
}

void SvgPicture::Line(double x1, double y1, double x2, double y2, double lineWidth) {
    const bool level = y1 == y2;
    if ((level || x1 == x2) && IsWhole(x1) && IsWhole(y1) && IsWhole(x2) && IsWhole(y2) && IsWhole(lineWidth)) {
        // Whole pixels; an even width leans to the smaller side, as on the screen.
        const double lean = std::floor(lineWidth / 2);
        if (level) {
            Box(std::min(x1, x2), y1 - lean, std::abs(x2 - x1) + 1, lineWidth, color);
        } else {
            Box(x1 - lean, std::min(y1, y2), lineWidth, std::abs(y2 - y1) + 1, color);
        }
        return;
    }
    const Point points[] = {{x1, y1}, {x2, y2}};
    Polyline(points, lineWidth);
}

void SvgPicture::Polyline(std::span<const Point> points, double lineWidth) {
    if (points.empty()) return;
    Enter("<path fill=\"none\" stroke-linecap=\"round\" stroke-linejoin=\"round\" stroke=\"" + Hex(color) +
              "\" stroke-width=\"" + Number(lineWidth) + "\" d=\"",
          "\"/>\n");
    PathText path(0.5);
    for (const Point& point : points) path.To(point);
    // A path of one point is a dot of the pen.
    body += points.size() == 1 ? path.text + "h0" : path.text;
}

void SvgPicture::Polygon(std::span<const Point> points) {
    if (points.size() < 3) return;
    Enter("<path fill=\"" + Hex(color) + "\" d=\"", "\"/>\n");
    body += OutlineText(points, 0.5);
}

const std::string& SvgPicture::NameOf(const Shape& shape) {
    const auto known = std::ranges::find(shapes, &shape, &std::pair<const Shape*, std::string>::first);
    if (known != shapes.end()) return known->second;
    const std::string plain = EscapeXml(shape.Name);
    std::string name = plain;
    const auto taken = [&] {
        return std::ranges::any_of(shapes, [&](const auto& other) { return other.second == name; });
    };
    for (int number = 2; taken(); ++number) name = plain + "-" + std::to_string(number);
    return shapes.emplace_back(&shape, name).second;
}

void SvgPicture::Stamp(const Shape& shape, double x, double y) {
    Enter("<g fill=\"" + Hex(color) + "\">\n", "</g>\n");
    body +=
        "<use xlink:href=\"#" + NameOf(shape) + "\" x=\"" + Number(x + 0.5) + "\" y=\"" + Number(y + 0.5) + "\"/>\n";
}

void SvgPicture::Box(double x, double y, double boxWidth, double boxHeight, Color fill) {
    Enter("<path fill=\"" + Hex(fill) + "\" d=\"", "\"/>\n");
    body += "M" + Number(x) + " " + Number(y) + "h" + Number(boxWidth) + "v" + Number(boxHeight) + "h" +
            Number(-boxWidth) + "z";
}

void SvgPicture::Circle(double x, double y, double radius, double lineWidth) {
    Enter("<g fill=\"none\" stroke=\"" + Hex(color) + "\" stroke-width=\"" + Number(lineWidth) + "\">\n", "</g>\n");
    body += "<circle cx=\"" + Number(x + 0.5) + "\" cy=\"" + Number(y + 0.5) + "\" r=\"" + Number(radius) + "\"/>\n";
}

void SvgPicture::Disc(double x, double y, double radius) {
    Enter("<g fill=\"" + Hex(color) + "\">\n", "</g>\n");
    body += "<circle cx=\"" + Number(x + 0.5) + "\" cy=\"" + Number(y + 0.5) + "\" r=\"" + Number(radius) + "\"/>\n";
}

void SvgPicture::Print(double x, double baseline, std::string_view text, Anchor anchor) {
    if (text.empty()) return;
    std::string name = EscapeXml(font.Name);
    std::erase(name, '\'');  // quotes the name
    std::string opening = "<g font-family=\"'" + name + "', " + std::string(Fallback(font.Name)) + "\" font-size=\"" +
                          Number(font.Pixels()) + "\" fill=\"" + Hex(color) + "\"";
    if (font.Bold) opening += " font-weight=\"bold\"";
    if (font.Italic) opening += " font-style=\"italic\"";
    if (font.Underline || font.Strike) {
        opening += " text-decoration=\"";
        opening += font.Underline && font.Strike ? "underline line-through"
                   : font.Underline              ? "underline"
                                                 : "line-through";
        opening += '"';
    }
    Enter(opening + ">\n", "</g>\n");
    // The middle of a text stands on the middle of a pixel, as a stroke does; its ends stand on edges.
    body += "<text x=\"" + Number(anchor == Anchor::Center ? x + 0.5 : x) + "\" y=\"" + Number(baseline) + "\"";
    if (anchor == Anchor::Center) body += " text-anchor=\"middle\"";
    if (anchor == Anchor::Right) body += " text-anchor=\"end\"";
    if (text.front() == ' ' || text.back() == ' ' || text.find("  ") != text.npos) body += " xml:space=\"preserve\"";
    body += ">" + EscapeXml(text) + "</text>\n";
}

double SvgPicture::TextWidth(std::string_view text) { return FontTextWidth(font, text); }

}  // namespace Quillon
