#include "forms/ntne_frmPrintOptions.h"

#include <QFormLayout>

#include "forms/PrintFields.h"

namespace Quillon::Forms {

ntne_frmPrintOptions::ntne_frmPrintOptions(Shell::PrintModel& model, QWidget* parent)
    : ModelDialog(parent, "str_PrintOptionsTitle", "PrintOptionsWindowDetails") {
    setObjectName("ntne_frmPrintOptions");
    QFormLayout* const page = AddPage();
    auto* const fields = new PrintFields(model, this);
    fields->layout()->setContentsMargins(0, 0, 0, 0);
    page->addRow(fields);
    OnStore([fields] { fields->Store(); });
    Finish([] { return std::string_view(); });
}

}  // namespace Quillon::Forms
