#include "forms/picFretboard.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>

#include "core/mod_TabFileStructure.h"
#include "editing/mod_NoteEntry.h"
#include "forms/Text.h"
#include "shell/CursorState.h"
#include "shell/mod_Shell.h"
#include "shell/mod_Sound.h"

namespace Quillon::Forms {

using Core::Open;
using Shell::BoardCell;
using Shell::BoardNote;
using Cell = Shell::DrumGeometry::Cell;

picFretboard::picFretboard(QWidget* parent)
    : picBoard(parent), geometry(Track(), 0, 900, 200), drums(Track(), 900, 200) {
    setObjectName("picFretboard");
}

void picFretboard::TakeTexts() { setAccessibleName(Text("str_FretboardTitle")); }

void picFretboard::SetNames(bool on) {
    if (on == names) return;
    names = on;
    Renew();
}

void picFretboard::Measure() {
    geometry = Shell::FretboardGeometry(Track(), scroll, width(), height());
    scroll = geometry.First() - 1;
    drums = Shell::DrumGeometry(Track(), width(), height());
    hoveredDrum = nullptr;
    hovered.reset();
    place.String = std::min(place.String, geometry.Strings() - 1);
    drumPlace = std::clamp(drumPlace, 0, std::max(0, static_cast<int>(drums.Cells().size()) - 1));
}

/// The highest fret of the strum decides: what lies lower has open strings beside it more often.
void picFretboard::Follow() {
    int highest = 0;
    for (const BoardNote& note : Notes()) highest = std::max(highest, note.Fret);
    const int wanted = geometry.ScrollTo(highest);
    if (wanted != scroll) ScrollBy(wanted - scroll);
}

void picFretboard::ScrollBy(int frets) {
    scroll = std::clamp(scroll + frets, 0, geometry.MostScroll());
    if (scroll != geometry.First() - 1) Renew();
}

// The mouse ----------------------------------------------------------------------------------------------------------

void picFretboard::mousePressEvent(QMouseEvent* event) {
    const QPointF at = event->position();
    const bool left = event->button() == Qt::LeftButton;
    if (!left && event->button() != Qt::RightButton) return;
    if (Track().IsDrum) {
        const Cell* const cell = drums.At(at.x(), at.y());
        if (!cell) return;
        drumPlace = static_cast<int>(cell - drums.Cells().data());
        Shell::Guarded([&, hit = *cell] {
            left ? Shell::picFretboard_DrumMouseDown(hit) : Shell::picFretboard_RightMouseDown(hit.String);
        });
        return;
    }
    const auto cell = geometry.At(at.x(), at.y());
    if (!cell) return;
    place = *cell;
    Shell::Guarded(
        [&] { left ? Shell::picFretboard_MouseDown(*cell) : Shell::picFretboard_RightMouseDown(cell->String); });
    update();
}

void picFretboard::mouseMoveEvent(QMouseEvent* event) {
    const QPointF at = event->position();
    const auto before = hovered;
    const auto* const drumBefore = hoveredDrum;
    hovered.reset();
    hoveredDrum = nullptr;
    if (Track().IsDrum) {
        hoveredDrum = drums.At(at.x(), at.y());
        setToolTip(hoveredDrum ? ToQString(Shell::DrumText(*hoveredDrum)) : QString());
    } else {
        hovered = geometry.At(at.x(), at.y());
        setToolTip({});
    }
    setCursor(hovered || hoveredDrum ? Qt::PointingHandCursor : Qt::ArrowCursor);
    if (hovered != before || hoveredDrum != drumBefore) update();
}

void picFretboard::leaveEvent(QEvent*) {
    hovered.reset();
    hoveredDrum = nullptr;
    update();
}

void picFretboard::wheelEvent(QWheelEvent* event) {
    constexpr int Notch = 120;
    const QPoint turned = event->angleDelta();
    wheelRest += turned.x() != 0 ? turned.x() : turned.y();
    const int frets = wheelRest / Notch;
    wheelRest -= frets * Notch;
    if (frets != 0 && !Track().IsDrum) ScrollBy(-frets);
    event->accept();
}

// The keyboard -------------------------------------------------------------------------------------------------------

std::string picFretboard::PlaceText() const {
    if (!Shell::InScore()) return "";
    if (!Track().IsDrum) return Shell::CellText(place);
    if (drums.Cells().empty()) return "";
    return Shell::DrumText(drums.Cells()[static_cast<std::size_t>(drumPlace)]);
}

bool picFretboard::TakeKey(int key) {
    if (Track().IsDrum) return TakeDrumKey(key);
    switch (key) {
        case Qt::Key_Left:
            place.Fret = std::max(0, place.Fret - 1);
            break;
        case Qt::Key_Right:
            place.Fret = std::min(Editing::HighestFret, place.Fret + 1);
            break;
        case Qt::Key_Up:
            place.String = std::max(0, place.String - 1);
            break;
        case Qt::Key_Down:
            place.String = std::min(geometry.Strings() - 1, place.String + 1);
            break;
        case Qt::Key_Home:
            place.Fret = 0;
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            Shell::Guarded([this] { Shell::picFretboard_MouseDown(place); });
            return true;
        case Qt::Key_Delete:
            Shell::Guarded([this] { Shell::picFretboard_RightMouseDown(place.String); });
            return true;
        default:
            return false;
    }
    ScrollBy(geometry.ScrollTo(place.Fret) - scroll);
    TellPlace();
    return true;
}

bool picFretboard::TakeDrumKey(int key) {
    const auto& cells = drums.Cells();
    if (cells.empty()) return false;
    const Cell& now = cells[static_cast<std::size_t>(drumPlace)];
    const auto nearestOn = [&](int string) {
        int best = drumPlace;
        double least = 1e9;
        for (const Cell& cell : cells) {
            if (cell.String != string || std::abs(cell.X - now.X) >= least) continue;
            least = std::abs(cell.X - now.X);
            best = static_cast<int>(&cell - cells.data());
        }
        return best;
    };
    switch (key) {
        case Qt::Key_Left:
            drumPlace = std::max(0, drumPlace - 1);
            break;
        case Qt::Key_Right:
            drumPlace = std::min(static_cast<int>(cells.size()) - 1, drumPlace + 1);
            break;
        case Qt::Key_Up:
            drumPlace = nearestOn(now.String - 1);
            break;
        case Qt::Key_Down:
            drumPlace = nearestOn(now.String + 1);
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            Shell::Guarded([cell = now] { Shell::picFretboard_DrumMouseDown(cell); });
            return true;
        case Qt::Key_Delete:
            Shell::Guarded([string = now.String] { Shell::picFretboard_RightMouseDown(string); });
            return true;
        default:
            return false;
    }
    TellPlace();
    return true;
}

}  // namespace Quillon::Forms
