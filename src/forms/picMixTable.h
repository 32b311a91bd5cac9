// The list of the tracks beside the paper: number, name, instrument and volume.
#pragma once

#include <QTreeWidget>

namespace Quillon::Forms {

class picMixTable : public QTreeWidget {
    Q_OBJECT

public:
    explicit picMixTable(QWidget* parent = nullptr);
    /// Takes the tracks of the open document anew.
    void Fill();
    /// Marks the current track's row.
    void ShowCurrent();
    void SetTexts();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    int ScrollPosition() const;
};

}  // namespace Quillon::Forms
