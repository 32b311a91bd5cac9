#include "forms/frmChordBatch.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QStackedWidget>
#include <QTreeWidget>

#include "forms/Text.h"
#include "tools/ChordBatch.h"

namespace Quillon::Forms {

using Operation = Tools::ChordBatchModel::Operation;

frmChordBatch::frmChordBatch(Tools::ChordBatchModel& edited, QWidget* parent)
    : ModelDialog(parent, "str_BatchTitle", "ChordBatchWindowDetails"), model(edited) {
    setObjectName("frmChordBatch");
    QFormLayout* const page = AddPage();
    auto* const cmbDo = new QComboBox(this);
    cmbDo->setObjectName("cmbOperation");
    for (const char* const key : {"str_BatchRename", "str_BatchTranspose", "str_BatchDelete", "str_BatchExport"}) {
        cmbDo->addItem(Text(key));
    }
    cmbDo->setCurrentIndex(static_cast<int>(model.Do));
    page->addRow(ToQString(Core::LanguageText(model.Names.size() == 1 ? "str_BatchWithOne" : "str_BatchWith",
                                              {std::to_string(model.Names.size())})),
                 cmbDo);

    panels = new QStackedWidget(this);
    panels->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    const auto panel = [this] {
        auto* const fields = new QFormLayout(new QWidget(panels));
        fields->setContentsMargins(0, 0, 0, 0);
        panels->addWidget(fields->parentWidget());
        return fields;
    };
    QFormLayout* const rename = panel();
    const auto text = [&](const char* name, const char* label, std::string& value) {
        auto* const field = new QLineEdit(ToQString(value), this);
        field->setObjectName(name);
        connect(field, &QLineEdit::textChanged, this, [this, &value](const QString& typed) {
            value = typed.toStdString();
            ShowPlan();
        });
        rename->addRow(Text(label), field);
    };
    text("txtFind", "str_BatchFind", model.Find);
    text("txtReplace", "str_BatchReplace", model.Replace);
    QFormLayout* const transpose = panel();
    auto* const semitones = new QSpinBox(this);
    semitones->setObjectName("vbSemitones");
    semitones->setRange(-Tools::ChordBatchModel::MostSemitones, Tools::ChordBatchModel::MostSemitones);
    semitones->setValue(model.Semitones);
    connect(semitones, &QSpinBox::valueChanged, this, [this](int value) {
        model.Semitones = static_cast<std::int16_t>(value);
        ShowPlan();
    });
    transpose->addRow(Text("str_BatchSemitones"), semitones);
    const auto check = [&](const char* name, const char* label, bool& value) {
        auto* const box = new QCheckBox(Text(label), this);
        box->setObjectName(name);
        box->setChecked(value);
        connect(box, &QCheckBox::toggled, this, [this, &value](bool on) {
            value = on;
            ShowPlan();
        });
        transpose->addRow(QString(), box);
    };
    check("chkFlats", "str_BatchFlats", model.Flats);
    check("chkKeep", "str_BatchKeep", model.KeepOld);
    for (const char* const about : {"str_BatchDeleteAbout", "str_BatchExportAbout"}) {
        auto* const note = new QLabel(Text(about), this);
        note->setWordWrap(true);
        panels->addWidget(note);
    }
    page->addRow(panels);

    lstPlan = new QTreeWidget(this);
    lstPlan->setObjectName("lstPlan");
    lstPlan->setRootIsDecorated(false);
    lstPlan->setUniformRowHeights(true);
    lstPlan->setSelectionMode(QAbstractItemView::NoSelection);
    lstPlan->setHeaderLabels({Text("str_BatchFrom"), Text("str_BatchTo")});
    lstPlan->setAccessibleName(Text("str_BatchTitle"));
    page->addRow(lstPlan);
    connect(cmbDo, &QComboBox::currentIndexChanged, this, [this](int index) {
        model.Do = static_cast<Operation>(index);
        ShowPlan();
    });
    Finish([this] { return model.Validate(); });
    ShowPlan();
}

void frmChordBatch::ShowPlan() {
    panels->setCurrentIndex(static_cast<int>(model.Do));
    ShowComplaint("");
    lstPlan->clear();
    const auto plan = model.Plan();
    QList<QTreeWidgetItem*> rows;
    if (plan.empty()) {
        for (const std::string& name : model.Names) rows << new QTreeWidgetItem({ToQString(name)});
    }
    for (const auto& change : plan) {
        const bool well = *change.Why == 0;
        auto* const row = new QTreeWidgetItem({ToQString(change.From), well ? ToQString(change.To) : Text(change.Why)});
        if (!well) row->setForeground(1, palette().placeholderText());
        rows << row;
    }
    lstPlan->addTopLevelItems(rows);
    lstPlan->setColumnHidden(1, plan.empty());
    lstPlan->header()->resizeSection(0, lstPlan->width() / 2);
}

}  // namespace Quillon::Forms
