#include "platform/qt/QtMessageBox.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>

namespace Quillon {

namespace {

QMessageBox::Icon ToQt(BoxIcon icon) {
    switch (icon) {
        case BoxIcon::None:
            return QMessageBox::NoIcon;
        case BoxIcon::Critical:
            return QMessageBox::Critical;
        case BoxIcon::Question:
            return QMessageBox::Question;
        case BoxIcon::Exclamation:
            return QMessageBox::Warning;
        case BoxIcon::Information:
            return QMessageBox::Information;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons ToQt(Buttons buttons) {
    switch (buttons) {
        case Buttons::Ok:
            return QMessageBox::Ok;
        case Buttons::YesNo:
            return QMessageBox::Yes | QMessageBox::No;
        case Buttons::YesNoCancel:
            return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    }
    return QMessageBox::Ok;
}

/// The window to stand over. While a dialog has just closed none is active, so the first that shows will do.
QWidget* Owner() {
    if (QWidget* const active = QApplication::activeWindow()) return active;
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->isVisible()) return window;
    }
    return nullptr;
}

}  // namespace

Answer QtMessageBox::Show(const std::string& text, const std::string& title, Buttons buttons, BoxIcon icon) {
    QMessageBox box(ToQt(icon), QString::fromStdString(title), QString::fromStdString(text), ToQt(buttons), Owner());
    // The text comes from documents too, and is no markup.
    box.setTextFormat(Qt::PlainText);
    for (QAbstractButton* button : box.buttons()) button->setIcon(QIcon());
    if (buttons == Buttons::YesNo) {
        box.setEscapeButton(QMessageBox::No);
        // Where something would go, Enter alone lets it stay.
        if (icon == BoxIcon::Exclamation) box.setDefaultButton(QMessageBox::No);
    }
    switch (box.exec()) {
        case QMessageBox::Yes:
            return Answer::Yes;
        case QMessageBox::No:
            return Answer::No;
        case QMessageBox::Cancel:
            return Answer::Cancel;
        default:
            return Answer::Ok;
    }
}

}  // namespace Quillon
