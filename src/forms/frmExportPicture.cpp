#include "forms/frmExportPicture.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QSpinBox>

#include "exchange/PictureExport.h"
#include "forms/Text.h"

namespace Quillon::Forms {

frmExportPicture::frmExportPicture(Choice& choice, int pages, int currentPage, bool vector, QWidget* parent)
    : ModelDialog(parent, "str_ExportPictureTitle", "ExportPictureWindowDetails"), chosen(choice) {
    setObjectName("frmExportPicture");
    QFormLayout* const form = AddPage();
    auto* const all = new QRadioButton(Text("str_AllPages"), this);
    auto* const one = new QRadioButton(Text("str_OnePage"), this);
    auto* const number = new QSpinBox(this);
    all->setObjectName("optAllPages");
    one->setObjectName("optOnePage");
    number->setObjectName("vbPage");
    number->setAccessibleName(Text("str_OnePage").remove('&'));
    number->setRange(1, pages);
    number->setValue(currentPage);
    number->setEnabled(false);
    all->setChecked(true);
    one->setEnabled(pages > 1);
    connect(one, &QRadioButton::toggled, number, &QWidget::setEnabled);
    auto* const row = new QHBoxLayout;
    row->addWidget(one);
    row->addWidget(number);
    row->addStretch();
    form->addRow(Text("str_PicturePages"), all);
    form->addRow(QString(), row);
    OnStore([one, number, &choice] { choice.Page = one->isChecked() ? number->value() : 0; });
    if (!vector) {
        auto* const dpi = new QComboBox(this);
        dpi->setObjectName("cmbDpi");
        for (const int each : {96, 150, 300, 600}) {
            dpi->addItem(QString("%1 %2").arg(each).arg(Text("str_UnitDpi")), each);
        }
        dpi->setCurrentIndex(dpi->findData(choice.Dpi));
        form->addRow(Text("str_Resolution"), dpi);
        auto* const size = new QLabel(this);
        size->setObjectName("lblPixels");
        size->setForegroundRole(QPalette::PlaceholderText);
        form->addRow(QString(), size);
        const auto show = [dpi, size] {
            const ImageSize pixels = Exchange::PagePixels(dpi->currentData().toInt());
            size->setText(Text("str_PicturePixels").arg(pixels.Width, 0, 'f', 0).arg(pixels.Height, 0, 'f', 0));
        };
        connect(dpi, &QComboBox::currentIndexChanged, size, show);
        show();
        OnStore([dpi, &choice] { choice.Dpi = dpi->currentData().toInt(); });
    }
    Finish([vector, &choice]() -> std::string_view {
        return vector || Exchange::PictureComplaint(choice.Dpi).empty() ? "" : "str_PictureTooLarge";
    });
}

QString frmExportPicture::ComplaintText(std::string_view) const {
    return ToQString(Exchange::PictureComplaint(chosen.Dpi));
}

}  // namespace Quillon::Forms
