#include "forms/Theme.h"

#include <QApplication>
#include <QProxyStyle>
#include <QStyle>
#include <QStyleFactory>
#include <QStyleOption>

#include "drawing/PageFurniture.h"
#include "drawing/mod_PageLayout.h"
#include "platform/qt/PainterPicture.h"
#include "shell/DarkPaper.h"
#include "shell/mod_Shell.h"

namespace Quillon::Forms {

namespace {

QPalette DarkPalette() {
    const QColor window(0x2b, 0x2d, 0x31);
    const QColor base(0x1f, 0x21, 0x24);
    const QColor text(0xe6, 0xe7, 0xe9);
    const QColor faint(0x86, 0x8a, 0x91);
    QPalette palette(text, QColor(0x3a, 0x3d, 0x42), QColor(0x55, 0x59, 0x60), QColor(0x16, 0x17, 0x19),
                     QColor(0x24, 0x26, 0x29), text, Qt::white, base, window);
    palette.setColor(QPalette::AlternateBase, QColor(0x26, 0x28, 0x2c));
    palette.setColor(QPalette::Highlight, QColor(0x3d, 0x7d, 0xd8));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x6d, 0xb1, 0xff));
    palette.setColor(QPalette::LinkVisited, QColor(0xb1, 0x9c, 0xf2));
    palette.setColor(QPalette::ToolTipBase, QColor(0x3a, 0x3d, 0x42));
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, faint);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, faint);
    }
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0x4a, 0x4d, 0x53));
    return palette;
}

QPalette LightPalette() {
    QPalette palette(QColor(0x20, 0x22, 0x26), QColor(0xf3, 0xf4, 0xf6), Qt::white, QColor(0x9a, 0x9d, 0xa3),
                     QColor(0xc6, 0xc9, 0xce), QColor(0x20, 0x22, 0x26), Qt::white, Qt::white,
                     QColor(0xf3, 0xf4, 0xf6));
    palette.setColor(QPalette::AlternateBase, QColor(0xf7, 0xf8, 0xfa));
    palette.setColor(QPalette::Highlight, QColor(0x2a, 0x6f, 0xdb));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x1f, 0x5f, 0xc4));
    palette.setColor(QPalette::PlaceholderText, QColor(0x86, 0x8a, 0x91));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, QColor(0x9a, 0x9d, 0xa3));
    }
    return palette;
}

/// Fusion draws frames by darkening the window's colour, which on a dark one leaves nothing to see of a box without a
/// tick, or of a field.
class DarkStyle : public QProxyStyle {
public:
    DarkStyle() : QProxyStyle("fusion") {}

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        const QColor frame(0xa6, 0xaa, 0xb2);  // it darkens this
        if (element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton) {
            if (const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(option)) {
                QStyleOptionButton light(*button);
                light.palette.setColor(QPalette::Window, frame);
                return QProxyStyle::drawPrimitive(element, &light, painter, widget);
            }
        }
        if (element == PE_FrameLineEdit) {
            if (const auto* const field = qstyleoption_cast<const QStyleOptionFrame*>(option)) {
                QStyleOptionFrame light(*field);
                light.palette.setColor(QPalette::Window, frame);
                return QProxyStyle::drawPrimitive(element, &light, painter, widget);
            }
        }
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
};

enum class StyleInUse { System, Light, Dark };
StyleInUse Style = StyleInUse::System;

}  // namespace

void ApplyTheme(Theme theme) {
    static const QString systemStyle = QApplication::style()->name();
    if (theme == Theme::System) {
        if (Style != StyleInUse::System) QApplication::setStyle(systemStyle);
        Style = StyleInUse::System;
        QApplication::setPalette(QPalette());
        return;
    }
    // Other styles paint with colours of their own.
    const StyleInUse wanted = theme == Theme::Dark ? StyleInUse::Dark : StyleInUse::Light;
    if (Style != wanted) {
        QApplication::setStyle(wanted == StyleInUse::Dark ? new DarkStyle : QStyleFactory::create("fusion"));
        Style = wanted;
    }
    QApplication::setPalette(theme == Theme::Dark ? DarkPalette() : LightPalette());
}

bool IsPaperDark() {
    return Shell::Program.DarkPaper && QApplication::palette().color(QPalette::Window).lightness() < 128;
}

void UsePaper(PainterPicture& picture) {
    // The ground is no paper: it has the windows' colour already, and what lies on it is seen there.
    const auto dark = [](Color color) {
        constexpr Color DeepShadow = PackColor(0x28, 0x2A, 0x2E);
        if (color == Drawing::ShadowColor) return DeepShadow;
        const bool onGround =
            color == Drawing::View.Ground || color == Drawing::EdgeColor || color == Drawing::RulerColor;
        return onGround ? color : Shell::OnDarkPaper(color);
    };
    picture.MapColors(IsPaperDark() ? +dark : nullptr);
}

}  // namespace Quillon::Forms
