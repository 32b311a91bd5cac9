#include "forms/ReaderChoice.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>

#include "core/mod_Language.h"
#include "forms/Text.h"
#include "forms/picPreview.h"

namespace Quillon::Forms {

using Exchange::ImportReport;
using Shell::ImportModel;

namespace {

struct Count {
    const char* Text;
    int ImportReport::*Field;
};
/// Rows of the table, without the texts' "%1".
constexpr Count Counts[] = {
    {"str_ReportSystems", &ImportReport::Systems},     {"str_ReportTracks", &ImportReport::Tracks},
    {"str_ReportBars", &ImportReport::Bars},           {"str_ReportNotesFound", &ImportReport::NotesFound},
    {"str_ReportNotesKept", &ImportReport::NotesKept}, {"str_ReportNotesMoved", &ImportReport::NotesMoved},
    {"str_ReportNotesLost", &ImportReport::NotesLost},
};

QString RowName(const char* key) { return ToQString(Core::LanguageText(key, {""})).remove(':').trimmed(); }

}  // namespace

ReaderChoice::ReaderChoice(ImportModel& edited, QWidget* parent)
    : QWidget(parent),
      model(edited),
      lstCounts(new QTableWidget(static_cast<int>(std::size(Counts)), ImportModel::Readers, this)),
      txtRemarks(new QPlainTextEdit(this)),
      preview(new picPreview(this)),
      tmrTry(new QTimer(this)) {
    const std::array names = {Text("str_ReaderClassic"), Text(model.OtherName())};
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    auto* const choice = new QHBoxLayout;
    for (int reader = 0; reader < ImportModel::Readers; ++reader) {
        auto*& option = optReaders[static_cast<std::size_t>(reader)];
        option = new QRadioButton(names[static_cast<std::size_t>(reader)], this);
        option->setObjectName(reader == ImportModel::Classic ? "optClassic" : "optOther");
        option->setChecked(reader == model.Reader);
        connect(option, &QRadioButton::clicked, this, [this, reader] { Choose(reader); });
        choice->addWidget(option);
    }
    choice->addStretch();
    column->addLayout(choice);
    lblAbout = new QLabel(this);
    lblAbout->setObjectName("lblAbout");
    lblAbout->setWordWrap(true);
    column->addWidget(lblAbout);

    lstCounts->setObjectName("lstCounts");
    lstCounts->setAccessibleName(Text("str_ImportCounts"));
    lstCounts->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lstCounts->setSelectionMode(QAbstractItemView::NoSelection);
    lstCounts->setFocusPolicy(Qt::NoFocus);
    QStringList rows;
    for (const Count& count : Counts) rows << RowName(count.Text);
    lstCounts->setVerticalHeaderLabels(rows);
    QStringList columns;
    for (const QString& name : names) columns << QString(name).remove('&');
    lstCounts->setHorizontalHeaderLabels(columns);
    lstCounts->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    lstCounts->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    lstCounts->verticalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    lstCounts->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    txtRemarks->setObjectName("txtRemarks");
    txtRemarks->setAccessibleName(Text("str_ImportRemarks"));
    txtRemarks->setReadOnly(true);
    txtRemarks->setTabChangesFocus(true);
    txtRemarks->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    auto* const report = new QHBoxLayout;
    report->addWidget(lstCounts, 3);
    report->addWidget(txtRemarks, 4);
    column->addLayout(report);
    lstCounts->setMinimumWidth(fontMetrics().averageCharWidth() * 52);

    constexpr int leastPaper = 90;  // pixels: on a small screen it gives way first
    preview->setMinimumHeight(leastPaper);
    column->addWidget(preview, 1);
    // Typing an option changes it letter by letter; what it comes to is tried once.
    constexpr int pause = 150;  // ms
    tmrTry->setSingleShot(true);
    tmrTry->setInterval(pause);
    connect(tmrTry, &QTimer::timeout, this, &ReaderChoice::Try);
    Try();
}

void ReaderChoice::Refresh() {
    model.Changed();
    tmrTry->start();
}

void ReaderChoice::Choose(int reader) {
    model.Reader = static_cast<std::int16_t>(reader);
    ShowChosen();
}

void ReaderChoice::Try() {
    for (int reader = 0; reader < ImportModel::Readers; ++reader) {
        const ImportModel::Trial* const trial = model.Tried(reader);
        for (int row = 0; row < lstCounts->rowCount(); ++row) {
            QString text = QStringLiteral("–");
            if (trial && trial->Failure.empty()) text = QString::number(trial->Report.*(Counts[row].Field));
            auto* const item = new QTableWidgetItem(text);
            item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            lstCounts->setItem(row, reader, item);
        }
    }
    // Texts have systems, MIDI files have tracks.
    const ImportModel::Trial* const trial = model.Tried(ImportModel::Other);
    lstCounts->setRowHidden(0, trial && trial->Report.Systems == 0 && trial->Report.Tracks > 0);
    int height = lstCounts->horizontalHeader()->sizeHint().height() + 2 * lstCounts->frameWidth();
    for (int row = 0; row < lstCounts->rowCount(); ++row) height += lstCounts->rowHeight(row);  // 0 for a hidden one
    lstCounts->setFixedHeight(height);
    txtRemarks->setFixedHeight(height);
    ShowChosen();
}

void ReaderChoice::ShowChosen() {
    lblAbout->setText(Text(model.About(model.Reader)));
    const ImportModel::Trial* const trial = model.Tried(model.Reader);
    QStringList remarks;
    if (!trial) {
        remarks << Text(model.Missing());
    } else if (!trial->Failure.empty()) {
        remarks << ToQString(trial->Failure);
    } else {
        remarks = ToQString(Exchange::RemarksText(trial->Report)).split('\n', Qt::SkipEmptyParts);
        if (remarks.isEmpty()) remarks << Text("str_ImportNoRemarks");
    }
    txtRemarks->setPlainText(remarks.join('\n'));
    preview->ShowExcerpt(model.Sheet(model.Reader));
}

}  // namespace Quillon::Forms
