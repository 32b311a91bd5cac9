// A curve on a grid, drawn with the mouse or moved point by point from the keyboard: bends and the tremolo bar.
//
// Left and Right choose a point, Up and Down move it by a quarter of a tone, with Shift by a sixteenth; Page Up and
// Page Down move it by a tone, Delete puts it on the line of 0.
#pragma once

#include <QWidget>
#include <string_view>

namespace Quillon::Shell {
struct Curve;
}

namespace Quillon::Forms {

class picBendCurve : public QWidget {
    Q_OBJECT

public:
    picBendCurve(Shell::Curve& drawn, std::string_view nameKey, QWidget* parent = nullptr);

    /// The curve was changed from elsewhere.
    void ShowCurve();
    int Chosen() const { return chosen; }
    /// Where a point of the curve, or any height at it, stands.
    QPointF PlaceOf(int point, double height) const;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// By the person.
    void Drawn();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    QRectF Grid() const;
    void StrokeTo(QPointF place, bool begins);
    void Choose(int point);
    void TellPoint();
    double LineStep() const;
    void PaintGrid(QPainter& painter) const;
    void PaintCurve(QPainter& painter) const;

    Shell::Curve& curve;
    int chosen = 0;
    int lastPoint = 0;  ///< of a stroke of the mouse
    double lastHeight = 0;
};

}  // namespace Quillon::Forms
