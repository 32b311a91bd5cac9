#include "forms/ntne_frmInstrument.h"

#include <QApplication>
#include <QFormLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>

#include "core/mod_Instruments.h"
#include "forms/Text.h"
#include "shell/InstrumentModel.h"
#include "shell/mod_Shell.h"

namespace Quillon::Forms {

using Shell::InstrumentModel;

ntne_frmInstrument::ntne_frmInstrument(InstrumentModel& edited, QWidget* parent)
    : ModelDialog(parent, "str_InstrumentTitle", "InstrumentWindowDetails"), model(edited) {
    setObjectName("ntne_frmInstrument");
    QFormLayout* const page = AddPage();
    auto* const filter = new QLineEdit(this);
    filter->setObjectName("txtFilter");
    filter->setClearButtonEnabled(true);
    filter->installEventFilter(this);
    page->addRow(Text("str_InstrumentFilter"), filter);
    lstInstruments = new QTreeWidget(this);
    lstInstruments->setObjectName("lstInstruments");
    lstInstruments->setAccessibleName(Text("str_InstrumentTitle"));
    lstInstruments->setHeaderHidden(true);
    lstInstruments->setRootIsDecorated(false);
    lstInstruments->setMinimumHeight(fontMetrics().lineSpacing() * 20);
    page->addRow(lstInstruments);
    auto* const listen = new QPushButton(Text("str_InstrumentListen"), this);
    listen->setObjectName("cmdListen");
    listen->setAutoDefault(false);
    page->addRow(listen);
    connect(filter, &QLineEdit::textChanged, this, &ntne_frmInstrument::Fill);
    connect(listen, &QPushButton::clicked, this,
            [this] { Shell::Guarded([this] { Shell::ListenToInstrument(Chosen()); }); });
    connect(lstInstruments, &QTreeWidget::itemDoubleClicked, this, [this] {
        if (Chosen() >= 0) accept();
    });
    OnStore([this] {
        if (Chosen() >= 0) model.Program = static_cast<std::int16_t>(Chosen());
    });
    Finish([this] { return model.Validate(); });
    Fill(QString());
}

void ntne_frmInstrument::Fill(const QString& words) {
    const int before = Chosen() >= 0 ? Chosen() : model.Program;
    lstInstruments->clear();
    QTreeWidgetItem* family = nullptr;
    QTreeWidgetItem* select = nullptr;
    int lastFamily = -1;
    for (const int program : InstrumentModel::Matching(words.toStdString())) {
        const int itsFamily = InstrumentModel::FamilyOf(program);
        if (itsFamily != lastFamily) {
            family = new QTreeWidgetItem(lstInstruments, {ToQString(InstrumentModel::FamilyName(itsFamily))});
            family->setFlags(Qt::ItemIsEnabled);
            QFont bold = font();
            bold.setBold(true);
            family->setFont(0, bold);
            lastFamily = itsFamily;
        }
        const char* const name = Core::InstrumentNames()[static_cast<std::size_t>(program)];
        auto* const entry = new QTreeWidgetItem(family, {QString("%1  %2").arg(program + 1, 3).arg(name)});
        entry->setData(0, Qt::UserRole, program);
        if (!select || program == before) select = entry;
    }
    lstInstruments->expandAll();
    lstInstruments->setCurrentItem(select);
    if (select) lstInstruments->scrollToItem(select, QAbstractItemView::PositionAtCenter);
}

int ntne_frmInstrument::Chosen() const {
    const QTreeWidgetItem* const item = lstInstruments->currentItem();
    return item && item->parent() ? item->data(0, Qt::UserRole).toInt() : -1;
}

/// Up and down walk the list while the filter is typed.
bool ntne_frmInstrument::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
            QApplication::sendEvent(lstInstruments, event);
            return true;
        }
    }
    return ModelDialog::eventFilter(watched, event);
}

}  // namespace Quillon::Forms
