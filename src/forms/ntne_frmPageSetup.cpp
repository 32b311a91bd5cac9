#include "forms/ntne_frmPageSetup.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QRadioButton>

#include "forms/Text.h"
#include "shell/DialogModels.h"

namespace Quillon::Forms {

ntne_frmPageSetup::ntne_frmPageSetup(Shell::PageSetupModel& model, QWidget* parent)
    : ModelDialog(parent, "str_PageSetupTitle", "PageSetupWindowDetails") {
    setObjectName("ntne_frmPageSetup");
    Drawing::PageSetup& setup = model.Page;
    QFormLayout* const page = AddPage();

    QStringList papers;
    for (int index = 0; index < Drawing::PaperSizeCount; ++index) papers << Drawing::PaperSizeName(index);
    AddChoice(page, "cmbPaperSize", "str_PaperSize", setup.PaperSizeIndex, papers);

    auto* const upright = new QRadioButton(Text("str_Portrait"), this);
    auto* const wide = new QRadioButton(Text("str_Landscape"), this);
    upright->setObjectName("optPortrait");
    wide->setObjectName("optLandscape");
    (setup.IsLandscape ? wide : upright)->setChecked(true);
    auto* const row = new QHBoxLayout;
    row->addWidget(upright);
    row->addWidget(wide);
    row->addStretch();
    page->addRow(Text("str_Orientation"), row);
    OnStore([wide, &setup] { setup.IsLandscape = wide->isChecked(); });

    AddNumber(page, "vbLeftMargin", "str_LeftMargin", setup.PageLeftMargin, 0, 300, "str_UnitPixels");
    AddNumber(page, "vbTopMargin", "str_TopMargin", setup.PageTopMargin, 0, 600, "str_UnitPixels");
    AddChoice(page, "cmbScale", "str_RulerScale", setup.PageScaleIndex, {Text("str_Centimetres"), Text("str_Inches")});

    Finish([&model] { return model.Validate(); });
}

}  // namespace Quillon::Forms
