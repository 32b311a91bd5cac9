#include "forms/ntne_frmASCIIImport.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "forms/Text.h"
#include "shell/AsciiImportModel.h"

namespace Quillon::Forms {

using Shell::AsciiImportModel;
using Source = AsciiImportModel::Source;

ntne_frmASCIIImport::ntne_frmASCIIImport(AsciiImportModel& edited, QWidget* parent)
    : ImportDialog(edited, parent, edited.Caption(), "AsciiImportWindowDetails"), model(edited) {
    setObjectName("ntne_frmASCIIImport");
    QWidget* const source = MakeSource();
    Build(source, MakeOptions());
}

QWidget* ntne_frmASCIIImport::MakeSource() {
    if (model.From == Source::File) {
        QWidget* const file = MakeFileRow(model.IntoNew ? "" : "str_AsciiImportNote");
        file->setObjectName("picASCII");
        ShowFile(PathText(model.FileName));
        return file;
    }
    auto* const panel = new QWidget(this);
    auto* const row = new QHBoxLayout(panel);
    row->setContentsMargins(0, 0, 0, 0);
    if (model.From == Source::Clipboard) {
        panel->setObjectName("picClipboard");
        row->addWidget(new QLabel(Text("str_ClipboardImportNote"), panel));
        return panel;
    }
    panel->setObjectName("picHTTP");
    txtURL = new QLineEdit(ToQString(model.Url), panel);
    txtURL->setObjectName("txtURL");
    auto* const label = new QLabel(Text("str_ImportAddress"), panel);
    label->setBuddy(txtURL);
    auto* const cmdLook = new QPushButton(Text("str_ImportLook"), panel);
    cmdLook->setObjectName("cmdLook");
    cmdLook->setAutoDefault(false);
    connect(cmdLook, &QPushButton::clicked, this, &ntne_frmASCIIImport::cmdLook_Click);
    row->addWidget(label);
    row->addWidget(txtURL, 1);
    row->addWidget(cmdLook);
    return panel;
}

QWidget* ntne_frmASCIIImport::MakeOptions() {
    auto* const group = new QGroupBox(Text("str_ImportOptions"), this);
    auto* const columns = new QHBoxLayout(group);
    auto* const left = new QFormLayout;
    auto* const right = new QVBoxLayout;
    columns->addLayout(left);
    columns->addSpacing(18);
    columns->addLayout(right, 1);

    cmbLen = new QComboBox(this);
    cmbLen->setObjectName("cmbLen");
    cmbLen->setEditable(true);
    cmbLen->setInsertPolicy(QComboBox::NoInsert);
    for (const std::string_view key : AsciiImportModel::Dashes()) cmbLen->addItem(Text(key));
    cmbLen->setCurrentIndex(model.Dash);
    left->addRow(Text("str_ImportDash"), cmbLen);
    chkEnforceTiming = new QCheckBox(Text("str_ImportTiming"), this);
    chkEnforceTiming->setObjectName("chkEnforceTiming");
    chkEnforceTiming->setChecked(model.EnforceTiming);
    txtTiming = new QLineEdit(ToQString(model.Timing), this);
    txtTiming->setObjectName("txtTiming");
    txtTiming->setAccessibleName(Text("str_ImportTiming").remove('&'));
    left->addRow(chkEnforceTiming, txtTiming);

    const auto check = [&](const char* name, std::string_view key, bool value) {
        auto* const box = new QCheckBox(Text(key), this);
        box->setObjectName(name);
        box->setChecked(value);
        right->addWidget(box);
        return box;
    };
    auto* const kinds = new QHBoxLayout;
    auto* const Option1 = new QRadioButton(Text("str_ImportGuitar"), this);
    Option2 = new QRadioButton(Text("str_ImportDrums"), this);
    Option1->setObjectName("Option1");
    Option2->setObjectName("Option2");
    (model.Instrument == 0 ? Option1 : Option2)->setChecked(true);
    kinds->addWidget(Option1);
    kinds->addWidget(Option2);
    kinds->addStretch();
    right->addLayout(kinds);
    chkEnforceLength = check("chkEnforceLength", "str_ImportSameLength", model.SameLength);
    chkGetFileDetails = check("chkGetFileDetails", "str_ImportDetails", model.Details);
    chkAutoSettings = check("chkAutoSettings", "str_ImportAuto", model.AutoSettings);

    const auto changed = [this] {
        ShowTiming();
        StoreOptions();
        Refresh();
    };
    connect(cmbLen, &QComboBox::currentTextChanged, this, changed);
    connect(txtTiming, &QLineEdit::textEdited, this, changed);
    for (QCheckBox* box : {chkEnforceTiming, chkEnforceLength, chkGetFileDetails}) {
        connect(box, &QCheckBox::toggled, this, changed);
    }
    ShowTiming();
    return group;
}

/// The time signature looks like what it is: while it isn't enforced it can't be typed.
void ntne_frmASCIIImport::ShowTiming() {
    const bool enforced = chkEnforceTiming->isChecked();
    txtTiming->setReadOnly(!enforced);
    QPalette colors = palette();
    colors.setColor(QPalette::Base, palette().color(enforced ? QPalette::Base : QPalette::Button));
    txtTiming->setPalette(colors);
}

void ntne_frmASCIIImport::StoreOptions() {
    const int entry = cmbLen->findText(cmbLen->currentText());
    model.Dash = entry >= 0 ? static_cast<std::int16_t>(entry)
                            : AsciiImportModel::DashOfText(cmbLen->currentText().toStdString());
    model.EnforceTiming = chkEnforceTiming->isChecked();
    model.Timing = txtTiming->text().toStdString();
    model.SameLength = chkEnforceLength->isChecked();
    model.Details = chkGetFileDetails->isChecked();
    model.AutoSettings = chkAutoSettings->isChecked();
    model.Instrument = Option2->isChecked() ? 1 : 0;
    if (txtURL) model.Url = txtURL->text().trimmed().toStdString();
}

void ntne_frmASCIIImport::Command1_Click() {
    const QString filters = Text("str_FilterTextTabs") + " (*.txt *.TXT *.tab *.TAB *.html *.HTML *.htm *.HTM);;" +
                            Text("str_FilterAll") + " (*)";
    const QString folder = PathText(model.FileName.parent_path());
    const QString chosen = QFileDialog::getOpenFileName(this, Text("str_OpenTitle"), folder, filters);
    if (chosen.isEmpty() || !model.ChooseFile(ToPath(chosen))) return;
    ShowFile(PathText(model.FileName));
    Refresh();
}

void ntne_frmASCIIImport::cmdLook_Click() {
    if (Run([this](const auto& progress) { return model.Look(progress); })) Refresh();
}

}  // namespace Quillon::Forms
