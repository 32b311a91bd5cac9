// The list of the tracks beside the paper: number, name, instrument, volume, and what is heard.
#pragma once

#include <QTreeWidget>
#include <optional>

namespace Quillon::Forms {

class picMixTable : public QTreeWidget {
    Q_OBJECT

public:
    explicit picMixTable(QWidget* parent = nullptr);
    /// Takes the tracks of the open document anew.
    void Fill();
    /// Marks the current track's row; shows volumes and what is heard.
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
    void ShowStates();
    /// What a click beside the names does; false when it picks the track.
    bool PressOnColumn(QPoint at);
    void DragVolume(int x);
    void AddToVolume(int by);

    std::optional<int> dragged;  ///< the track whose volume follows the mouse
};

}  // namespace Quillon::Forms
