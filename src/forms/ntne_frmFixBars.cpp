#include "forms/ntne_frmFixBars.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QSignalBlocker>
#include <QTreeWidget>

#include "core/mod_TabFileStructure.h"
#include "forms/Text.h"
#include "shell/BatchFixModel.h"
#include "shell/GoCommands.h"
#include "shell/mod_Shell.h"

namespace Quillon::Forms {

using Editing::Fullness;
using Shell::BatchFixModel;

ntne_frmFixBars::ntne_frmFixBars(BatchFixModel& edited, QWidget* parent)
    : ModelDialog(parent, "str_FixBarsTitle", "FixBarsWindowDetails"), model(edited) {
    setObjectName("ntne_frmFixBars");
    QFormLayout* const page = AddPage();
    QComboBox* const tracks =
        AddChoice(page, "cmbTracks", "str_OfTracks", model.Tracks, {Text("str_ThisTrack"), Text("str_AllTheTracks")});
    connect(tracks, &QComboBox::currentIndexChanged, this, [this](int index) {
        model.Tracks = static_cast<std::int16_t>(index);
        Fill();
    });
    lblSummary = new QLabel(this);
    lblSummary->setObjectName("lblSummary");
    lblSummary->setWordWrap(true);
    page->addRow(lblSummary);
    lstBars = new QTreeWidget(this);
    lstBars->setObjectName("lstBars");
    lstBars->setAccessibleName(Text("str_FixBarsTitle"));
    lstBars->setHeaderLabels({Text("str_ColumnTrack"), Text("str_ColumnBar"), Text("str_ColumnState")});
    lstBars->setRootIsDecorated(false);
    lstBars->setUniformRowHeights(true);
    lstBars->setMinimumHeight(fontMetrics().lineSpacing() * 12);
    page->addRow(lstBars);
    chkFull = new QCheckBox(Text("str_FixBarsShowFull"), this);
    chkFull->setObjectName("chkFull");
    page->addRow(chkFull);
    connect(chkFull, &QCheckBox::toggled, this, &ntne_frmFixBars::Fill);
    connect(lstBars, &QTreeWidget::currentItemChanged, this, [](QTreeWidgetItem* item) {
        if (!item) return;
        const int track = item->data(0, Qt::UserRole).toInt();
        const int bar = item->data(1, Qt::UserRole).toInt();
        Shell::Guarded([track, bar] { Shell::GoTo(track, bar, 0); });
    });
    AddNote(page, "str_FixBarsNote");
    Finish([] { return std::string_view(); });
    Fill();
}

void ntne_frmFixBars::Fill() {
    const QSignalBlocker quiet(lstBars);
    lstBars->clear();
    const auto bars = model.Bars();
    for (const BatchFixModel::BarState& bar : bars) {
        if (bar.Is == Fullness::Full && !chkFull->isChecked()) continue;
        auto* const row = new QTreeWidgetItem(lstBars);
        row->setText(0, ToQString(Core::Open.TabFile.Tracks[bar.Track].Name));
        row->setText(1, QString::number(bar.Bar + 1));
        row->setText(2, ToQString(BatchFixModel::StateText(bar)));
        row->setData(0, Qt::UserRole, bar.Track);
        row->setData(1, Qt::UserRole, bar.Bar);
        row->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
    }
    for (int column = 0; column < lstBars->columnCount(); ++column) lstBars->resizeColumnToContents(column);
    const auto count = [&](Fullness which) { return std::to_string(BatchFixModel::Count(bars, which)); };
    lblSummary->setText(ToQString(Core::LanguageText(
        "str_FixBarsSummary", {count(Fullness::Under), count(Fullness::Over), count(Fullness::Full)})));
}

}  // namespace Quillon::Forms
