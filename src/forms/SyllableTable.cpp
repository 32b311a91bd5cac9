#include "forms/SyllableTable.h"

#include "forms/Text.h"
#include "shell/LyricsModel.h"

namespace Quillon::Forms {

SyllableTable::SyllableTable(Shell::LyricsModel& edited, QObject* parent)
    : QAbstractTableModel(parent), model(edited) {}

int SyllableTable::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(model.Grid.size());
}

int SyllableTable::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : FirstLine + Core::LyricLines;
}

QVariant SyllableTable::data(const QModelIndex& index, int role) const {
    if (role == Qt::TextAlignmentRole && index.column() < Notes) return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole && role != Qt::EditRole) return {};
    switch (index.column()) {
        case Bar:
            return ToQString(model.BarText(index.row()));
        case Beat:
            return ToQString(model.BeatText(index.row()));
        case Notes:
            return ToQString(model.NotesText(index.row()));
        default:
            return ToQString(model.Grid[static_cast<std::size_t>(index.row())][index.column() - FirstLine]);
    }
}

bool SyllableTable::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || index.column() < FirstLine) return false;
    const int line = index.column() - FirstLine;
    std::string& syllable = model.Grid[static_cast<std::size_t>(index.row())][line];
    const std::string typed = value.toString().toStdString();
    if (typed == syllable) return false;
    syllable = typed;
    Q_EMIT dataChanged(index, index);
    Q_EMIT Edited(line);
    return true;
}

QVariant SyllableTable::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole || orientation == Qt::Vertical) return {};
    switch (section) {
        case Bar:
            return Text("str_ColumnBar");
        case Beat:
            return Text("str_ColumnBeat");
        case Notes:
            return Text("str_ColumnNotes");
        default:
            return ToQString(Core::LanguageText("str_LyricsLine", {std::to_string(section - FirstLine + 1)}))
                .remove('&');
    }
}

Qt::ItemFlags SyllableTable::flags(const QModelIndex& index) const {
    const Qt::ItemFlags shown = QAbstractTableModel::flags(index);
    return index.column() < FirstLine ? shown : shown | Qt::ItemIsEditable;
}

void SyllableTable::LineChanged(int line) {
    if (rowCount() == 0) return;
    Q_EMIT dataChanged(index(0, FirstLine + line), index(rowCount() - 1, FirstLine + line));
}

}  // namespace Quillon::Forms
