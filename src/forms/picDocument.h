// The paper: the view of the open document with its scroll bars.
//
// What it shows is painted into an image of device pixels when something changed, only where it changed, and only
// blitted otherwise. Zooming scales the painting; the layout always works with document pixels.
#pragma once

#include <QAbstractScrollArea>
#include <QImage>
#include <QTimer>
#include <optional>
#include <vector>

#include "platform/ChangedPicture.h"
#include "platform/RunTimeError.h"
#include "shell/mod_Sound.h"

namespace Quillon::Forms {

class picPlayMarker;

class picDocument : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit picDocument(QWidget* parent = nullptr);

    /// Paints the document anew before the next frame. The view then scrolls to the cursor when it is to follow it.
    void Redraw(bool followCursor = true);
    /// The colours of everything changed: paints all of it.
    void Repaint();
    /// Paints at once what is due, so that the layout and the scroll bars are settled.
    void Settle();

    /// Scrolls so that the row of a bar is in view.
    void ScrollToBar(int bar);
    /// While off, neither the scroll bars nor the wheel nor a drag move the view.
    void SetScrolling(bool on);
    /// Puts the play marker where the player stands, or hides it. Behind a painting that is due it waits for that.
    void MovePlayMarker();

    double Zoom() const { return zoom; }
    /// The point under the mouse, when the zoom follows a turn of its wheel, else the top of the view keeps showing
    /// the same part of the page.
    void SetZoom(double value);

Q_SIGNALS:
    /// The document was painted: the page count and the cursor's place may have changed.
    void Drawn();
    /// Ctrl with the wheel: so many steps up, or down when negative.
    void ZoomAsked(int steps);
    /// The cursor stands where the menu of its note is asked for; the point is on the screen.
    void MenuAsked(QPoint point);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    void PaintBacking();
    QRect PaintChanges(double pixels);
    void PaintFailure(const RunTimeError& error);
    void UpdateView(const QRect& changed);
    void ShowScrollBars();
    void TellScreenReader();
    void PaintSelection(QPainter& painter) const;
    QPoint ToDocument(QPointF point) const;
    void AskMenu(const QMouseEvent& event);
    void AskMenuAtCursor();
    void DragTo(QPointF point);
    void tmrDrag_Timer();

    picPlayMarker* marker;
    QImage backing;
    ChangedPicture changes;
    double painted = 0;  ///< device pixels of a document pixel in the backing
    std::vector<Shell::SelectionBand> shownBands;
    bool scrolling = true;
    bool dirty = true;
    bool follow = false;
    bool settingScrollBars = false;
    double zoom = 1;
    int wheelRest = 0;  ///< eighths of a degree turned towards the next zoom step
    std::optional<QPointF> zoomPoint;
    QTimer* tmrDrag;                 ///< scrolls while bars are selected beyond the view's edge
    std::optional<QPointF> pressed;  ///< with the left button, until it is let go
    QPointF dragged;                 ///< where the mouse has come since
    QPoint panFrom;                  ///< of a drag with the middle button
    QPoint panScroll;
    QString spoken;  ///< the cursor's place as last told to screen readers
};

/// The code that the system's handlers know a key by, 0 for a key that they don't.
int VirtualKey(const QKeyEvent& event);
/// 1 with Shift, 2 with Control, 4 with Alt.
int ShiftState(Qt::KeyboardModifiers modifiers);

}  // namespace Quillon::Forms
