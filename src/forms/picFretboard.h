// The fretboard of the current track: the strum under the cursor, or what sounds; a click enters a note. A drum track
// shows what its strings play instead.
#pragma once

#include <optional>

#include "forms/picBoard.h"

namespace Quillon::Forms {

class picFretboard : public picBoard {
    Q_OBJECT

public:
    explicit picFretboard(QWidget* parent = nullptr);
    /// The names of all notes, or of those that the strum holds alone.
    void SetNames(bool on);
    const Shell::FretboardGeometry& Geometry() const { return geometry; }
    QSize sizeHint() const override { return {900, 150}; }
    QSize minimumSizeHint() const override { return {200, 96}; }

protected:
    void PaintGround(QPainter& painter) override;
    void PaintNotes(QPainter& painter) override;
    QRect AreaOf(const Shell::BoardNote& note) const override;
    void Measure() override;
    void TakeTexts() override;
    void Follow() override;
    std::string PlaceText() const override;
    bool TakeKey(int key) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void PaintNeck(QPainter& painter) const;
    void PaintStrings(QPainter& painter) const;
    void PaintInlays(QPainter& painter) const;
    void PaintNames(QPainter& painter) const;
    void PaintNote(QPainter& painter, const Shell::BoardNote& note) const;
    void PaintDot(QPainter& painter, QPointF middle, const QColor& fill, const QColor& edge, const QString& text,
                  const QColor& ink) const;
    void PaintCursor(QPainter& painter) const;
    void PaintDrumGround(QPainter& painter) const;
    void PaintDrumCell(QPainter& painter, const Shell::DrumGeometry::Cell& cell, bool on) const;
    bool TakeDrumKey(int key);
    QPointF PlaceOf(const Shell::BoardCell& cell) const;
    double Radius() const;
    void ScrollBy(int frets);
    void Enter();

    bool names = false;
    int scroll = 0;
    int wheelRest = 0;
    Shell::FretboardGeometry geometry;
    Shell::DrumGeometry drums;
    Shell::BoardCell place;  ///< of the keyboard
    int drumPlace = 0;       ///< likewise, among the cells
    std::optional<Shell::BoardCell> hovered;
    const Shell::DrumGeometry::Cell* hoveredDrum = nullptr;
};

}  // namespace Quillon::Forms
