// The pages of the options that sound has: what is chosen on the first is heard at once.
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QTabWidget>
#include <QTimer>
#include <cmath>

#include "forms/Text.h"
#include "forms/frmOptions.h"
#include "platform/Services.h"
#include "shell/DialogModels.h"
#include "shell/mod_Sound.h"

namespace Quillon::Forms {

namespace {

constexpr int SoundStateTick = 400;  // ms: a SoundFont is loaded beside the window

void OfferFont(QComboBox& fonts, const std::filesystem::path& path) {
    if (fonts.findData(PathText(path)) >= 0) return;
    fonts.addItem(PathText(path.filename()), PathText(path));
    fonts.setItemData(fonts.count() - 1, PathText(path), Qt::ToolTipRole);
}

}  // namespace

void frmOptions::BuildSoundPage(Shell::OptionsModel& model) {
    QFormLayout* const page = AddPage("str_PageSoundOptions");
    lstDevices = new QListWidget(this);
    lstDevices->setObjectName("lstDevices");
    constexpr int Rows = 4;
    lstDevices->setFixedHeight(fontMetrics().lineSpacing() * Rows + 2 * Rows + 8);
    page->addRow(Text("str_OptionDevice"), lstDevices);
    connect(lstDevices, &QListWidget::currentRowChanged, this, [this, &model](int row) {
        ShowComplaint(CheckBends(model));
        Shell::lstDevices_Click(row);
        ShowSoundState();
    });
    const int index = Tabs()->count() - 1;
    connect(Tabs(), &QTabWidget::currentChanged, this, [this, index](int now) {
        if (now == index) FillDevices();
    });
    AddCheck(page, "Check1", "str_OptionAlternate", model.Settings.AlternatePlayback);
    AddSynthesizer(page, model);

    auto* const test = new QPushButton(Text("str_TestTone"), this);
    test->setObjectName("cmdTestTone");
    test->setAutoDefault(false);
    connect(test, &QPushButton::clicked, this, Shell::cmdTestTone_Click);
    auto* const row = new QHBoxLayout;
    row->addWidget(test);
    row->addStretch();
    page->addRow(QString(), row);
    lblSoundState = new QLabel(this);
    lblSoundState->setObjectName("lblSoundState");
    lblSoundState->setTextFormat(Qt::PlainText);
    lblSoundState->setWordWrap(true);
    lblSoundState->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    lblSoundState->setMinimumHeight(fontMetrics().lineSpacing() * 3);
    lblSoundState->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    page->addRow(QString(), lblSoundState);
    auto* const tick = new QTimer(this);
    connect(tick, &QTimer::timeout, this, &frmOptions::ShowSoundState);
    tick->start(SoundStateTick);
    ShowSoundState();
}

void frmOptions::AddSynthesizer(QFormLayout* page, Shell::OptionsModel& model) {
    SynthesizerSettings& chosen = model.Synthesizer;
    auto* const fonts = new QComboBox(this);
    fonts->setObjectName("cmbSoundFont");
    fonts->addItem(Text("str_SoundFontFirst"), QString());
    for (const auto& path : model.SoundFonts) OfferFont(*fonts, path);
    if (!chosen.SoundFont.empty()) OfferFont(*fonts, chosen.SoundFont);
    fonts->setCurrentIndex(fonts->findData(PathText(chosen.SoundFont)));
    fonts->setMinimumContentsLength(24);
    fonts->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    const auto choose = [this, fonts, &model] {
        model.Synthesizer.SoundFont = ToPath(fonts->currentData().toString());
        model.Preview();
        ShowSoundState();
    };
    connect(fonts, &QComboBox::activated, this, choose);
    auto* const browse = new QPushButton(Text("str_Browse"), this);
    browse->setObjectName("cmdSoundFont");
    browse->setAutoDefault(false);
    connect(browse, &QPushButton::clicked, this, [this, fonts, choose] {
        const QString folder = PathText(ToPath(fonts->currentData().toString()).parent_path());
        const QString filter = Text("str_FilterSoundFont") + " (*.sf2 *.sf3 *.SF2 *.SF3)";
        const QString path = QFileDialog::getOpenFileName(this, Text("str_SoundFontTitle"), folder, filter);
        if (path.isEmpty()) return;
        OfferFont(*fonts, ToPath(path));
        fonts->setCurrentIndex(fonts->findData(path));
        choose();
    });
    auto* const fontRow = new QHBoxLayout;
    fontRow->addWidget(fonts, 1);
    fontRow->addWidget(browse);
    page->addRow(Text("str_OptionSoundFont"), fontRow);
    qobject_cast<QLabel*>(page->labelForField(fontRow))->setBuddy(fonts);

    constexpr int Percent = 100;
    auto* const gain = new QSlider(Qt::Horizontal, this);
    gain->setObjectName("sldGain");
    gain->setRange(0, static_cast<int>(LoudestGain * Percent));
    gain->setValue(static_cast<int>(std::lround(chosen.Gain * Percent)));
    gain->setPageStep(10);
    auto* const shown = new QLabel(this);
    shown->setMinimumWidth(fontMetrics().horizontalAdvance("200 %") + 8);
    shown->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    const auto show = [gain, shown] { shown->setText(QString("%1 %").arg(gain->value())); };
    show();
    connect(gain, &QSlider::valueChanged, this, [show, &model](int value) {
        model.Synthesizer.Gain = double(value) / Percent;
        model.Preview();
        show();
    });
    auto* const gainRow = new QHBoxLayout;
    gainRow->addWidget(gain, 1);
    gainRow->addWidget(shown);
    page->addRow(Text("str_OptionGain"), gainRow);
    qobject_cast<QLabel*>(page->labelForField(gainRow))->setBuddy(gain);

    const auto check = [&](const char* name, const char* key, bool& value) {
        auto* const field = new QCheckBox(Text(key), this);
        field->setObjectName(name);
        field->setChecked(value);
        connect(field, &QCheckBox::toggled, this, [&value, &model](bool on) {
            value = on;
            model.Preview();
        });
        return field;
    };
    auto* const checks = new QHBoxLayout;
    checks->addWidget(check("chkReverb", "str_OptionReverb", chosen.Reverb));
    checks->addSpacing(16);
    checks->addWidget(check("chkChorus", "str_OptionChorus", chosen.Chorus));
    checks->addStretch();
    page->addRow(QString(), checks);
    if (Services.Synth) return;
    for (const QLayout* each : {fontRow, gainRow, checks}) {
        for (int i = 0; i < each->count(); ++i) {
            if (QWidget* const field = each->itemAt(i)->widget()) field->setEnabled(false);
        }
    }
}

void frmOptions::BuildEffectsPage(Shell::OptionsModel& model) {
    QFormLayout* const page = AddPage("str_PageEffects");
    txtBend = AddText(page, "txtBendCoefficient", "str_OptionBend", model.BendCoefficient);
    txtVibrato = AddText(page, "txtVibratoBend", "str_OptionVibrato", model.VibratoBend);
    auto* const wide = new QDoubleSpinBox(this);
    wide->setObjectName("vbWideVibratoBend");
    wide->setDecimals(1);
    wide->setRange(0.1, 63);
    wide->setValue(model.Settings.WideVibratoBend);
    page->addRow(Text("str_OptionWideVibrato"), wide);
    OnStore([wide, &model, before = wide->value()] {
        if (wide->value() != before) model.Settings.WideVibratoBend = wide->value();
    });
    AddNumber(page, "vbVibratoCount", "str_OptionVibratoCount", model.Settings.VibratoCount, 1, 100);
    AddNote(page, "str_EffectsNote");
}

std::string_view frmOptions::CheckBends(Shell::OptionsModel& model) {
    model.BendCoefficient = txtBend->text().toStdString();
    model.VibratoBend = txtVibrato->text().toStdString();
    const std::string_view complaint = model.CheckBends();
    // A refused one is back at its old value.
    txtBend->setText(ToQString(model.BendCoefficient));
    txtVibrato->setText(ToQString(model.VibratoBend));
    return complaint;
}

void frmOptions::FillDevices() {
    Shell::FillDevices();
    const QSignalBlocker quiet(lstDevices);
    lstDevices->clear();
    for (const Playback::DeviceEntry& device : Shell::Sound.Devices) lstDevices->addItem(ToQString(device.Name));
    lstDevices->setCurrentRow(Shell::Sound.Position);
    ShowSoundState();
}

void frmOptions::ShowSoundState() {
    const QString text = ToQString(Shell::SoundText());
    if (text != lblSoundState->text()) lblSoundState->setText(text);
}

}  // namespace Quillon::Forms
