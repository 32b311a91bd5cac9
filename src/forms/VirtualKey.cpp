// Keys of the window system as the codes that the score's handlers know them by.
//
// A virtual key is a place on the keyboard by what it writes without modifiers; the window system tells what it writes
// with them, which for shifted digits and signs differs from land to land.
#include <QKeyEvent>

#include "forms/picDocument.h"

namespace Quillon::Forms {

namespace {

constexpr int KeypadDigits = 96;
constexpr int KeypadAdd = 107;
constexpr int KeypadSubtract = 109;
constexpr int KeypadDecimal = 110;
constexpr int MainPlus = 187;
constexpr int MainMinus = 189;
constexpr int MainPeriod = 190;

bool IsDigit(int key) { return key >= Qt::Key_0 && key <= Qt::Key_9; }

int KeypadKey(int key) {
    if (IsDigit(key)) return key - Qt::Key_0 + KeypadDigits;
    switch (key) {
        case Qt::Key_Plus:
            return KeypadAdd;
        case Qt::Key_Minus:
            return KeypadSubtract;
        case Qt::Key_Period:
        case Qt::Key_Comma:  // the decimal key of other lands
            return KeypadDecimal;
        default:
            return 0;
    }
}

/// The digit that stands on a key of the main row, which some keyboards write with shift and others without; 0 for
/// another key. The row's scan codes are alike on all that have one: 10 to 18 for 1 to 9, then 0.
int DigitOfRow(const QKeyEvent& event) {
    constexpr quint32 first = 10, last = 19;
    const quint32 scan = event.nativeScanCode();
    if (scan >= first && scan < last) return static_cast<int>(scan - first) + '1';
    return scan == last ? '0' : 0;
}

/// Shifted digits where no scan code tells the key, by the common American row.
int DigitOfSign(int key) {
    switch (key) {
        case Qt::Key_NumberSign:
            return '3';
        case Qt::Key_Percent:
            return '5';
        case Qt::Key_AsciiCircum:
            return '6';
        case Qt::Key_Ampersand:
            return '7';
        case Qt::Key_ParenLeft:
            return '9';
        default:
            return 0;
    }
}

int SignKey(int key) {
    switch (key) {
        case Qt::Key_Plus:
        case Qt::Key_Equal:     // "+" with shift on an American keyboard
        case Qt::Key_Asterisk:  // "+" with shift on a German one
            return MainPlus;
        case Qt::Key_Minus:
        case Qt::Key_Underscore:
            return MainMinus;
        case Qt::Key_Period:
            return MainPeriod;
        default:
            return 0;
    }
}

}  // namespace

int VirtualKey(const QKeyEvent& event) {
    const int key = event.key();
    switch (key) {
        case Qt::Key_Backspace:
            return 8;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return 13;
        case Qt::Key_Escape:
            return 27;
        case Qt::Key_Left:
            return 37;
        case Qt::Key_Up:
            return 38;
        case Qt::Key_Right:
            return 39;
        case Qt::Key_Down:
            return 40;
        case Qt::Key_Insert:
            return 45;
        case Qt::Key_Delete:
            return 46;
        default:
            break;
    }
    if (event.modifiers() & Qt::KeypadModifier) {
        if (const int code = KeypadKey(key)) return code;
    }
    if (IsDigit(key)) return key;
    if (key >= Qt::Key_A && key <= Qt::Key_Z) return key;
    if (event.modifiers() & Qt::ShiftModifier) {
        if (const int digit = DigitOfRow(event)) return digit;
        if (const int digit = DigitOfSign(key)) return digit;
    }
    return SignKey(key);
}

int ShiftState(Qt::KeyboardModifiers modifiers) {
    return (modifiers & Qt::ShiftModifier ? 1 : 0) | (modifiers & Qt::ControlModifier ? 2 : 0) |
           (modifiers & Qt::AltModifier ? 4 : 0);
}

}  // namespace Quillon::Forms
