#include "forms/ntne_frmBarKeySig.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QRadioButton>

#include "core/mod_TabFileStructure.h"
#include "forms/Text.h"
#include "shell/BarModels.h"

namespace Quillon::Forms {

namespace {

QStringList KeyNames(bool minor) {
    QStringList names;
    for (const std::string& name : Shell::BarKeySigModel::KeyNames(minor, Core::LanguageText("str_KeyNone"))) {
        names << ToQString(name);
    }
    return names;
}

}  // namespace

ntne_frmBarKeySig::ntne_frmBarKeySig(Shell::BarKeySigModel& model, QWidget* parent)
    : ModelDialog(parent, "str_BarKeySigTitle", "BarKeySigWindowDetails") {
    setObjectName("ntne_frmBarKeySig");
    setWindowTitle(
        ToQString(Core::LanguageText("str_TitleOfBar", {windowTitle().toStdString(), std::to_string(model.Bar)})));
    QFormLayout* const page = AddPage();
    auto* const major = new QRadioButton(Text("str_KeyMajor"), this);
    auto* const minor = new QRadioButton(Text("str_KeyMinor"), this);
    major->setObjectName("optMajor");
    minor->setObjectName("optMinor");
    (model.Minor != 0 ? minor : major)->setChecked(true);
    auto* const row = new QHBoxLayout;
    row->addWidget(major);
    row->addWidget(minor);
    row->addStretch();
    page->addRow(Text("str_KeyMode"), row);
    QComboBox* const keys = AddChoice(page, "cmbKey", "str_Key", model.Key, KeyNames(model.Minor != 0));
    connect(minor, &QRadioButton::toggled, this, [keys](bool isMinor) {
        const QStringList names = KeyNames(isMinor);
        for (int i = 0; i < keys->count(); ++i) keys->setItemText(i, names[i]);
    });
    AddChoice(page, "cmbScope", "str_SignatureScope", model.Scope,
              {ToQString(Core::LanguageText("str_ScopeThisBar", {std::to_string(model.Bar)})),
               Text("str_ScopeFromHere"), Text("str_ScopeAllBars")});
    AddCheck(page, "chkAllTracks", "str_OnAllTracks", model.AllTracks);
    OnStore([minor, &model] { model.Minor = minor->isChecked() ? 1 : 0; });
    AddPreview(page, model, [&model] {
        return Drawing::Excerpt(model.Shown(), {.Track = Core::Open.CurTrack, .Bar = model.Bar - 1, .Figures = true});
    });
    Finish([&model] { return model.Validate(); });
}

}  // namespace Quillon::Forms
