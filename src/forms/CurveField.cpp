#include "forms/CurveField.h"

#include <QLabel>
#include <QVBoxLayout>
#include <cmath>

#include "forms/Text.h"
#include "forms/picBendCurve.h"
#include "shell/Curve.h"

namespace Quillon::Forms {

CurveField::CurveField(Shell::Curve& drawn, std::string_view nameKey, QWidget* parent)
    : QWidget(parent), curve(drawn), picture(new picBendCurve(drawn, nameKey, this)), lblSound(new QLabel(this)) {
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    // The letter of the label leads to the curve from the keyboard.
    auto* const label = new QLabel(Text(nameKey), this);
    label->setBuddy(picture);
    rows->addWidget(label);
    rows->addWidget(picture, 1);
    lblSound->setObjectName("lblSound");
    lblSound->setWordWrap(true);
    lblSound->setForegroundRole(QPalette::PlaceholderText);
    rows->addWidget(lblSound);
}

void CurveField::ShowCurve() {
    picture->ShowCurve();
    constexpr double heard = Shell::UnitsOfTone + 0.1;  // the wheel reaches a whole tone
    lblSound->setText(Text(std::abs(curve.Extreme()) > heard ? "str_CurvePastSound" : "str_CurveHelp"));
}

}  // namespace Quillon::Forms
