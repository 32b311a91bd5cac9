// A sheet of chords as it will be printed: looked at, titled, printed or saved as a PDF file.
#pragma once

#include <QDialog>
#include <QImage>

class QLabel;
class QToolButton;

namespace Quillon::Tools {
struct ChordSheetModel;
}

namespace Quillon::Forms {

/// One page, as large as there is room for.
class picSheet : public QWidget {
    Q_OBJECT

public:
    picSheet(Tools::ChordSheetModel& model, QWidget* parent);
    void ShowPage(int page);
    int Page() const { return page; }

Q_SIGNALS:
    /// Another page is wanted.
    void Turned(int by);

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    Tools::ChordSheetModel& model;
    int page = 0;
};

class frmChordPrinter : public QDialog {
    Q_OBJECT

public:
    frmChordPrinter(Tools::ChordSheetModel& model, QWidget* parent);

private:
    void GoTo(int page);
    void cmdPrint_Click();

    Tools::ChordSheetModel& model;
    picSheet* sheet = nullptr;
    QLabel* lblPage = nullptr;
    QToolButton *cmdPrevious = nullptr, *cmdNext = nullptr;
};

}  // namespace Quillon::Forms
