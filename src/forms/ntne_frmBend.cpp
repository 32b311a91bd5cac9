#include "forms/ntne_frmBend.h"

#include <QComboBox>

#include "forms/CurveField.h"
#include "forms/Text.h"
#include "forms/picBendCurve.h"
#include "shell/EffectModels.h"

namespace Quillon::Forms {

ntne_frmBend::ntne_frmBend(Shell::BendModel& model, QWidget* parent)
    : StrumDialog(model, parent, "str_BendTitle", "BendWindowDetails") {
    setObjectName("ntne_frmBend");
    QStringList styles, amounts;
    for (const Shell::Shape& style : Shell::BendModel::Styles()) styles << Text(style.Name);
    for (int quarters = 1; quarters <= Shell::BendModel::Amounts; ++quarters) {
        amounts << ToQString(Shell::HeightText(quarters * Shell::UnitsOfQuarter));
    }
    constexpr int full = 3;
    amounts[full] = Text("str_BendFull");
    QComboBox* const style = AddChoice(Fields(), "cmbStyle", "str_BendStyle", model.Style, styles);
    QComboBox* const amount = AddChoice(Fields(), "cmbAmount", "str_BendAmount", model.Amount, amounts);
    QComboBox* const pace = AddChoice(Fields(), "cmbPace", "str_BendPace", model.Pace,
                                      {Text("str_BendPaceUsual"), Text("str_BendPaceQuick"), Text("str_BendPaceSlow")});
    auto* const curve = new CurveField(model.Drawn, "str_BendCurve", this);
    AddBelow(curve, 2);
    OnChange([=, &model] {
        model.Reshape();
        const bool shaped = !Shell::BendModel::ByHand(model.Style);
        amount->setEnabled(shaped);
        pace->setEnabled(shaped);
        curve->ShowCurve();
    });
    connect(&curve->Picture(), &picBendCurve::Drawn, this, [=, this, &model] {
        model.TakeDrawn();
        Settle([&] {
            style->setCurrentIndex(model.Style);
            amount->setCurrentIndex(model.Amount);
        });
        Refresh();
    });
    FinishStrum("str_BendRemove");
}

}  // namespace Quillon::Forms
