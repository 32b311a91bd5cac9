#include "forms/frmAbout.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "forms/SvgIcon.h"
#include "forms/Text.h"

namespace Quillon::Forms {

frmAbout::frmAbout(QWidget* parent) : QDialog(parent) {
    setObjectName("frmAbout");
    setWindowTitle(Text("str_AboutTitle"));
    auto* const mark = new QLabel(this);
    constexpr int Mark = 96;
    mark->setPixmap(SvgIcon("quillon").pixmap(QSize(Mark, Mark), devicePixelRatioF()));
    auto* const name = new QLabel("Quillon " QUILLON_VERSION, this);
    QFont large = name->font();
    large.setPointSizeF(large.pointSizeF() * 1.8);
    large.setBold(true);
    name->setFont(large);
    auto* const text = new QLabel(Text("str_AboutText"), this);
    text->setWordWrap(true);
    text->setTextFormat(Qt::PlainText);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text->setMinimumWidth(360);
    auto* const built = new QLabel(Text("str_AboutBuilt").arg(qVersion()), this);
    built->setForegroundRole(QPalette::PlaceholderText);

    auto* const words = new QVBoxLayout;
    words->setSpacing(10);
    words->addWidget(name);
    words->addWidget(text);
    words->addWidget(built);
    words->addStretch();
    auto* const row = new QHBoxLayout;
    row->setSpacing(20);
    row->addWidget(mark, 0, Qt::AlignTop);
    row->addLayout(words, 1);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    buttons->button(QDialogButtonBox::Ok)->setText(Text("str_OK"));
    buttons->button(QDialogButtonBox::Ok)->setIcon(QIcon());
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 20, 20, 14);
    layout->addLayout(row);
    layout->addWidget(buttons);
    buttons->button(QDialogButtonBox::Ok)->setFocus();
}

}  // namespace Quillon::Forms
