#include "forms/ntne_frmLyrics.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QTabWidget>
#include <QTableView>
#include <algorithm>

#include "forms/SyllableTable.h"
#include "forms/Text.h"
#include "shell/LyricsModel.h"

namespace Quillon::Forms {

namespace {

constexpr int LinesOfText = 4;

}  // namespace

ntne_frmLyrics::ntne_frmLyrics(Shell::LyricsModel& edited, QWidget* parent)
    : ModelDialog(parent, "str_LyricsTitle", "LyricsWindowDetails"), model(edited) {
    setObjectName("ntne_frmLyrics");
    const std::string& name = model.TrackNames[static_cast<std::size_t>(model.Track)];
    setWindowTitle(ToQString(Core::LanguageText("str_LyricsTitle", {name})));
    AddTextPage();
    AddShownPage();
    Finish([this] { return model.Validate(); });
    ShowAll();
    texts[0]->setFocus();
    if (model.Cursor < table->rowCount()) {
        tblSyllables->setCurrentIndex(table->index(model.Cursor, SyllableTable::FirstLine));
        tblSyllables->scrollTo(tblSyllables->currentIndex(), QAbstractItemView::PositionAtCenter);
    }
    if (size().height() < 560) resize(std::max(width(), 680), 600);
}

QString ntne_frmLyrics::ComplaintText(std::string_view textKey) const {
    return ToQString(model.ComplaintText(textKey));
}

void ntne_frmLyrics::AddTextPage() {
    QFormLayout* const page = AddPage("str_LyricsPageText");
    auto* const beginning = new QRadioButton(Text("str_LyricsFromBeginning"), this);
    auto* const cursor = new QRadioButton(this);
    beginning->setObjectName("optFromBeginning");
    cursor->setObjectName("optFromCursor");
    const bool within = model.Cursor < static_cast<int>(model.Places.size());
    const std::string bar = within ? model.BarText(model.Cursor) : std::string("-");
    cursor->setText(ToQString(Core::LanguageText("str_LyricsFromCursor", {bar})));
    cursor->setEnabled(within && model.Cursor > 0);
    beginning->setChecked(true);
    auto* const start = new QHBoxLayout;
    start->addWidget(beginning);
    start->addWidget(cursor);
    start->addStretch();
    page->addRow(start);
    connect(cursor, &QRadioButton::toggled, this, [this](bool on) {
        model.FromCursor = on;
        ShowAll();
    });

    lines = new QTabWidget(this);
    lines->setObjectName("tabLines");
    for (int line = 0; line < Core::LyricLines; ++line) {
        auto* const text = new QPlainTextEdit(this);
        text->setObjectName(QString("txtLine%1").arg(line + 1));
        text->setTabChangesFocus(true);
        text->setFrameShape(QFrame::NoFrame);
        const QString caption = ToQString(Core::LanguageText("str_LyricsLine", {std::to_string(line + 1)}));
        text->setAccessibleName(QString(caption).remove('&'));
        lines->addTab(text, caption);
        texts[static_cast<std::size_t>(line)] = text;
        connect(text, &QPlainTextEdit::textChanged, this, [this, text, line] {
            if (filling) return;
            const auto before = model.Grid;
            model.SetLineText(line, text->toPlainText().toStdString());
            table->LineChanged(line);
            ShowRest();
            // The table follows what is typed to the note that it falls on.
            const auto changed = std::ranges::mismatch(before, model.Grid).in1 - before.begin();
            tblSyllables->scrollTo(table->index(static_cast<int>(changed), SyllableTable::FirstLine + line));
        });
    }
    lines->setFixedHeight(fontMetrics().lineSpacing() * (LinesOfText + 3));
    page->addRow(lines);
    auto* const note = new QLabel(Text("str_LyricsNote"), this);
    note->setWordWrap(true);
    note->setForegroundRole(QPalette::PlaceholderText);
    page->addRow(note);

    table = new SyllableTable(model, this);
    tblSyllables = new QTableView(this);
    tblSyllables->setObjectName("tblSyllables");
    tblSyllables->setModel(table);
    tblSyllables->setAccessibleName(Text("str_LyricsTable"));
    tblSyllables->verticalHeader()->hide();
    tblSyllables->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    tblSyllables->setTabKeyNavigation(false);
    tblSyllables->setSelectionMode(QAbstractItemView::SingleSelection);
    tblSyllables->setMinimumHeight(fontMetrics().lineSpacing() * 8);
    for (int column = 0; column < SyllableTable::FirstLine; ++column) {
        tblSyllables->setColumnWidth(column, fontMetrics().horizontalAdvance("0000000"));
    }
    tblSyllables->setColumnWidth(SyllableTable::Notes, fontMetrics().horizontalAdvance("0 0 0 0 0 0 0"));
    for (int line = 0; line < Core::LyricLines; ++line) {
        tblSyllables->horizontalHeader()->setSectionResizeMode(SyllableTable::FirstLine + line, QHeaderView::Stretch);
    }
    page->addRow(tblSyllables);
    connect(table, &SyllableTable::Edited, this, &ntne_frmLyrics::ShowLine);
    // Text and table show the same line.
    connect(tblSyllables->selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& to) {
        if (to.column() >= SyllableTable::FirstLine) lines->setCurrentIndex(to.column() - SyllableTable::FirstLine);
    });

