#include "forms/PrintFields.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

#include "core/mod_TabFileStructure.h"
#include "forms/Text.h"
#include "shell/PrintModel.h"

namespace Quillon::Forms {

using Core::Open;

PrintFields::PrintFields(Shell::PrintModel& edited, QWidget* parent) : QWidget(parent), model(edited) {
    setWindowTitle(Text("str_PrintPages"));  // of the print dialog's tab
    auto* const body = new QVBoxLayout(this);
    auto* const tracks = new QGroupBox(Text("str_PrintTracks"), this);
    auto* const trackRows = new QVBoxLayout(tracks);
    const QString name = ToQString(Open.TabFile.Tracks[Open.CurTrack].Name).replace('&', "&&");
    auto* const one = new QRadioButton(Text("str_PrintOneTrack").arg(name), tracks);
    optAllTracks = new QRadioButton(Text("str_PrintAllTracks"), tracks);
    one->setObjectName("optOneTrack");
    optAllTracks->setObjectName("optAllTracks");
    (model.AllTracks ? optAllTracks : one)->setChecked(true);
    optAllTracks->setEnabled(Open.TabFile.Tracks.Count() > 1);
    trackRows->addWidget(one);
    trackRows->addWidget(optAllTracks);
    body->addWidget(tracks);

    static constexpr const char* names[] = {"cmbHeaderLeft", "cmbHeaderCenter", "cmbHeaderRight",
                                            "cmbFooterLeft", "cmbFooterCenter", "cmbFooterRight"};
    static constexpr const char* columns[] = {"str_AtLeft", "str_AtCenter", "str_AtRight"};
    for (const bool header : {true, false}) {
        const QString title = Text(header ? "str_PrintHeader" : "str_PrintFooter");
        auto* const group = new QGroupBox(title, this);
        auto* const grid = new QGridLayout(group);
        for (int column = 0; column < 3; ++column) {
            const auto index = static_cast<std::size_t>(column + (header ? 0 : 3));
            auto* const combo = new QComboBox(group);
            combo->setObjectName(names[index]);
            combo->setAccessibleName(title + ", " + Text(columns[column]));
            for (int field = 0; field < Exchange::RunningFieldCount; ++field) {
                combo->addItem(Text(Shell::RunningFieldText(static_cast<Exchange::RunningField>(field))));
            }
            combo->setCurrentIndex(static_cast<int>(model.Fields[index]));
            combos[index] = combo;
            grid->addWidget(new QLabel(Text(columns[column]), group), 0, column);
            grid->addWidget(combo, 1, column);
            grid->setColumnStretch(column, 1);
        }
        body->addWidget(group);
    }
    body->addStretch();
}

void PrintFields::Store() const {
    model.AllTracks = optAllTracks->isChecked();
    for (std::size_t i = 0; i < combos.size(); ++i) {
        model.Fields[i] = static_cast<Exchange::RunningField>(combos[i]->currentIndex());
    }
}

}  // namespace Quillon::Forms
