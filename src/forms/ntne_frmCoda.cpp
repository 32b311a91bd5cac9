#include "forms/ntne_frmCoda.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>

#include "core/mod_TabFileStructure.h"
#include "forms/Text.h"
#include "shell/BarModels.h"

namespace Quillon::Forms {

ntne_frmCoda::ntne_frmCoda(Shell::CodaModel& model, QWidget* parent)
    : ModelDialog(parent, "str_CodaTitle", "CodaWindowDetails") {
    setObjectName("ntne_frmCoda");
    setWindowTitle(
        ToQString(Core::LanguageText("str_TitleOfBar", {windowTitle().toStdString(), std::to_string(model.Bar)})));
    QFormLayout* const page = AddPage();
    QCheckBox* const segno = AddCheck(page, "chkSegno", "str_SignSegno", model.Segno);
    QCheckBox* const dalSegno = AddCheck(page, "chkDalSegno", "str_SignDalSegno", model.DalSegno);
    QCheckBox* const toCoda = AddCheck(page, "chkToCoda", "str_SignToCoda", model.ToCoda);
    QCheckBox* const coda = AddCheck(page, "chkCoda", "str_SignCoda", model.Coda);
    auto* const check = new QLabel(this);
    check->setObjectName("lblCheck");
    check->setWordWrap(true);
    check->setTextFormat(Qt::PlainText);
    check->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    constexpr int Lines = 6;
    check->setMinimumHeight(fontMetrics().lineSpacing() * Lines);
    page->addRow(check);
    const auto show = [=, &model] {
        model.Segno = segno->isChecked();
        model.DalSegno = dalSegno->isChecked();
        model.ToCoda = toCoda->isChecked();
        model.Coda = coda->isChecked();
        QStringList sentences;
        for (const std::string& each : model.Check()) sentences << "• " + ToQString(each);
        check->setText(sentences.isEmpty() ? Text("str_SignsMakeSense") : sentences.join("\n"));
    };
    for (QCheckBox* box : {segno, dalSegno, toCoda, coda}) connect(box, &QCheckBox::toggled, this, show);
    show();
    AddPreview(page, model, [&model] {
        return Drawing::Excerpt(model.Changed(), {.Track = Core::Open.CurTrack, .Bar = model.Bar - 1});
    });
    // Signs are set one bar at a time, so what does not make sense yet may stay.
    Finish([] { return ""; });
}

}  // namespace Quillon::Forms
