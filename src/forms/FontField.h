// The choice of a font: its name, size and style, with a sample.
#pragma once

#include <QWidget>

#include "platform/Picture.h"

class QDoubleSpinBox;
class QFontComboBox;
class QLabel;
class QToolButton;

namespace Quillon::Forms {

class FontField : public QWidget {
    Q_OBJECT

public:
    explicit FontField(const Font& font, QWidget* parent = nullptr);
    Font Chosen() const { return chosen; }

private:
    void Changed();
    void ShowSample();
    QToolButton* AddStyle(const char* name, std::string_view letterKey, std::string_view tipKey, bool on);

    Font chosen;
    QFontComboBox* cmbFont;
    QDoubleSpinBox* vbSize;
    QToolButton* cmdBold = nullptr;
    QToolButton* cmdItalic = nullptr;
    QToolButton* cmdUnderline = nullptr;
    QToolButton* cmdStrike = nullptr;
    QLabel* lblSample;
};

}  // namespace Quillon::Forms
