#include "forms/frmTuningLoader.h"

#include <QFormLayout>
#include <QLabel>
#include <QListWidget>

#include "core/mod_TabFileStructure.h"
#include "forms/Text.h"
#include "shell/TuningLoaderModel.h"

namespace Quillon::Forms {

frmTuningLoader::frmTuningLoader(Shell::TuningLoaderModel& edited, QWidget* parent)
    : ModelDialog(parent, "str_TuningLoaderTitle", "TuningLoaderWindowDetails"), model(edited) {
    setObjectName("frmTuningLoader");
    const std::string& track = Core::Open.TabFile.Tracks[model.Track].Name;
    setWindowTitle(ToQString(Core::LanguageText("str_TuningLoaderTitle", {track})));
    QFormLayout* const page = AddPage();
    lstTunings = new QListWidget(this);
    lstTunings->setObjectName("lstTunings");
    lstTunings->setUniformItemSizes(true);
    for (const std::string& name : model.Names) lstTunings->addItem(ToQString(name));
    const auto chosen = lstTunings->findItems(ToQString(model.Chosen), Qt::MatchFixedString | Qt::MatchCaseSensitive);
    if (!chosen.isEmpty()) lstTunings->setCurrentItem(chosen.front());
    page->addRow(Text("str_TuningLoaderList"), lstTunings);
    lblNotes = new QLabel(this);
    lblNotes->setObjectName("lblNotes");
    page->addRow(Text("str_TuningLoaderNotes"), lblNotes);
    lblLost = new QLabel(this);
    lblLost->setObjectName("lblLost");
    lblLost->setWordWrap(true);
    page->addRow(lblLost);
    connect(lstTunings, &QListWidget::currentTextChanged, this, [this](const QString& name) {
        model.Chosen = name.toStdString();
        Show();
    });
    connect(lstTunings, &QListWidget::itemDoubleClicked, this, &ModelDialog::accept);
    Finish([this] { return model.Validate(); });
    Show();
    // Once it has its size.
    QMetaObject::invokeMethod(
        this, [this] { lstTunings->scrollToItem(lstTunings->currentItem()); }, Qt::QueuedConnection);
}

void frmTuningLoader::Show() {
    lblNotes->setText(ToQString(model.NotesText()));
    const int lost = model.HandsOver ? 0 : model.LostNotes();
    lblLost->setText(lost == 0 ? QString()
                               : ToQString(Core::LanguageText("str_TuningLoaderLost", {std::to_string(lost)})));
    lblLost->setVisible(lost > 0);
    ShowComplaint({});
}

}  // namespace Quillon::Forms
