#include "platform/pdf/PdfPicture.h"

#include <algorithm>
#include <cmath>

namespace Quillon {

namespace {

std::string ColorOperator(Color color, bool stroke) {
    std::string text;
    const auto add = [&](int part) {
        AppendPdfNumber(text, part / 255.0);
        text += ' ';
    };
    if (RedOf(color) == GreenOf(color) && GreenOf(color) == BlueOf(color)) {
        add(RedOf(color));
        return text + (stroke ? "G\n" : "g\n");
    }
    for (const int part : {RedOf(color), GreenOf(color), BlueOf(color)}) add(part);
    return text + (stroke ? "RG\n" : "rg\n");
}

/// Twice the area; below 0 when the points go round to the left on a page whose y goes down, as boxes do.
double Turn(std::span<const Point> points) {
    double area = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Point& next = points[(i + 1) % points.size()];
        area += points[i].X * next.Y - next.X * points[i].Y;
    }
    return area;
}

/// Goes round the points the way that boxes do, so that two shapes of one filling never cut each other out.
template <class Visit>
void GoRound(std::span<const Point> points, Visit visit) {
    const bool turned = Turn(points) > 0;
    for (std::size_t i = 0; i < points.size(); ++i) visit(points[turned ? points.size() - 1 - i : i], i == 0);
}

}  // namespace

PdfPicture::PdfPicture(PdfResources& resources, double pageWidth, double pageHeight, double scale)
    : shared(resources), width(pageWidth), height(pageHeight) {
    fontId = shared.Fonts.FontId(Font{});
    // Six digits: a sheet is a thousand pixels wide.
    const auto millionths = static_cast<int>(std::lround(scale * 1e6));
    const std::string digits = std::to_string(millionths % 1000000);
    const std::string factor =
        std::to_string(millionths / 1000000) + "." + std::string(6 - digits.size(), '0') + digits;
    content = factor + " 0 0 " + factor + " 0 0 cm\n1 j\n";
}

std::string PdfPicture::TakeContent() {
    Enter(Mode::Page);
    return std::move(content);
}

void PdfPicture::Put(std::initializer_list<double> numbers, std::string_view op) {
    for (const double number : numbers) {
        AppendPdfNumber(content, number);
        content += ' ';
    }
    content.append(op).append("\n");
}

void PdfPicture::Enter(Mode next) {
    if (mode == next) return;
    if (mode == Mode::Stroke) content += "S\n";
    if (mode == Mode::Fill) content += "f\n";
    if (mode == Mode::Text) content += "ET\n";
    if (next == Mode::Text) {
        content += "BT\n";
        textX = textY = 0;
    }
    mode = next;
}

void PdfPicture::EnterStroke(double lineWidth, bool round) {
    if (mode == Mode::Stroke && strokeColor == color && strokeWidth == lineWidth && roundStroke == round) return;
    Enter(Mode::Page);
    if (strokeColor != color) content += ColorOperator(color, true);
    if (strokeWidth != lineWidth) Put({lineWidth}, "w");
    if (roundStroke != round) content += round ? "1 J\n" : "0 J\n";
    strokeColor = color;
    strokeWidth = lineWidth;
    roundStroke = round;
    mode = Mode::Stroke;
}

void PdfPicture::EnterFill(Color fill) {
    if (mode == Mode::Fill && fillColor == fill) return;
    Enter(Mode::Page);
    if (fillColor != fill) content += ColorOperator(fill, false);
    fillColor = fill;
    mode = Mode::Fill;
}

void PdfPicture::Line(double x1, double y1, double x2, double y2, double lineWidth) {
    EnterStroke(lineWidth, false);
    // Level and upright strokes take the pixels of both their ends, so that corners close.
    const bool whole = lineWidth == std::floor(lineWidth) && static_cast<long>(lineWidth) % 2 == 0;
    const double lean = whole ? 0 : 0.5;  // an even one leans to the smaller side, as on the screen
    if (y1 == y2) {
        PutPoint(std::min(x1, x2), y1 + lean, "m");
        PutPoint(std::max(x1, x2) + 1, y1 + lean, "l");
    } else if (x1 == x2) {
        PutPoint(x1 + lean, std::min(y1, y2), "m");
        PutPoint(x1 + lean, std::max(y1, y2) + 1, "l");
    } else {
        PutPoint(x1 + 0.5, y1 + 0.5, "m");
        PutPoint(x2 + 0.5, y2 + 0.5, "l");
    }
}

void PdfPicture::Polyline(std::span<const Point> points, double lineWidth) {
    if (points.empty()) return;
    EnterStroke(lineWidth, true);
    for (const Point& point : points) PutPoint(point.X + 0.5, point.Y + 0.5, &point == points.data() ? "m" : "l");
}

void PdfPicture::Polygon(std::span<const Point> points) {
    if (points.size() < 3) return;
    EnterFill(color);
    GoRound(points, [&](const Point& point, bool first) { PutPoint(point.X + 0.5, point.Y + 0.5, first ? "m" : "l"); });
    content += "h\n";
}

void PdfPicture::Stamp(const Shape& shape, double x, double y) {
    Enter(Mode::Page);  // what stands before it is filled first
    EnterFill(color);
    mode = Mode::Page;  // nothing to fill yet
    const int number = shared.Shapes.try_emplace(&shape, static_cast<int>(shared.Shapes.size())).first->second;
    content += "q 1 0 0 1 ";
    PutPoint(x + 0.5, y + 0.5, "cm");
    content += "/S" + std::to_string(number) + " Do Q\n";
}

