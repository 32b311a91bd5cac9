// A page of a PDF file as a drawing target: strokes stay strokes, texts stay texts.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/Picture.h"
#include "platform/pdf/PdfFonts.h"

namespace Quillon {

/// What the pages of a file share.
struct PdfResources {
    PdfFonts Fonts;
    std::map<const Shape*, int> Shapes;  ///< in the order of their numbers from 0
};

/// Whole coordinates of strokes, circles and shapes are the middles of pixels, as on the screen.
class PdfPicture : public Picture {
public:
    /// A page of this many document pixels, each `scale` points wide, white.
    PdfPicture(PdfResources& shared, double pageWidth, double pageHeight, double scale);

    /// The page's content so far, closed.
    std::string TakeContent();

    void SetColor(Color value) override { color = value; }
    void SetFont(const Font& font) override { fontId = shared.Fonts.FontId(font); }
    void Line(double x1, double y1, double x2, double y2, double lineWidth) override;
    using Picture::Polyline;
    void Polyline(std::span<const Point> points, double lineWidth) override;
    using Picture::Polygon;
    void Polygon(std::span<const Point> points) override;
    void Stamp(const Shape& shape, double x, double y) override;
    void Box(double x, double y, double boxWidth, double boxHeight, Color fill) override;
    void Circle(double x, double y, double radius, double lineWidth) override;
    void Disc(double x, double y, double radius) override;
    void Print(double x, double baseline, std::string_view text, Anchor anchor) override;
    double TextWidth(std::string_view text) override { return shared.Fonts.Width(fontId, text); }

private:
    /// What the content's end is in the middle of: operators that go together stand together.
    enum class Mode { Page, Stroke, Fill, Text };

    void Enter(Mode next);
    void EnterStroke(double lineWidth, bool round);
    void EnterFill(Color fill);
    void PrintRun(const PdfRun& run, double x, double baseline, double pixels);
    void Rule(double x, double baseline, double textWidth, int middle, int size, double pixels);
    /// Appends numbers and an operator.
    void Put(std::initializer_list<double> numbers, std::string_view op);
    /// As Put, of a point of the document.
    void PutPoint(double x, double y, std::string_view op) { Put({x, height - y}, op); }
    void PutRound(double x, double y, double radius);

    PdfResources& shared;
    double width, height;
    std::string content;
    Mode mode = Mode::Page;
    Color color = Black;
    int fontId = 0;
    // As the content has set them.
    Color strokeColor = Black, fillColor = Black;
    double strokeWidth = 1;
    bool roundStroke = false;
    int shownFace = -1;
    double shownPixels = 0;
    bool emboldened = false;
    double textX = 0, textY = 0;
};

/// Appends the outline of a shape about 0, 0, upward, and its bounds.
std::string PdfShapeContent(const Shape& shape, std::string& bounds);

}  // namespace Quillon
