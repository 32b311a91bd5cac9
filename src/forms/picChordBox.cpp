#include "forms/picChordBox.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QPainter>
#include <algorithm>

#include "forms/Text.h"
#include "platform/qt/PainterPicture.h"
#include "tools/ChordManager.h"

namespace Quillon::Forms {

using Tools::ChordEditorModel;
using Tools::EditorBox;

namespace {

Color ToColor(const QColor& color) { return PackColor(color.red(), color.green(), color.blue()); }

/// Lines that stand back. The palette's own faint colour may be a translucent one, which a picture has not.
QColor Between(const QColor& ink, const QColor& ground) {
    return {(ink.red() + ground.red()) / 2, (ink.green() + ground.green()) / 2, (ink.blue() + ground.blue()) / 2};
}

}  // namespace

picChordBox::picChordBox(ChordEditorModel& edited, QWidget* parent) : QWidget(parent), model(edited) {
    setObjectName("picChordBox");
    setFocusPolicy(Qt::StrongFocus);
    setFixedSize(EditorBox::Width, EditorBox::Height);
    setAccessibleName(Text("str_ChordBox"));
    setToolTip(Text("str_ChordBoxAbout"));
    string = model.Strings - 1;
}

EditorBox picChordBox::Box() const { return {model.Strings, Tools::ChordManager.Lefthanded}; }

void picChordBox::paintEvent(QPaintEvent*) {
    const double ratio = devicePixelRatioF();
    QImage image(size() * ratio, QImage::Format_RGB32);
    const QColor ground = palette().color(QPalette::Base);
    image.fill(ground);
    {
        QPainter painter(&image);
        const EditorBox box = Box();
        if (hasFocus()) {
            painter.save();
            painter.scale(ratio, ratio);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(QPen(palette().color(QPalette::Highlight), 1.5));
            constexpr double half = 14, rowHalf = 16, nutHalf = 10;
            const double high = row < 0 ? nutHalf : rowHalf;
            painter.drawRoundedRect(QRectF(box.X(string) - half, box.Y(row) - high, 2 * half, 2 * high), 4, 4);
            painter.restore();
        }
        PainterPicture picture(painter, ratio);
        Library::BoxLook look;
        look.Left = box.Left();
        look.Top = EditorBox::Top;
        look.StringStep = EditorBox::StringStep;
        look.FretStep = EditorBox::FretStep;
        look.Fingers = true;
        look.Lefthanded = box.Lefthanded;
        look.Frets = Library::BoxFrets{model.Top, ChordEditorModel::Rows};
        look.Colors = {ToColor(palette().color(QPalette::Text)),
                       ToColor(Between(palette().color(QPalette::Text), ground)),
                       ToColor(palette().color(QPalette::Highlight))};
        Library::DrawChordBox(picture, model.Chord(), look);
        picture.SetColor(look.Colors.Faint);
        picture.SetFont({.Name = "Arial", .Size = 9});
        for (int each = 0; each < model.Strings; ++each) {
            constexpr int NoteLine = EditorBox::Height - 8;
            picture.Print(box.X(each), NoteLine, model.NoteOf(each), Anchor::Center);
        }
    }
    image.setDevicePixelRatio(ratio);
    QPainter(this).drawImage(0, 0, image);
}

void picChordBox::Change() {
    update();
    Q_EMIT Changed();
}

void picChordBox::mousePressEvent(QMouseEvent* event) {
    const auto place = Box().At(event->position().x(), event->position().y());
    if (!place || event->button() != Qt::LeftButton) return;
    string = place->String;
    row = place->Row;
    model.Press(string, row);
    Change();
}

void picChordBox::wheelEvent(QWheelEvent* event) {
    if (event->angleDelta().y() == 0) return;
    model.MoveTop(event->angleDelta().y() > 0 ? -1 : 1);
    Change();
}

void picChordBox::Move(int strings, int rows) {
    // The strings go on the screen as they are drawn.
    const int across = Box().Lefthanded ? strings : -strings;
    string = std::clamp(string + across, 0, model.Strings - 1);
    const int wanted = row + rows;
    // Past an end of the box it moves along the neck, and above it stands the nut.
    if (wanted >= ChordEditorModel::Rows) model.MoveTop(1);
    if (wanted < 0 && model.Top > 1 && rows < 0)
        model.MoveTop(-1);
    else
        row = std::clamp(wanted, -1, ChordEditorModel::Rows - 1);
    Change();
    if (QAccessible::isActive()) {
        const std::string fret = row < 0 ? "0" : std::to_string(model.Top + row);
        setAccessibleDescription(
            ToQString(Core::LanguageText("str_ChordBoxPlace", {std::to_string(string + 1), fret})));
    }
}

void picChordBox::keyPressEvent(QKeyEvent* event) {
    string = std::min(string, model.Strings - 1);
    const int key = event->key();
    switch (key) {
        case Qt::Key_Left:
            return Move(-1, 0);
        case Qt::Key_Right:
            return Move(1, 0);
        case Qt::Key_Up:
            return Move(0, -1);
        case Qt::Key_Down:
            return Move(0, 1);
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            model.MoveTop(key == Qt::Key_PageUp ? -ChordEditorModel::Rows : ChordEditorModel::Rows);
            return Change();
        case Qt::Key_Space:
            model.Press(string, row);
            return Change();
        case Qt::Key_X:
        case Qt::Key_O:
        case Qt::Key_0:
            model.Frets[string] = std::string(1, key == Qt::Key_X ? 'x' : '0');
            model.Fingers[string] = 0;
            return Change();
        case Qt::Key_Delete:
        case Qt::Key_Backspace:
            model.Frets[string].clear();
            model.Fingers[string] = 0;
            return Change();
        default:
            break;
    }
    constexpr int Thumb = 5;
    if (key >= Qt::Key_1 && key <= Qt::Key_4)
        model.SetFinger(string, key - Qt::Key_0);
    else if (key == Qt::Key_T)
        model.SetFinger(string, Thumb);
    else
        return QWidget::keyPressEvent(event);
    Change();
}

void picChordBox::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
}

void picChordBox::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}

}  // namespace Quillon::Forms
