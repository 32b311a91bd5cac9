// The places of a track's lyrics as a table: bar, beat and notes of each, and its syllables, which can be edited.
#pragma once

#include <QAbstractTableModel>

namespace Quillon::Shell {
struct LyricsModel;
}

namespace Quillon::Forms {

class SyllableTable : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { Bar, Beat, Notes, FirstLine };

    SyllableTable(Shell::LyricsModel& edited, QObject* parent);
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// A line's syllables changed elsewhere.
    void LineChanged(int line);

Q_SIGNALS:
    void Edited(int line);

private:
    Shell::LyricsModel& model;
};

}  // namespace Quillon::Forms
