#include "forms/picNeck.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "core/mod_Common.h"
#include "forms/PaintedPicture.h"
#include "forms/Text.h"
#include "library/ChordNaming.h"

namespace Quillon::Forms {

using Library::NeckPlace;

picNeck::picNeck(QWidget* parent, std::function<std::optional<Content>(double, double)> shows)
    : QWidget(parent), content(std::move(shows)) {
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void picNeck::Refresh() {
    update();
    Tell();
}

QString picNeck::PlaceText(const Content& shown, const NeckPlace& at) const {
    const std::string note = Core::NoteName(shown.Open.at(static_cast<std::size_t>(at.String)) + at.Fret);
    const std::string text =
        Core::LanguageText("str_NeckPlace", {note, std::to_string(at.String + 1), std::to_string(at.Fret)});
    const bool marked = std::ranges::any_of(shown.Dots, [&at](const auto& dot) { return dot.Place == at; });
    return ToQString(marked ? Core::LanguageText("str_NeckMarked", {text}) : text);
}

void picNeck::Tell() {
    if (!QAccessible::isActive() || !hasFocus()) return;
    const auto shown = Shown();
    setAccessibleDescription(shown ? PlaceText(*shown, place) : QString());
}

void picNeck::paintEvent(QPaintEvent*) {
    QPainter screen(this);
    const auto shown = Shown();
    PaintPicture(screen, *this, [&](Picture& picture) {
        if (!shown) return;
        std::vector<std::string> labels;
        for (const int pitch : shown->Open) labels.push_back(Library::PitchClassName(pitch));
        Library::DrawNeck(picture, shown->Neck, labels, shown->Dots);
    });
    if (!shown || !hasFocus()) return;
    screen.setRenderHint(QPainter::Antialiasing);
    screen.setPen(QPen(palette().color(QPalette::Highlight), 2));
    const double reach = shown->Neck.Radius() + 4;
    screen.drawRoundedRect(
        QRectF(shown->Neck.FretX(place.Fret) - reach, shown->Neck.StringY(place.String) - reach, 2 * reach, 2 * reach),
        4, 4);
}

void picNeck::mousePressEvent(QMouseEvent* event) {
    const auto shown = Shown();
    if (event->button() != Qt::LeftButton || !shown) return;
    const auto at = shown->Neck.At(event->position().x(), event->position().y());
    if (!at) return;
    place = *at;
    update();
    Q_EMIT Clicked(place.String, place.Fret);
}

void picNeck::keyPressEvent(QKeyEvent* event) {
    const auto shown = Shown();
    if (!shown || event->modifiers() & ~Qt::KeypadModifier) return QWidget::keyPressEvent(event);
    const Library::NeckGeometry& neck = shown->Neck;
    const bool upsideDown = neck.StringY(0) > neck.Top();
    const int down = upsideDown ? -1 : 1;
    switch (event->key()) {
        case Qt::Key_Left:
            --place.Fret;
            break;
        case Qt::Key_Right:
            ++place.Fret;
            break;
        case Qt::Key_Up:
            place.String -= down;
            break;
        case Qt::Key_Down:
            place.String += down;
            break;
        case Qt::Key_Home:
            place.Fret = neck.First();
            break;
        case Qt::Key_End:
            place.Fret = neck.Last();
            break;
        case Qt::Key_Space:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            Q_EMIT Clicked(place.String, place.Fret);
            return;
        default:
            return QWidget::keyPressEvent(event);
    }
    place.String = std::clamp(place.String, 0, neck.Strings() - 1);
    place.Fret = std::clamp(place.Fret, neck.First(), neck.Last());
    update();
    Tell();
}

void picNeck::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    if (const auto shown = Shown()) {
        place.String = std::clamp(place.String, 0, shown->Neck.Strings() - 1);
        place.Fret = std::clamp(place.Fret, shown->Neck.First(), shown->Neck.Last());
    }
    update();
    Tell();
}

void picNeck::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}

bool picNeck::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto* const help = static_cast<QHelpEvent*>(event);
    const auto shown = Shown();
    const auto at = shown ? shown->Neck.At(help->pos().x(), help->pos().y()) : std::nullopt;
    if (at) {
        QToolTip::showText(help->globalPos(), PlaceText(*shown, *at), this);
    } else {
        QToolTip::hideText();
    }
    return true;
}

}  // namespace Quillon::Forms