    auto* const earlier = new QPushButton(Text("str_LyricsEarlier"), this);
    auto* const later = new QPushButton(Text("str_LyricsLater"), this);
    earlier->setObjectName("cmdEarlier");
    later->setObjectName("cmdLater");
    auto* const move = new QHBoxLayout;
    for (QPushButton* button : {earlier, later}) {
        button->setAutoDefault(false);
        move->addWidget(button);
    }
    auto* const rest = new QLabel(this);
    rest->setObjectName("lblRest");
    rest->setTextFormat(Qt::PlainText);
    move->addWidget(rest, 1);
    page->addRow(move);
    connect(earlier, &QPushButton::clicked, this, [this] { Move(-1); });
    connect(later, &QPushButton::clicked, this, [this] { Move(1); });
}

void ntne_frmLyrics::AddShownPage() {
    QFormLayout* const page = AddPage("str_LyricsPageShown");
    auto* const own = new QRadioButton(Text("str_LyricsOwn"), this);
    auto* const other = new QRadioButton(Text("str_LyricsOther"), this);
    own->setObjectName("optLyricsOwn");
    other->setObjectName("optLyricsOther");
    (model.OfOther ? other : own)->setChecked(true);
    page->addRow(QString(), own);
    page->addRow(QString(), other);
    OnStore([this, other] { model.OfOther = other->isChecked(); });
    QStringList names;
    for (const std::string& name : model.TrackNames) {
        names << QString("%1. %2").arg(names.size() + 1).arg(ToQString(name));
    }
    QComboBox* const track = AddChoice(page, "cmbLyrics", "str_LyricsTrack", model.LyricsTrack, names);
    QCheckBox* const staff = AddCheck(page, "chkShowStaff", "str_TrackShowStaff", model.ShowStaff);
    for (QWidget* field : {static_cast<QWidget*>(track), static_cast<QWidget*>(staff)}) {
        field->setEnabled(model.OfOther);
        connect(other, &QRadioButton::toggled, field, &QWidget::setEnabled);
    }
}

void ntne_frmLyrics::ShowLine(int line) {
    const QScopedValueRollback quiet(filling, true);
    texts[static_cast<std::size_t>(line)]->setPlainText(ToQString(model.LineText(line)));
}

void ntne_frmLyrics::ShowAll() {
    for (int line = 0; line < Core::LyricLines; ++line) ShowLine(line);
    ShowRest();
}

/// Says at once when a text is longer than its notes.
void ntne_frmLyrics::ShowRest() {
    QString told;
    for (int line = Core::LyricLines - 1; line >= 0; --line) {
        if (model.LeftOver(line) == 0) continue;
        told = ToQString(
            Core::LanguageText("str_LyricsRest", {std::to_string(line + 1), std::to_string(model.LeftOver(line))}));
    }
    findChild<QLabel*>("lblRest")->setText(told);
}

void ntne_frmLyrics::Move(int by) {
    const QModelIndex at = tblSyllables->currentIndex();
    const int line = at.column() - SyllableTable::FirstLine;
    if (line < 0 || !model.MoveSyllable(line, at.row(), by)) return ShowComplaint("str_LyricsNoRoom");
    ShowComplaint("");
    table->LineChanged(line);
    ShowLine(line);
    tblSyllables->setCurrentIndex(at.siblingAtRow(at.row() + by));
}

}  // namespace Quillon::Forms
