#include "forms/ImportDialog.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <utility>

#include "forms/ElidedLabel.h"
#include "forms/ReaderChoice.h"
#include "forms/Text.h"
#include "forms/WindowPlace.h"
#include "shell/ImportModel.h"

namespace Quillon::Forms {

ImportDialog::ImportDialog(Shell::ImportModel& model, QWidget* parent, std::string_view captionKey, std::string section)
    : QDialog(parent), imported(model), place(std::move(section)) {
    setWindowTitle(Text(captionKey));
}

void ImportDialog::Build(QWidget* source, QWidget* options) {
    auto* const body = new QVBoxLayout(this);
    fields = new QWidget(this);
    auto* const column = new QVBoxLayout(fields);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(source);
    column->addWidget(options);
    preview = new ReaderChoice(imported, this);
    column->addWidget(preview, 1);
    body->addWidget(fields, 1);
    body->addWidget(MakeButtons());
    connect(this, &QDialog::finished, this, [this] { KeepPlace(*this, place); });
    // On a small screen the buttons must stay on it.
    const QSize frame(20, 40);
    RestorePlace(*this, place, sizeHint().expandedTo(QSize(640, 640)).boundedTo(screen()->availableSize() - frame));
}

QWidget* ImportDialog::MakeFileRow(std::string_view noteKey) {
    auto* const panel = new QWidget(this);
    auto* const row = new QHBoxLayout(panel);
    row->setContentsMargins(0, 0, 0, 0);
    auto* const texts = new QVBoxLayout;
    if (!noteKey.empty()) {
        auto* const note = new QLabel(Text(noteKey), panel);
        note->setWordWrap(true);
        texts->addWidget(note);
    }
    lblFile = new ElidedLabel(panel);
    lblFile->setObjectName("lblFile");
    lblFile->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    texts->addWidget(lblFile);
    auto* const Command1 = new QPushButton(Text("str_ImportOpen"), panel);
    Command1->setObjectName("Command1");
    Command1->setAutoDefault(false);
    connect(Command1, &QPushButton::clicked, this, [this] { Command1_Click(); });
    row->addLayout(texts, 1);
    row->addWidget(Command1);
    return panel;
}

void ImportDialog::ShowFile(const QString& path) { lblFile->setText(path); }

void ImportDialog::Refresh() { preview->Refresh(); }

QWidget* ImportDialog::MakeButtons() {
    auto* const panel = new QWidget(this);
    auto* const row = new QHBoxLayout(panel);
    row->setContentsMargins(0, 0, 0, 0);
    Label5 = new QLabel(panel);
    Label5->setObjectName("Label5");
    barProgress = new QProgressBar(panel);
    barProgress->setObjectName("barProgress");
    barProgress->setAccessibleName(windowTitle());
    barProgress->setRange(0, 100);
    barProgress->hide();
    Command2 = new QPushButton(Text("str_ImportDo"), panel);
    Command2->setObjectName("Command2");
    Command2->setDefault(true);
    auto* const Command3 = new QPushButton(Text("str_Cancel"), panel);
    Command3->setObjectName("Command3");
    connect(Command2, &QPushButton::clicked, this, &ImportDialog::Command2_Click);
    connect(Command3, &QPushButton::clicked, this, &ImportDialog::reject);
    row->addWidget(Label5);
    row->addWidget(barProgress, 1);
    row->addStretch();
    row->addWidget(Command2);
    row->addWidget(Command3);
    return panel;
}

bool ImportDialog::Run(const Work& work) {
    StoreOptions();
    cancelled = false;
    working = true;
    fields->setEnabled(false);
    Command2->setEnabled(false);
    const bool done = work([this](int percent) {
        barProgress->show();
        barProgress->setValue(percent);
        Label5->setText(ToQString(imported.Status));
        QCoreApplication::processEvents();
        return !cancelled;
    });
    working = false;
    barProgress->hide();
    Label5->setText(ToQString(imported.Status));
    fields->setEnabled(true);
    Command2->setEnabled(true);
    return done;
}

void ImportDialog::Command2_Click() {
    if (Run([this](const auto& progress) { return imported.Command2_Click(progress); })) return accept();
    Refresh();  // it may have been fetched, or have failed on the way
}

void ImportDialog::reject() {
    if (working) {
        cancelled = true;
        return;
    }
    QDialog::reject();
}

}  // namespace Quillon::Forms