void PdfPicture::Box(double x, double y, double boxWidth, double boxHeight, Color fill) {
    const bool sheet = fill == White && x <= 0 && y <= 0 && boxWidth >= width && boxHeight >= height;
    if (sheet) return;  // the paper is white
    EnterFill(fill);
    Put({x, height - y - boxHeight, boxWidth, boxHeight}, "re");
}

void PdfPicture::PutRound(double x, double y, double radius) {
    constexpr double Arm = 0.5522847498;  // of the curve that comes nearest to a quarter of a circle
    const double cx = x + 0.5;
    const double cy = y + 0.5;
    PutPoint(cx + radius, cy, "m");
    double ux = 1;
    double uy = 0;
    for (int quarter = 0; quarter < 4; ++quarter) {
        const double vx = uy;
        const double vy = -ux;  // a quarter to the left, on a page whose y goes down
        const double points[] = {cx + radius * (ux + Arm * vx),
                                 height - (cy + radius * (uy + Arm * vy)),
                                 cx + radius * (vx + Arm * ux),
                                 height - (cy + radius * (vy + Arm * uy)),
                                 cx + radius * vx,
                                 height - (cy + radius * vy)};
        Put({points[0], points[1], points[2], points[3], points[4], points[5]}, "c");
        ux = vx;
        uy = vy;
    }
    content += "h\n";
}

void PdfPicture::Circle(double x, double y, double radius, double lineWidth) {
    EnterStroke(lineWidth, false);
    PutRound(x, y, radius);
}

void PdfPicture::Disc(double x, double y, double radius) {
    EnterFill(color);
    PutRound(x, y, radius);
}

void PdfPicture::PrintRun(const PdfRun& run, double x, double baseline, double pixels) {
    constexpr double StrokeOfBold = 0.03;  // of the em
    if (fillColor != color) {
        Enter(Mode::Page);
        content += ColorOperator(color, false);
        fillColor = color;
    }
    if (emboldened != run.Embolden || run.Embolden) {
        Enter(Mode::Page);
        if (run.Embolden && strokeColor != color) content += ColorOperator(color, true);
        if (run.Embolden) strokeColor = color;
        if (run.Embolden) Put({strokeWidth = pixels * StrokeOfBold}, "w");
        content += run.Embolden ? "2 Tr\n" : "0 Tr\n";
        emboldened = run.Embolden;
    }
    Enter(Mode::Text);
    if (shownFace != run.Face || shownPixels != pixels) {
        content += "/F" + std::to_string(run.Face) + " ";
        Put({pixels}, "Tf");
        shownFace = run.Face;
        shownPixels = pixels;
    }
    // Rounded first, so that steps from text to text don't drift.
    const double left = std::round(x * 100) / 100;
    const double bottom = std::round((height - baseline) * 100) / 100;
    if (run.Slant) {
        content += "1 0 .2 1 ";
        Put({left, bottom}, "Tm");
    } else {
        Put({left - textX, bottom - textY}, "Td");
    }
    textX = left;
    textY = bottom;
    content.append(run.Operator).append("\n");
    if (run.Slant) Enter(Mode::Page);
}

void PdfPicture::Rule(double x, double baseline, double textWidth, int middle, int size, double pixels) {
    const double thickness = std::max(pixels * size / 1000, 0.5);
    EnterFill(color);
    Put({x, height - baseline + pixels * middle / 1000 - thickness / 2, textWidth, thickness}, "re");
}

void PdfPicture::Print(double x, double baseline, std::string_view text, Anchor anchor) {
    if (text.empty()) return;
    const PdfShownText& shown = shared.Fonts.Show(fontId, text);
    const double pixels = shared.Fonts.Pixels(fontId);
    const double textWidth = shown.Width * pixels / 1000;
    if (anchor == Anchor::Center) x += 0.5 - textWidth / 2;
    if (anchor == Anchor::Right) x -= textWidth;
    double at = x;
    for (const PdfRun& run : shown.Runs) {
        PrintRun(run, at, baseline, pixels);
        at += run.Width * pixels / 1000;
    }
    const Font& font = shared.Fonts.Wanted(fontId);
    if (!font.Underline && !font.Strike) return;
    const FaceMetrics& metrics = shared.Fonts.Metrics(fontId);
    if (font.Underline) Rule(x, baseline, textWidth, metrics.UnderlineY, metrics.UnderlineSize, pixels);
    if (font.Strike) Rule(x, baseline, textWidth, metrics.StrikeY, metrics.StrikeSize, pixels);
}

std::string PdfShapeContent(const Shape& shape, std::string& bounds) {
    std::string content;
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
    for (const std::vector<Point>& part : shape.Parts) {
        GoRound(part, [&](const Point& point, bool first) {
            left = std::min(left, point.X);
            right = std::max(right, point.X);
            top = std::max(top, -point.Y);
            bottom = std::min(bottom, -point.Y);
            AppendPdfNumber(content, point.X);
            content += ' ';
            AppendPdfNumber(content, -point.Y);
            content += first ? " m\n" : " l\n";
        });
        content += "h\n";
    }
    content += "f\n";
    for (const double bound : {left - 1, bottom - 1, right + 1, top + 1}) bounds += PdfNumber(bound) + " ";
    return content;
}

}  // namespace Quillon
