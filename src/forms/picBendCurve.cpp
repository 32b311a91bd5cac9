#include "forms/picBendCurve.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "forms/Text.h"
#include "shell/Curve.h"

namespace Quillon::Forms {

namespace {

constexpr double LabelWidth = 38;
constexpr double Border = 10;
constexpr int MostLines = 13;

QColor Blended(const QColor& over, const QColor& ground, double share) {
    const auto mix = [share](int a, int b) { return static_cast<int>(std::lround(a * share + b * (1 - share))); };
    return {mix(over.red(), ground.red()), mix(over.green(), ground.green()), mix(over.blue(), ground.blue())};
}

}  // namespace

picBendCurve::picBendCurve(Shell::Curve& drawn, std::string_view nameKey, QWidget* parent)
    : QWidget(parent), curve(drawn) {
    setObjectName("picBendCurve");
    setAccessibleName(Text(nameKey));
    setToolTip(Text("str_CurveHelp"));
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::CrossCursor);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    TellPoint();
}

QSize picBendCurve::sizeHint() const { return {620, 290}; }

QSize picBendCurve::minimumSizeHint() const { return {320, 180}; }

void picBendCurve::ShowCurve() {
    TellPoint();
    update();
}

QRectF picBendCurve::Grid() const { return QRectF(rect()).adjusted(LabelWidth, Border, -Border, -Border); }

QPointF picBendCurve::PlaceOf(int point, double height) const {
    const QRectF grid = Grid();
    const double up = (height - curve.Lowest) / (curve.Highest - curve.Lowest);
    return {grid.left() + grid.width() * point / (curve.Count() - 1), grid.bottom() - grid.height() * up};
}

/// A line for every quarter of a tone, or for halves, tones and so on where that would be too many.
double picBendCurve::LineStep() const {
    double step = Shell::UnitsOfQuarter;
    while ((curve.Highest - curve.Lowest) / step + 1 > MostLines) step *= 2;
    return step;
}

void picBendCurve::PaintGrid(QPainter& painter) const {
    const QRectF grid = Grid();
    const QColor ground = palette().color(QPalette::Base);
    const QColor ink = palette().color(QPalette::Text);
    const double step = LineStep();
    constexpr int quarters = 4;
    for (int part = 0; part <= quarters; ++part) {
        const double x = grid.left() + grid.width() * part / quarters;
        painter.setPen(Blended(ink, ground, part % 2 == 0 ? 0.25 : 0.12));
        painter.drawLine(QPointF(x, grid.top()), QPointF(x, grid.bottom()));
    }
    const double first = std::ceil(curve.Lowest / step) * step;
    for (double height = first; height <= curve.Highest; height += step) {
        const double y = PlaceOf(0, height).y();
        const bool zero = std::abs(height) < step / 4;
        const bool tone = std::abs(std::remainder(height, Shell::UnitsOfTone)) < 0.01;
        painter.setPen(QPen(Blended(ink, ground, zero ? 0.6 : tone ? 0.3 : 0.12), zero ? 1.5 : 1));
        painter.drawLine(QPointF(grid.left(), y), QPointF(grid.right(), y));
        painter.setPen(Blended(ink, ground, tone || zero ? 1 : 0.65));
        painter.drawText(QRectF(0, y - 10, LabelWidth - 8, 20), Qt::AlignRight | Qt::AlignVCenter,
                         ToQString(Shell::HeightText(height)));
    }
}

void picBendCurve::PaintCurve(QPainter& painter) const {
    QPolygonF line;
    for (int point = 0; point < curve.Count(); ++point) {
        const double height = curve.Points[static_cast<std::size_t>(point)];
        line << PlaceOf(point, std::clamp(height, curve.Lowest, curve.Highest));
    }
    const QColor color = palette().color(QPalette::Highlight);
    QPolygonF area = line;
    area << PlaceOf(curve.Count() - 1, 0) << PlaceOf(0, 0);
    QColor faint = color;
    faint.setAlpha(40);
    painter.setPen(Qt::NoPen);
    painter.setBrush(faint);
    painter.drawPolygon(area);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(line);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    for (const QPointF& point : line) painter.drawEllipse(point, 3, 3);
    if (!hasFocus()) return;
    painter.setBrush(palette().color(QPalette::Base));
    painter.setPen(QPen(color, 2));
    painter.drawEllipse(line[chosen], 5, 5);
}

void picBendCurve::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    PaintGrid(painter);
    PaintCurve(painter);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Mid));
    painter.drawRect(QRectF(0.5, 0.5, width() - 1.0, height() - 1.0));
}

void picBendCurve::StrokeTo(QPointF place, bool begins) {
    const QRectF grid = Grid();
    const double across = (place.x() - grid.left()) / grid.width() * (curve.Count() - 1);
    const int point = std::clamp(static_cast<int>(std::lround(across)), 0, curve.Count() - 1);
    const double up = (grid.bottom() - place.y()) / grid.height();
    const double height = curve.Lowest + up * (curve.Highest - curve.Lowest);
    if (begins) {
        lastPoint = point;
        lastHeight = height;
    }
    curve.Stroke(lastPoint, lastHeight, point, height);
    lastPoint = point;
    lastHeight = height;
    Choose(point);
    Q_EMIT Drawn();
}

void picBendCurve::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) StrokeTo(event->position(), true);
}

void picBendCurve::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & Qt::LeftButton) StrokeTo(event->position(), false);
}

void picBendCurve::keyPressEvent(QKeyEvent* event) {
    constexpr double fine = 0.5;
    const double quarter = event->modifiers() & Qt::ShiftModifier ? fine : Shell::UnitsOfQuarter;
    double step = 0;
    switch (event->key()) {
        case Qt::Key_Left:
            return Choose(chosen - 1);
        case Qt::Key_Right:
            return Choose(chosen + 1);
        case Qt::Key_Home:
            return Choose(0);
        case Qt::Key_End:
            return Choose(curve.Count() - 1);
        case Qt::Key_Up:
            step = quarter;
            break;
        case Qt::Key_Down:
            step = -quarter;
            break;
        case Qt::Key_PageUp:
            step = Shell::UnitsOfTone;
            break;
        case Qt::Key_PageDown:
            step = -Shell::UnitsOfTone;
            break;
        case Qt::Key_Delete:
            curve.Stroke(chosen, 0, chosen, 0);
            break;
        default:
            return QWidget::keyPressEvent(event);
    }
    if (step != 0) curve.Nudge(chosen, step);
    ShowCurve();
    Q_EMIT Drawn();
}

void picBendCurve::Choose(int point) {
    chosen = std::clamp(point, 0, curve.Count() - 1);
    ShowCurve();
}

void picBendCurve::TellPoint() {
    if (curve.Count() == 0) return;
    const std::string height = Shell::HeightText(curve.Points[static_cast<std::size_t>(chosen)]);
    const QString told = ToQString(
        Core::LanguageText("str_CurvePoint", {std::to_string(chosen + 1), std::to_string(curve.Count()), height}));
    if (told == accessibleDescription()) return;
    setAccessibleDescription(told);
    QAccessibleEvent changed(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&changed);
}

void picBendCurve::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
}

void picBendCurve::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}

}  // namespace Quillon::Forms
