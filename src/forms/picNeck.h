// A neck that shows notes and takes clicks: of a scale, of the scale finder, of the editor of scales.
#pragma once

#include <QWidget>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "library/NeckView.h"

namespace Quillon::Forms {

class picNeck : public QWidget {
    Q_OBJECT

public:
    struct Content {
        Library::NeckGeometry Neck;
        std::vector<int> Open;  ///< MIDI pitches of the open strings, the highest first
        std::vector<Library::NeckDot> Dots;
    };
    /// `content` gives what is shown in a box of that size, nothing for an empty one.
    picNeck(QWidget* parent, std::function<std::optional<Content>(double width, double height)> content);

    /// Paints anew what there is to be shown.
    void Refresh();
    /// As it is painted now; nothing while it is empty.
    std::optional<Content> Shown() const { return content(width(), height()); }
    QSize sizeHint() const override { return {640, 170}; }
    QSize minimumSizeHint() const override { return {200, 110}; }

Q_SIGNALS:
    /// A place was clicked, or Space or Enter pressed on it.
    void Clicked(int string, int fret);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool event(QEvent* event) override;

private:
    void Tell();
    QString PlaceText(const Content& shown, const Library::NeckPlace& place) const;

    std::function<std::optional<Content>(double width, double height)> content;
    Library::NeckPlace place;  ///< of the keyboard
};

}  // namespace Quillon::Forms
