#include "forms/ntne_frmGoto.h"

#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

#include "core/mod_TabFileStructure.h"
#include "forms/Text.h"
#include "shell/GoCommands.h"

namespace Quillon::Forms {

ntne_frmGoto::ntne_frmGoto(Shell::GotoModel& model, QWidget* parent)
    : ModelDialog(parent, "str_GotoTitle", "GotoWindowDetails") {
    setObjectName("ntne_frmGoto");
    const std::string bar = std::to_string(Core::Open.CurBar + 1);
    setWindowTitle(ToQString(Core::LanguageText("str_TitleOfBar", {windowTitle().toStdString(), bar})));
    QFormLayout* const page = AddPage();
    QLineEdit* const name = AddText(page, "txtName", "str_GotoName", model.Name);
    name->setPlaceholderText(Text("str_GotoExample"));
    name->selectAll();
    auto* const remove = new QPushButton(Text("str_GotoRemove"), this);
    remove->setObjectName("cmdRemove");
    remove->setAutoDefault(false);
    remove->setEnabled(!model.Name.empty());
    page->addRow(QString(), remove);
    connect(remove, &QPushButton::clicked, this, [this, name] {
        name->clear();
        name->setModified(true);
        accept();
    });
    AddNote(page, "str_GotoNote");
    Finish([&model] { return model.Validate(); });
}

ntne_frmGotoBar::ntne_frmGotoBar(Shell::GotoBarModel& model, QWidget* parent)
    : ModelDialog(parent, "str_GotoBarTitle", "GotoBarWindowDetails") {
    setObjectName("ntne_frmGotoBar");
    QSpinBox* const bar = AddNumber(AddPage(), "vbBar", "str_GotoBarNumber", model.Bar, 1, model.LastBar);
    bar->setSuffix(ToQString(Core::LanguageText("str_OfBars", {std::to_string(model.LastBar)})));
    Finish([&model] { return model.Validate(); });
    bar->selectAll();
}

}  // namespace Quillon::Forms
