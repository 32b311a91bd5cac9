#include "forms/ntne_frmTremBar.h"

#include <QComboBox>

#include "forms/CurveField.h"
#include "forms/Text.h"
#include "forms/picBendCurve.h"
#include "shell/EffectModels.h"

namespace Quillon::Forms {

ntne_frmTremBar::ntne_frmTremBar(Shell::TremBarModel& model, QWidget* parent)
    : StrumDialog(model, parent, "str_TremTitle", "TremBarWindowDetails") {
    setObjectName("ntne_frmTremBar");
    QStringList styles, ranges;
    for (const Shell::Shape& style : Shell::TremBarModel::Styles()) styles << Text(style.Name);
    for (int range = 0; range < Shell::TremBarModel::Ranges; ++range) {
        ranges << ToQString(Shell::TremBarModel::RangeText(range));
    }
    QComboBox* const style = AddChoice(Fields(), "cmbStyle", "str_TremStyle", model.Style, styles);
    AddChoice(Fields(), "cmbRange", "str_TremRange", model.Range, ranges);
    QComboBox* const length =
        AddChoice(Fields(), "cmbLength", "str_TremLength", model.Length,
                  {Text("str_TremLengthWhole"), Text("str_TremLengthHalf"), Text("str_TremLengthQuarter")});
    auto* const curve = new CurveField(model.Drawn, "str_TremCurve", this);
    AddBelow(curve, 2);
    OnChange([=, &model] {
        model.Reshape();
        length->setEnabled(!Shell::TremBarModel::ByHand(model.Style));
        curve->ShowCurve();
    });
    connect(&curve->Picture(), &picBendCurve::Drawn, this, [=, this, &model] {
        model.TakeDrawn();
        Settle([&] { style->setCurrentIndex(model.Style); });
        Refresh();
    });
    FinishStrum("str_TremRemove");
}

}  // namespace Quillon::Forms
