// The boxes of the chord manager, in a view that scrolls. Just the cells in view are painted, and their files read.
#pragma once

#include <QAbstractScrollArea>
#include <string>
#include <tuple>

#include "library/ChordBoxes.h"
#include "tools/BoxGrid.h"

namespace Quillon::Forms {

class picChordView : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit picChordView(QWidget* parent = nullptr);

    /// Other chords are shown, or otherwise.
    void Refresh();
    /// The chosen ones or what sounds are others; the current one comes into view.
    void RefreshChosen();
    const Tools::BoxGrid& Grid() const { return grid; }
    /// Where a cell stands in the viewport.
    QRect AreaOf(int cell) const;
    /// What a key does here; false for one that means nothing.
    bool TakeKey(const QKeyEvent& event);

Q_SIGNALS:
    /// The menu of the chosen chords is wanted, at a point of the screen.
    void MenuAsked(QPoint at);
    /// Letters that are looked for.
    void Typed(const QString& text);
    void EditAsked();
    void DeleteAsked();
    /// A file that can't be read came into view.
    void UnreadableSeen();
    /// Esc: the keyboard goes back to the score.
    void Left();

protected:
    bool viewportEvent(QEvent* event) override;
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int x, int y) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    struct Colors {
        QColor Ground, Chosen, Current, Sounding;
        Library::BoxColors Box;
    };
    Colors ColorsNow() const;
    void Measure();
    /// False for a file that can't be read.
    bool PaintCell(QPainter& painter, int cell, QPoint corner, double ratio, const Colors& colors) const;
    int CellAt(QPoint point) const;
    void Go(int cell, Qt::KeyboardModifiers modifiers);
    void ShowTip(const QPoint& at, const QPoint& global);

    Tools::BoxGrid grid;
    /// The current chord, where it stood and how it was shown when it was last brought into view.
    using Followed = std::tuple<std::string, int, int>;
    Followed followed{"", -1, -1};
    int wheelRest = 0;
};

}  // namespace Quillon::Forms
