// The box of a chord that is being made: clicks and keys hold frets, open and mute strings, and set fingers.
#pragma once

#include <QWidget>

#include "tools/ChordEditor.h"

namespace Quillon::Forms {

class picChordBox : public QWidget {
    Q_OBJECT

public:
    picChordBox(Tools::ChordEditorModel& model, QWidget* parent);
    Tools::EditorBox Box() const;

Q_SIGNALS:
    /// The shape, or the part of the neck that is shown, is another.
    void Changed();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void Move(int strings, int rows);
    void Change();

    Tools::ChordEditorModel& model;
    int string = 0, row = 0;  ///< the keyboard's place
};

}  // namespace Quillon::Forms
