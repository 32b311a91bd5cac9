#include "forms/ntne_frmAddTrack.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QRadioButton>

#include "core/mod_Instruments.h"
#include "forms/Text.h"
#include "shell/BarModels.h"

namespace Quillon::Forms {

ntne_frmAddTrack::ntne_frmAddTrack(Shell::AddTrackModel& model, QWidget* parent)
    : ModelDialog(parent, "str_AddTrackTitle", "AddTrackWindowDetails") {
    setObjectName("ntne_frmAddTrack");
    QFormLayout* const page = AddPage();
    auto* const normal = new QRadioButton(Text("str_AddTrackNormal"), this);
    auto* const drums = new QRadioButton(Text("str_AddTrackDrums"), this);
    normal->setObjectName("optNormal");
    drums->setObjectName("optDrums");
    (model.IsDrum ? drums : normal)->setChecked(true);
    auto* const row = new QHBoxLayout;
    row->addWidget(normal);
    row->addWidget(drums);
    row->addStretch();
    page->addRow(Text("str_AddTrackKind"), row);

    QLineEdit* const name = AddText(page, "txtName", "str_TrackName", model.Name);
    auto* const instrument = new QComboBox(this);
    instrument->setObjectName("cmbInstrument");
    int program = 0;
    for (const char* each : Core::InstrumentNames()) instrument->addItem(QString("%1  %2").arg(++program).arg(each));
    instrument->setCurrentIndex(model.Instrument);
    page->addRow(Text("str_TrackInstrument"), instrument);
    AddNumber(page, "vbStrings", "str_TrackStrings", model.Strings, 1, Core::StringCount);
    connect(drums, &QRadioButton::toggled, this, [instrument, name](bool drum) {
        instrument->setDisabled(drum);
        if (!name->isModified()) name->setText(ToQString(Shell::AddTrackModel::SuggestedName(drum)));
    });
    OnStore([=, &model] {
        model.IsDrum = drums->isChecked();
        model.Name = name->text().toStdString();
        model.Instrument = static_cast<std::int16_t>(instrument->currentIndex());
    });
    Finish([&model] { return model.Validate(); });
}

}  // namespace Quillon::Forms
