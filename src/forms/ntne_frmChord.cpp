#include "forms/ntne_frmChord.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <vector>

#include "forms/Text.h"
#include "shell/ChordModel.h"

namespace Quillon::Forms {

namespace {

/// A short field of the chart's table.
QLineEdit* AddCell(QGridLayout* table, int row, int column, const QString& name, const QString& spoken,
                   const std::string& value, int length) {
    auto* const cell = new QLineEdit(ToQString(value));
    cell->setObjectName(name);
    cell->setAccessibleName(spoken);
    cell->setMaxLength(length);
    cell->setAlignment(Qt::AlignHCenter);
    constexpr int letters = 6;
    cell->setMinimumWidth(cell->fontMetrics().averageCharWidth() * letters);
    cell->setMaximumWidth(cell->fontMetrics().averageCharWidth() * (letters + 2));
    table->addWidget(cell, row, column);
    return cell;
}

}  // namespace

ntne_frmChord::ntne_frmChord(Shell::ChordModel& model, QWidget* parent)
    : StrumDialog(model, parent, "str_ChordTitle", "ChordSymbolWindowDetails") {
    setObjectName("ntne_frmChord");
    QLineEdit* const name = AddText(Fields(), "txtName", "str_ChordName", model.Name);
    name->selectAll();

    // As in a chart the lowest string stands at the left.
    auto* const table = new QGridLayout;
    table->setHorizontalSpacing(4);
    auto* const fretsLabel = new QLabel(Text("str_ChordFrets"), this);
    auto* const fingersLabel = new QLabel(Text("str_ChordFingers"), this);
    table->addWidget(fretsLabel, 1, 0, Qt::AlignRight);
    table->addWidget(fingersLabel, 2, 0, Qt::AlignRight);
    std::vector<QLineEdit*> frets, fingers;
    const int strings = model.Strings();
    for (int string = strings - 1; string >= 0; --string) {
        const int column = strings - string;
        const QString note = ToQString(model.OpenNote(string));
        table->addWidget(new QLabel(note, this), 0, column, Qt::AlignHCenter);
        const auto spoken = [&](const char* key) {
            return ToQString(Core::LanguageText(key, {std::to_string(string + 1), note.toStdString()}));
        };
        constexpr int fretLength = 2;
        frets.push_back(AddCell(table, 1, column, QString("txtFret%1").arg(string), spoken("str_ChordFretOf"),
                                model.Frets[string], fretLength));
        fingers.push_back(AddCell(table, 2, column, QString("txtFinger%1").arg(string), spoken("str_ChordFingerOf"),
                                  model.Fingers[string], 1));
    }
    fretsLabel->setBuddy(frets.front());
    fingersLabel->setBuddy(fingers.front());
    Fields()->addRow(table);
    // All frets, then all fingers.
    for (std::size_t i = 0; i + 1 < frets.size(); ++i) QWidget::setTabOrder(frets[i], frets[i + 1]);
    QWidget::setTabOrder(frets.back(), fingers.front());
    for (std::size_t i = 0; i + 1 < fingers.size(); ++i) QWidget::setTabOrder(fingers[i], fingers[i + 1]);
    OnStore([=, &model] {
        for (int string = 0; string < strings; ++string) {
            const auto at = static_cast<std::size_t>(strings - 1 - string);
            model.Frets[string] = frets[at]->text().toStdString();
            model.Fingers[string] = fingers[at]->text().toStdString();
        }
    });

    QWidget::setTabOrder(fingers.back(), AddCheck(Fields(), "chkBarre", "str_ChordBarre", model.Barre));
    auto* const take = new QPushButton(Text("str_ChordTake"), this);
    take->setObjectName("cmdTake");
    take->setAutoDefault(false);
    Fields()->addRow(QString(), take);
    Shell::ChordModel taken = model;
    take->setEnabled(taken.TakeFrets());
    connect(take, &QPushButton::clicked, this, [=, this, &model] {
        model.TakeFrets();
        Settle([&] {
            for (int string = 0; string < strings; ++string) {
                const auto at = static_cast<std::size_t>(strings - 1 - string);
                frets[at]->setText(ToQString(model.Frets[string]));
                fingers[at]->setText(ToQString(model.Fingers[string]));
            }
        });
        Refresh();
    });
    AddCheck(Fields(), "chkWriteFrets", "str_ChordWriteFrets", model.WriteFrets);
    FinishStrum("str_ChordRemove");
}

}  // namespace Quillon::Forms
