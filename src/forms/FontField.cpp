#include "forms/FontField.h"

#include <QDoubleSpinBox>
#include <QFontComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "forms/Text.h"
#include "platform/qt/PainterPicture.h"

namespace Quillon::Forms {

namespace {

constexpr int LargestSample = 28;  // pixels

}  // namespace

FontField::FontField(const Font& font, QWidget* parent)
    : QWidget(parent), chosen(font), cmbFont(new QFontComboBox), vbSize(new QDoubleSpinBox), lblSample(new QLabel) {
    cmbFont->setObjectName("cmbFont");
    cmbFont->setAccessibleName(Text("str_FontName"));
    cmbFont->setToolTip(Text("str_FontName"));
    cmbFont->setCurrentFont(ToQFont(font, LargestSample));
    // A document may name a font that this machine lacks; the name is kept.
    cmbFont->setEditText(ToQString(font.Name));
    vbSize->setObjectName("vbSize");
    vbSize->setAccessibleName(Text("str_FontSize"));
    vbSize->setToolTip(Text("str_FontSize"));
    vbSize->setRange(1, 200);
    vbSize->setDecimals(0);
    vbSize->setSuffix(" pt");
    vbSize->setValue(font.Size);
    lblSample->setObjectName("lblSample");

    cmdBold = AddStyle("cmdBold", "str_FontBoldLetter", "str_FontBold", font.Bold);
    cmdItalic = AddStyle("cmdItalic", "str_FontItalicLetter", "str_FontItalic", font.Italic);
    cmdUnderline = AddStyle("cmdUnderline", "str_FontUnderlineLetter", "str_FontUnderline", font.Underline);
    cmdStrike = AddStyle("cmdStrike", "str_FontStrikeLetter", "str_FontStrike", font.Strike);
    const auto style = [](QToolButton* button, auto set) {
        QFont face = button->font();
        set(face);
        button->setFont(face);
    };
    style(cmdBold, [](QFont& face) { face.setBold(true); });
    style(cmdItalic, [](QFont& face) { face.setItalic(true); });
    style(cmdUnderline, [](QFont& face) { face.setUnderline(true); });
    style(cmdStrike, [](QFont& face) { face.setStrikeOut(true); });

    auto* const row = new QHBoxLayout;
    row->addWidget(cmbFont, 1);
    row->addWidget(vbSize);
    row->addSpacing(4);
    for (QToolButton* button : {cmdBold, cmdItalic, cmdUnderline, cmdStrike}) row->addWidget(button);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(row);
    layout->addWidget(lblSample);
    setFocusProxy(cmbFont);

    connect(cmbFont, &QComboBox::currentTextChanged, this, &FontField::Changed);
    connect(vbSize, &QDoubleSpinBox::valueChanged, this, &FontField::Changed);
    ShowSample();
}

QToolButton* FontField::AddStyle(const char* name, std::string_view letterKey, std::string_view tipKey, bool on) {
    auto* const button = new QToolButton;
    button->setObjectName(name);
    button->setText(Text(letterKey));
    button->setToolTip(Text(tipKey));
    button->setAccessibleName(Text(tipKey));
    button->setCheckable(true);
    button->setChecked(on);
    button->setFocusPolicy(Qt::StrongFocus);
    connect(button, &QToolButton::toggled, this, &FontField::Changed);
    return button;
}

void FontField::Changed() {
    chosen.Name = cmbFont->currentText().toStdString();
    chosen.Size = vbSize->value();
    chosen.Bold = cmdBold->isChecked();
    chosen.Italic = cmdItalic->isChecked();
    chosen.Underline = cmdUnderline->isChecked();
    chosen.Strike = cmdStrike->isChecked();
    ShowSample();
}

void FontField::ShowSample() {
    lblSample->setFont(ToQFont(chosen, std::clamp(static_cast<int>(chosen.Pixels()), 8, LargestSample)));
    lblSample->setText(Text("str_FontSample"));
}

}  // namespace Quillon::Forms
