// The keyboard of a piano: the pitches of the strum under the cursor, or what sounds; a click enters a note on a string
// that reaches it. Keys that the track does not reach are dim.
#pragma once

#include <optional>

#include "forms/picBoard.h"

namespace Quillon::Forms {

class picPiano : public picBoard {
    Q_OBJECT

public:
    explicit picPiano(QWidget* parent = nullptr);
    const Shell::PianoGeometry& Geometry() const { return geometry; }
    QSize sizeHint() const override { return {900, 110}; }
    QSize minimumSizeHint() const override { return {200, 70}; }

protected:
    void PaintGround(QPainter& painter) override;
    void PaintNotes(QPainter& painter) override;
    QRect AreaOf(const Shell::BoardNote& note) const override;
    void Measure() override;
    void TakeTexts() override;
    std::string PlaceText() const override;
    bool TakeKey(int key) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    using Key = Shell::PianoGeometry::Key;
    void PaintKey(QPainter& painter, const Key& key, const QColor& color) const;
    void PaintMark(QPainter& painter, int pitch, QColor color, bool named) const;

    Shell::PianoGeometry geometry;
    int place = 60;  ///< the keyboard's: a MIDI note number
    std::optional<int> hovered;
};

}  // namespace Quillon::Forms
