#include "forms/frmImportReport.h"

#include <QDialogButtonBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "forms/Text.h"
#include "forms/WindowPlace.h"
#include "shell/ImportModel.h"

namespace Quillon::Forms {

frmImportReport::frmImportReport(Shell::ImportReportModel& model, QWidget* parent) : QDialog(parent) {
    setObjectName("frmImportReport");
    setWindowTitle(Text("str_ImportReportTitle"));
    auto* const body = new QVBoxLayout(this);
    auto* const text = new QPlainTextEdit(ToQString(model.Text), this);
    text->setObjectName("txtReport");
    text->setAccessibleName(windowTitle());
    text->setReadOnly(true);
    text->setTabChangesFocus(true);
    body->addWidget(text);
    auto* const buttons = new QDialogButtonBox(this);
    auto* const save = buttons->addButton(Text("str_ImportReportSave"), QDialogButtonBox::ActionRole);
    save->setObjectName("cmdSave");
    auto* const close = buttons->addButton(Text("str_Close"), QDialogButtonBox::RejectRole);
    close->setDefault(true);
    connect(save, &QPushButton::clicked, this, [&model] { model.Save(); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    body->addWidget(buttons);
    connect(this, &QDialog::finished, this, [this] { KeepPlace(*this, "ImportReportWindowDetails"); });
    RestorePlace(*this, "ImportReportWindowDetails", QSize(560, 420));
}

}  // namespace Quillon::Forms
