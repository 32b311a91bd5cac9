#include "forms/DrumTable.h"

#include <QComboBox>
#include <QHeaderView>
#include <QStyledItemDelegate>

#include "core/mod_Instruments.h"
#include "forms/Text.h"

namespace Quillon::Forms {

namespace {

using Core::PercAssignment;

struct DrumLetter {
    const char* Letter;
    std::int16_t PercAssignment::*Field;
};
// In the order in which a bar's painter looks for a letter.
constexpr DrumLetter Letters[] = {
    {"F", &PercAssignment::dbf}, {"O", &PercAssignment::dbo}, {"S", &PercAssignment::dbs}, {"X", &PercAssignment::dbx},
    {"c", &PercAssignment::dlc}, {"f", &PercAssignment::dlf}, {"o", &PercAssignment::dlo}, {"r", &PercAssignment::dlr},
    {"s", &PercAssignment::dls}, {"t", &PercAssignment::dlt}, {"x", &PercAssignment::dlx}, {"~", &PercAssignment::dro},
};

QString SoundName(int sound) {
    const auto names = Core::DrumSoundNames();
    if (sound < 0 || sound >= static_cast<int>(names.size())) return QString::number(sound);
    return names[static_cast<std::size_t>(sound)];
}

/// Edits a cell with the list of sounds.
class SoundDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const override {
        auto* const list = new QComboBox(parent);
        for (const char* name : Core::DrumSoundNames()) list->addItem(name);
        return list;
    }
    void setEditorData(QWidget* editor, const QModelIndex& index) const override {
        auto* const list = static_cast<QComboBox*>(editor);
        list->setCurrentIndex(index.data(Qt::UserRole).toInt());
    }
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override {
        const int sound = static_cast<QComboBox*>(editor)->currentIndex();
        if (sound < 0) return;
        model->setData(index, sound, Qt::UserRole);
        model->setData(index, SoundName(sound), Qt::DisplayRole);
    }
};

}  // namespace

DrumTable::DrumTable(const Assignments& shown, QWidget* parent)
    : QTableWidget(static_cast<int>(std::size(Letters)), Core::StringCount, parent), given(shown) {
    setItemDelegate(new SoundDelegate(this));
    setEditTriggers(QAbstractItemView::AllEditTriggers);
    setTabKeyNavigation(false);
    setAccessibleName(Text("str_PageDrums"));
    QStringList columns;
    for (int string = 0; string < Core::StringCount; ++string) {
        columns << ToQString(Core::LanguageText("str_StringNumber", {std::to_string(string + 1)}));
    }
    setHorizontalHeaderLabels(columns);
    QStringList rows;
    for (int row = 0; row < rowCount(); ++row) {
        rows << Letters[row].Letter;
        for (int string = 0; string < Core::StringCount; ++string) {
            const int sound = given[string].*Letters[row].Field;
            auto* const cell = new QTableWidgetItem(SoundName(sound));
            cell->setData(Qt::UserRole, sound);
            setItem(row, string, cell);
        }
    }
    setVerticalHeaderLabels(rows);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 10);
    horizontalHeader()->setDefaultSectionSize(fontMetrics().horizontalAdvance("Acoustic Bass Drum") + 30);
}

DrumTable::Assignments DrumTable::Chosen() const {
    Assignments chosen = given;
    for (int row = 0; row < rowCount(); ++row) {
        for (int string = 0; string < Core::StringCount; ++string) {
            chosen[string].*Letters[row].Field =
                static_cast<std::int16_t>(item(row, string)->data(Qt::UserRole).toInt());
        }
    }
    return chosen;
}

}  // namespace Quillon::Forms
