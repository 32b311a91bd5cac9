// What the fretboard and the piano share: a ground painted once, the notes of the strum over it, a place for the
// keyboard and one under the mouse.
#pragma once

#include <QPixmap>
#include <QWidget>
#include <vector>

#include "shell/Boards.h"

namespace Quillon::Forms {

class picBoard : public QWidget {
    Q_OBJECT

public:
    explicit picBoard(QWidget* parent = nullptr);
    /// Takes what the cursor's strum holds, or what sounds, anew; repaints what changed.
    void ShowNotes();
    /// Texts and colours come anew.
    void SetTexts();

Q_SIGNALS:
    /// Esc: the keyboard goes back to the score.
    void Left();

protected:
    /// What stays while notes come and go.
    virtual void PaintGround(QPainter& painter) = 0;
    virtual void PaintNotes(QPainter& painter) = 0;
    /// Where a note is painted; empty when it is not in view.
    virtual QRect AreaOf(const Shell::BoardNote& note) const = 0;
    /// Another track, another size: the geometry is worked out anew.
    virtual void Measure() = 0;
    virtual void TakeTexts() = 0;
    /// Brings the notes into view.
    virtual void Follow() {}
    /// What the place of the keyboard is called; "" when there is none.
    virtual std::string PlaceText() const = 0;

    /// The current track without its music.
    const Core::Track& Track() const { return track; }
    const std::vector<Shell::BoardNote>& Notes() const { return notes; }
    bool Playing() const { return playing; }
    void Renew();
    /// The keyboard's place moved.
    void TellPlace();
    QColor NoteColor() const;

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    /// A key that means something on the board; false for others.
    virtual bool TakeKey(int key) = 0;

private:
    QPixmap ground;
    bool stale = true;
    bool playing = false;
    Core::Track track;
    int curString = -1;
    std::vector<Shell::BoardNote> notes;
};

/// A name such as "F#" of a MIDI pitch: there is no room for its octave on a note.
QString ShortName(int pitch);

}  // namespace Quillon::Forms
