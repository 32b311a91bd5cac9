#include "forms/frmGuitarTuner.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <cmath>

#include "forms/SvgIcon.h"
#include "forms/Text.h"
#include "forms/ToolEntries.h"
#include "forms/WrappedLabel.h"
#include "forms/frmMain.h"
#include "forms/picString.h"
#include "shell/ToolWindows.h"
#include "shell/mod_Shell.h"
#include "shell/mod_Sound.h"
#include "tools/GuitarTuner.h"

namespace Quillon::Forms {

using Library::Tuner;
using Tools::GuitarTuner;

namespace {

constexpr int FirstExtent = 300;
constexpr double Millis = 1000;

bool IsIdle() { return !GuitarTuner.Runs; }
bool OwnsTuning() { return IsIdle() && !GuitarTuner.Chosen.empty(); }

}  // namespace

frmGuitarTuner::frmGuitarTuner(frmMain& main)
    : LibraryWindow(main, Shell::ToolWindow::Tuner, "frmGuitarTuner", "TunerWindowDetails", Qt::RightDockWidgetArea,
                    FirstExtent) {
    entries = new ToolEntries(*this);
    BuildMenu();
    auto* const content = new QWidget(this);
    auto* const column = new QVBoxLayout(content);
    column->setContentsMargins(4, 2, 4, 2);
    column->setSpacing(4);
    auto* const row = new QHBoxLayout;
    cmbTuning = new QComboBox(content);
    cmbTuning->setObjectName("cmbTuning");
    cmbTuning->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    constexpr int LeastLetters = 12;
    cmbTuning->setMinimumContentsLength(LeastLetters);
    connect(cmbTuning, &QComboBox::activated, this,
            [](int index) { Shell::Guarded([index] { Tools::ChooseTuning(index); }); });
    row->addWidget(cmbTuning, 1);
    entries->AddMenuButton(*row, *mnuTunings, "str_TunerMenu");
    column->addLayout(row);
    column->addWidget(BuildStrings(), 1);
    column->addWidget(BuildCommands());
    SetContent(content);
    entries->GuardKeys(*content);
    Tools::frmGuitarTuner_Load();
    GuitarTuner.Changed = [this] { Refresh(); };
}

frmGuitarTuner::~frmGuitarTuner() {
    GuitarTuner.Changed = nullptr;
    Tools::frmGuitarTuner_Unload();
}

void frmGuitarTuner::BuildMenu() {
    mnuTunings = new QMenu(this);
    mnuTunings->setObjectName("mnuTunings");
    entries->Add(*mnuTunings, "mnuNewTuning", "str_NewTuning", Tools::mnuNewTuning_Click,
                 {.Icon = "new", .Enabled = IsIdle});
    entries->Add(*mnuTunings, "mnuEditTuning", "str_EditTuning", Tools::mnuEditTuning_Click,
                 {.Icon = "properties", .Enabled = OwnsTuning});
    entries->Add(*mnuTunings, "mnuDeleteTuning", "str_DeleteTuning", Tools::mnuDeleteTuning_Click,
                 {.Enabled = OwnsTuning});
    entries->Add(*mnuTunings, "mnuRestoreTunings", "str_RestoreTunings", Tools::mnuRestoreTunings_Click,
                 {.Enabled = IsIdle});
    mnuTunings->addSeparator();
    AddDockEntries(*mnuTunings);
}

QWidget* frmGuitarTuner::BuildStrings() {
    auto* const box = new QWidget(this);
    auto* const grid = new QGridLayout(box);
    grid->setContentsMargins(0, 4, 0, 4);
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(0);
    grid->setColumnStretch(2, 1);
    for (int string = 0; string < Core::StringCount; ++string) {
        const auto at = static_cast<std::size_t>(string);
        chk.at(at) = new QCheckBox(ToQString(Tools::StringLetter(string)), box);
        chk.at(at)->setObjectName(QString("chk%1").arg(string));
        connect(chk.at(at), &QCheckBox::toggled, this, [string](bool on) { Tools::SetString(string, on); });
        lblNotes.at(at) = new QLabel(box);
        lblNotes.at(at)->setObjectName(QString("lblNote%1").arg(string));
        lblNotes.at(at)->setMinimumWidth(fontMetrics().horizontalAdvance("G#2  +12"));
        strings.at(at) = new picString(string, box);
        connect(strings.at(at), &picString::clicked, this,
                [string] { Shell::Guarded([string] { Tools::PlayOne(string); }); });
        grid->addWidget(chk.at(at), string, 0);
        grid->addWidget(lblNotes.at(at), string, 1);
        grid->addWidget(strings.at(at), string, 2);
    }
    grid->setRowStretch(Core::StringCount, 1);
    return box;
}

QWidget* frmGuitarTuner::BuildCommands() {
    auto* const box = new QWidget(this);
    auto* const column = new QVBoxLayout(box);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    auto* const play = new QHBoxLayout;
    play->setSpacing(4);
    const auto button = [&](const char* name, const char* icon, void (*act)()) {
        auto* const made = new QPushButton(SvgIcon(icon), QString(), box);
        made->setObjectName(name);
        made->setAutoDefault(false);
        connect(made, &QPushButton::clicked, this, [act] { Shell::Guarded(act); });
        play->addWidget(made);
        return made;
    };
    cmdUp = button("cmdUp", "scale-up", Tools::PlayUp);
    cmdDown = button("cmdDown", "scale-down", Tools::PlayDown);
    cmdStop = button("cmdStop", "stop", Tools::StopTuner);
    column->addLayout(play);
    auto* const options = new QHBoxLayout;
    chkLetRing = new QCheckBox(box);
    chkLetRing->setObjectName("chkLetRing");
    connect(chkLetRing, &QCheckBox::toggled, this, [](bool on) { Tools::SetLetRing(on); });
    options->addWidget(chkLetRing, 1);
    vbPause = new QDoubleSpinBox(box);
    vbPause->setObjectName("vbPause");
    vbPause->setDecimals(1);
    constexpr double step = 0.1;
    vbPause->setSingleStep(step);
    vbPause->setRange(Tools::LeastTunerPause / Millis, Tools::MostTunerPause / Millis);
    connect(vbPause, &QDoubleSpinBox::valueChanged, this,
            [](double seconds) { Tools::SetTunerPause(static_cast<int>(std::lround(seconds * Millis))); });
    options->addWidget(vbPause);
    column->addLayout(options);
    lblCount = new WrappedLabel(box);
    lblCount->setObjectName("lblCount");
    column->addWidget(lblCount);
    return box;
}

void frmGuitarTuner::SetTexts() {
    setWindowTitle(Text("str_TunerTitle"));
    entries->SetTexts();
    SetDockTexts();
    cmbTuning->setAccessibleName(Text("str_TunerTuning"));
    cmbTuning->setToolTip(Text("str_TunerTuning"));
    cmdUp->setText(Text("str_TunerUp"));
    cmdDown->setText(Text("str_TunerDown"));
    cmdStop->setText(Text("str_TunerStop"));
    chkLetRing->setText(Text("str_TunerLetRing"));
    vbPause->setAccessibleName(Text("str_TunerPause"));
    vbPause->setToolTip(Text("str_TunerPause"));
    vbPause->setSuffix(Text("str_TunerPauseUnit"));
    Refresh();
}

void frmGuitarTuner::ShowStrings() {
    for (int string = 0; string < Core::StringCount; ++string) {
        const auto at = static_cast<std::size_t>(string);
        const bool used = string < Tuner.Tuning.NumStrings;
        const QSignalBlocker quiet(chk.at(at));
        chk.at(at)->setChecked(Tuner.Chk[string]);
        chk.at(at)->setEnabled(!GuitarTuner.Runs);
        const QString spoken = ToQString(Tools::StringSpoken(string));
        chk.at(at)->setAccessibleName(spoken);
        chk.at(at)->setToolTip(Text("str_TunerCheck"));
        lblNotes.at(at)->setText(ToQString(Tools::StringNoteText(string)));
        strings.at(at)->setAccessibleName(spoken);
        strings.at(at)->setToolTip(Text("str_TunerHint"));
        strings.at(at)->Show(Tuner.Chk[string], GuitarTuner.Sounding == string);
        for (QWidget* const each : std::initializer_list<QWidget*>{chk.at(at), lblNotes.at(at), strings.at(at)}) {
            each->setVisible(used);
        }
    }
}

void frmGuitarTuner::Refresh() {
    QStringList names{ToQString(Tools::TrackTuningText())};
    for (const std::string& name : GuitarTuner.cmbTuning) names << ToQString(name);
    QStringList shown;
    for (int i = 0; i < cmbTuning->count(); ++i) shown << cmbTuning->itemText(i);
    if (names != shown) {
        const QSignalBlocker quiet(cmbTuning);
        cmbTuning->clear();
        cmbTuning->addItems(names);
    }
    cmbTuning->setCurrentIndex(Tools::ChosenTuning());
    cmbTuning->setEnabled(!GuitarTuner.Runs);
    const QSignalBlocker quietRing(chkLetRing);
    chkLetRing->setChecked(Tuner.LetRing);
    const QSignalBlocker quietPause(vbPause);
    vbPause->setValue(Tuner.Pause / Millis);
    lblCount->setText(ToQString(Tools::TuningCountText()));
    lblCount->setToolTip(lblCount->text());
    ShowStrings();
    CommandsChanged();
}

void frmGuitarTuner::CommandsChanged() {
    entries->ShowStates();
    const bool free = IsIdle() && !Shell::Sound.Playing;
    cmdUp->setEnabled(free);
    cmdDown->setEnabled(free);
    cmdStop->setEnabled(Library::IsTuningPlaying());
}

void frmGuitarTuner::CursorMoved() {
    if (!isVisible()) return;
    Tools::TunerCursorMoved();
    const QString track = ToQString(Tools::TrackTuningText());
    if (cmbTuning->itemText(0) != track) cmbTuning->setItemText(0, track);
}

std::filesystem::path frmGuitarTuner::Folder() const { return Library::Tunings.Folder(); }
void frmGuitarTuner::FolderChanged() { Tools::LookAtTuningFolder(); }
void frmGuitarTuner::EndSounds() { Tools::frmGuitarTuner_Unload(); }
void frmGuitarTuner::TakeFocus() { cmbTuning->setFocus(); }

void frmGuitarTuner::MouseWheel(int notches) {
    Shell::Guarded([notches] { Tools::MouseWheel(notches); });
}

/// Anywhere on the window the wheel goes through the tunings.
void frmGuitarTuner::wheelEvent(QWheelEvent* event) {
    constexpr int Notch = 120;
    wheelRest += event->angleDelta().y();
    const int notches = wheelRest / Notch;
    wheelRest -= notches * Notch;
    if (notches != 0) MouseWheel(notches);
    event->accept();
}

}  // namespace Quillon::Forms
