// The curve of a dialog with what is said about it.
#pragma once

#include <QWidget>
#include <string_view>

class QLabel;

namespace Quillon::Shell {
struct Curve;
}

namespace Quillon::Forms {

class picBendCurve;

class CurveField : public QWidget {
    Q_OBJECT

public:
    CurveField(Shell::Curve& curve, std::string_view nameKey, QWidget* parent);

    picBendCurve& Picture() const { return *picture; }
    /// Shows the curve anew, and whether it can be heard as it is drawn.
    void ShowCurve();

private:
    Shell::Curve& curve;
    picBendCurve* picture;
    QLabel* lblSound;
};

}  // namespace Quillon::Forms
