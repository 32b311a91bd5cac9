#include "forms/frmOptions.h"

#include <QComboBox>
#include <QFormLayout>

#include "forms/Text.h"
#include "shell/DialogModels.h"

namespace Quillon::Forms {

frmOptions::frmOptions(Shell::OptionsModel& model, QWidget* parent)
    : ModelDialog(parent, "str_OptionsTitle", "OptionsWindowDetails") {
    setObjectName("frmOptions");
    QFormLayout* page = AddPage("str_PageGeneral");
    auto* const language = new QComboBox(this);
    language->setObjectName("cmbLanguage");
    for (const std::string& name : model.Languages) language->addItem(ToQString(name));
    language->setCurrentText(ToQString(model.Language));
    page->addRow(Text("str_OptionLanguage"), language);
    OnStore([language, &model] { model.Language = language->currentText().toStdString(); });
    AddChoice(page, "cmbTheme", "str_OptionTheme", model.Theme,
              {Text("str_ThemeSystem"), Text("str_ThemeLight"), Text("str_ThemeDark")});
    AddCheck(page, "chkImportAtStart", "str_OptionImportAtStart", model.ImportAtStart);

    page = AddPage("str_PageLayout");
    AddCheck(page, "chkAutoScroll", "str_OptionAutoScroll", model.Settings.AutoScroll);
    AddCheck(page, "chkAutoStretch", "str_OptionAutoStretch", model.Settings.AutoPageStretch);
    AddNumber(page, "vbMinTabX", "str_OptionMinTabX", model.MinTabX, 8, 200, "str_UnitPixels");
    AddNumber(page, "vbMaxTabX", "str_OptionMaxTabX", model.MaxTabX, 8, 400, "str_UnitPixels");

    BuildSoundPage(model);
    BuildEffectsPage(model);
    page = AddPage("str_PageTools");
    AddCheck(page, "chkChordPlay", "str_OptionChordPlay", model.Settings.PlayChordsOnLoad);
    AddCheck(page, "chkChordReverb", "str_OptionChordReverb", model.Settings.ChordReverb);
    AddCheck(page, "chkChordHide", "str_OptionChordHide", model.Settings.HideChordManager);
    AddCheck(page, "chkScaleReverb", "str_OptionScaleReverb", model.Settings.ScaleReverb);
    Finish([this, &model] {
        const std::string_view bends = CheckBends(model);
        return bends.empty() ? model.Validate() : bends;
    });
}

}  // namespace Quillon::Forms
