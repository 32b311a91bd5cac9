#include "forms/ntne_frmExport.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QPlainTextEdit>
#include <QSpinBox>

#include "forms/Text.h"
#include "shell/TextExportModel.h"

namespace Quillon::Forms {

ntne_frmExport::ntne_frmExport(Shell::TextExportModel& model, QWidget* parent)
    : ModelDialog(parent, model.Title(), "ExportWindowDetails") {
    setObjectName("ntne_frmExport");
    QFormLayout* const page = AddPage();
    QSpinBox* const length = AddNumber(page, "vbMaxLine", "str_ExportMaxLine", model.MaxLineLength, 1,
                                       Shell::TextExportModel::MostLineLength, "str_ExportCharacters");
    QCheckBox* const warning = AddCheck(page, "chkWarning", "str_ExportWarning", model.Warning);
    auto* const sample = new QPlainTextEdit(this);
    sample->setObjectName("txtSample");
    sample->setAccessibleName(Text("str_ExportSample"));
    sample->setReadOnly(true);
    sample->setTabChangesFocus(true);
    sample->setLineWrapMode(QPlainTextEdit::NoWrap);
    sample->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    sample->setMinimumSize(fontMetrics().averageCharWidth() * 90, fontMetrics().lineSpacing() * 18);
    page->addRow(sample);
    const auto show = [&model, sample, length, warning] {
        Shell::TextExportModel shown = model;
        shown.MaxLineLength = static_cast<std::int16_t>(length->value());
        shown.Warning = warning->isChecked();
        sample->setPlainText(ToQString(shown.Sample()));
    };
    connect(length, &QSpinBox::valueChanged, this, show);
    connect(warning, &QCheckBox::toggled, this, show);
    show();
    Finish([] { return std::string_view(); });
}

}  // namespace Quillon::Forms
