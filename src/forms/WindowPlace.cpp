#include "forms/WindowPlace.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>
#include <charconv>
#include <optional>

#include "platform/Services.h"
#include "platform/SettingsStore.h"

namespace Quillon::Forms {

namespace {

std::optional<int> Number(std::string_view section, std::string_view key) {
    const auto text = Services.Settings->Find(section, key);
    int value = 0;
    if (!text || std::from_chars(text->data(), text->data() + text->size(), value).ec != std::errc{}) return {};
    return value;
}

/// Where screens shrank or text grew, a window beside the main one shrinks and moves back until its buttons are on the
/// screen again. The main window keeps its size.
QRect InReach(QRect place, const QScreen& screen, bool isMain) {
    constexpr int FrameBeside = 8;
    constexpr int TitleBar = 40;
    const QRect room = screen.availableGeometry().adjusted(0, 0, -FrameBeside, -TitleBar);
    if (screen.availableVirtualGeometry().contains(place)) return place;
    if (!isMain) place.setSize(place.size().boundedTo(room.size()));
    if (place.width() > room.width() || place.height() > room.height()) return place;
    place.moveRight(std::min(place.right(), room.right()));
    place.moveBottom(std::min(place.bottom(), room.bottom()));
    place.moveLeft(std::max(place.left(), room.left()));
    place.moveTop(std::max(place.top(), room.top()));
    return place;
}

}  // namespace

void RestorePlace(QWidget& window, std::string_view section, const QSize& otherwise) {
    const auto left = Number(section, "Left");
    const auto top = Number(section, "Top");
    const auto width = Number(section, "Width");
    const auto height = Number(section, "Height");
    window.resize(width && height ? QSize(*width, *height) : otherwise);
    if (left && top) {
        const QRect place(QPoint(*left, *top), window.size());
        for (const QScreen* screen : QGuiApplication::screens()) {
            // Enough of the title bar must be in reach to drag the window.
            const QRect shown = screen->availableGeometry() & place;
            if (shown.width() >= 100 && shown.height() >= 50) {
                const QRect reached = InReach(place, *screen, window.parentWidget() == nullptr);
                window.resize(reached.size());
                window.move(reached.topLeft());
                break;
            }
        }
    }
    if (Number(section, "Maximized").value_or(0) == 1) {
        window.setWindowState(window.windowState() | Qt::WindowMaximized);
    }
}

void KeepPlace(const QWidget& window, std::string_view section) {
    const auto save = [section](std::string_view key, int value) {
        Services.Settings->Save(section, key, std::to_string(value));
    };
    const bool maximized = window.isMaximized() || window.isFullScreen();
    save("Maximized", maximized ? 1 : 0);
    const QRect place = maximized ? window.normalGeometry() : QRect(window.pos(), window.size());
    if (!place.isValid()) return;
    save("Left", place.left());
    save("Top", place.top());
    save("Width", place.width());
    save("Height", place.height());
}

}  // namespace Quillon::Forms
