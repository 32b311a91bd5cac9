#include "forms/frmScaleManager.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QSplitter>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "forms/ElidedLabel.h"
#include "forms/Text.h"
#include "forms/ToolEntries.h"
#include "forms/WrappedLabel.h"
#include "forms/frmMain.h"
#include "forms/picNeck.h"
#include "shell/mod_Shell.h"
#include "tools/ScaleManager.h"

namespace Quillon::Forms {

using Tools::ScaleManager;
using Kind = Library::ScaleFilter::Kind;

namespace {

constexpr int FirstExtent = 270;
constexpr int ListWidth = 210;
constexpr std::array<Kind, 4> Panels = {Kind::All, Kind::Name, Kind::Keywords, Kind::Strings};
constexpr std::array<const char*, 12> KeyNames = {"C",       "C# / Db", "D",       "D# / Eb", "E",       "F",
                                                  "F# / Gb", "G",       "G# / Ab", "A",       "A# / Bb", "B"};

int PanelOf(Kind kind) { return static_cast<int>(std::ranges::find(Panels, kind) - Panels.begin()); }

void ShowPanel(Kind kind) {
    Shell::Guarded([kind] {
        switch (kind) {
            case Kind::Name:
                return Tools::ScaleSearch::mnuSearchName_Click();
            case Kind::Keywords:
                return Tools::ScaleSearch::mnuSearchKeywords_Click();
            case Kind::Strings:
                return Tools::ScaleSearch::mnuSearchStrings_Click();
            case Kind::All:
                return Tools::ScaleSearch::mnuSearchClear_Click();
        }
    });
}

QLabel* NewLabel(QWidget* parent, const char* name) {
    auto* const label = new ElidedLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    return label;
}

}  // namespace

frmScaleManager::frmScaleManager(frmMain& main)
    : LibraryWindow(main, Shell::ToolWindow::Scales, "frmScaleManager", "ScaleWindowDetails", Qt::BottomDockWidgetArea,
                    FirstExtent) {
    entries = new ToolEntries(*this);
    BuildMenus();
    halves = new QSplitter(this);
    halves->setChildrenCollapsible(false);
    halves->addWidget(BuildList());
    halves->addWidget(BuildScale());
    halves->setStretchFactor(1, 1);
    constexpr int Rest = 700;
    halves->setSizes({ListWidth, Rest});
    SetContent(halves);
    entries->GuardKeys(*halves);
    Tools::frmScaleManager_Load();
    ScaleManager.Changed = [this] { Refresh(); };
}

frmScaleManager::~frmScaleManager() {
    ScaleManager.Changed = nullptr;
    Tools::frmScaleManager_Unload();
}

QWidget* frmScaleManager::BuildList() {
    auto* const side = new QWidget(halves);
    auto* const column = new QVBoxLayout(side);
    column->setContentsMargins(4, 2, 4, 2);
    column->setSpacing(4);
    auto* const search = new QHBoxLayout;
    search->setSpacing(4);
    BuildSearch(*search);
    column->addLayout(search);
    lstScales = new QListWidget(side);
    lstScales->setObjectName("lstScales");
    lstScales->setUniformItemSizes(true);
    lstScales->setMinimumHeight(60);
    connect(lstScales, &QListWidget::currentItemChanged, this, [](const QListWidgetItem* item) {
        if (item) Shell::Guarded([item] { Tools::ChooseScale(item->text().toStdString()); });
    });
    connect(lstScales, &QListWidget::itemActivated, this, [] { Shell::Guarded(Tools::PlayScale); });
    column->addWidget(lstScales, 1);
    lblCount = new WrappedLabel(side);
    lblCount->setObjectName("lblCount");
    column->addWidget(lblCount);
    return side;
}

void frmScaleManager::BuildSearch(QBoxLayout& row) {
    cmbSearch = new QComboBox(this);
    cmbSearch->setObjectName("cmbSearch");
    cmbSearch->addItems({"", "", "", ""});
    connect(cmbSearch, &QComboBox::activated, this, [this](int index) {
        ShowPanel(Panels.at(static_cast<std::size_t>(index)));
        if (QWidget* const field = panels->currentWidget()->findChild<QWidget*>()) field->setFocus();
    });
    row.addWidget(cmbSearch);
    panels = new QStackedWidget(this);
    panels->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Maximum);
    row.addWidget(panels, 1);
    const auto panel = [this](const char* name, QWidget* field) {
        auto* const page = new QWidget(panels);
        page->setObjectName(name);
        auto* const fields = new QHBoxLayout(page);
        fields->setContentsMargins(0, 0, 0, 0);
        if (field) fields->addWidget(field);
        panels->addWidget(page);
    };
    txtSearch = new QLineEdit;
    txtKeywords = new QLineEdit;
    // Blocked signals would leave the clear button behind when a search ends: what the manager has already is no news.
    for (const auto& [field, known] :
         {std::pair(txtSearch, &ScaleManager.txtSearch), std::pair(txtKeywords, &ScaleManager.txtKeywords)}) {
        field->setClearButtonEnabled(true);
        field->installEventFilter(this);
        connect(field, &QLineEdit::textChanged, this, [known = known](const QString& text) {
            if (text == ToQString(*known)) return;
            Shell::Guarded([&text] { Tools::SetSearch(text.toStdString()); });
        });
    }
    txtSearch->setObjectName("txtSearch");
    txtKeywords->setObjectName("txtKeywords");
    vbStrings = new QSpinBox;
    vbStrings->setObjectName("vbStrings");
    vbStrings->setRange(1, Core::StringCount);
    connect(vbStrings, &QSpinBox::valueChanged, this,
            [](int strings) { Shell::Guarded([strings] { Tools::SetSearchStrings(strings); }); });
    panel("picSearchNone", nullptr);
    panel("picSearchName", txtSearch);
    panel("picSearchKeywords", txtKeywords);
    panel("picSearchStrings", vbStrings);
}

QWidget* frmScaleManager::BuildScale() {
    auto* const side = new QWidget(halves);
    auto* const column = new QVBoxLayout(side);
    column->setContentsMargins(4, 2, 4, 2);
    column->setSpacing(4);
    auto* const buttons = new QHBoxLayout;
    buttons->setSpacing(1);
    entries->AddButtons(*buttons,
                        {"mnuPlay", "mnuAscend", "mnuDescending", "mnuLow", "mnuHigh", "mnuLefty", "mnuFindScale"});
    lblCaption = NewLabel(side, "lblCaption");
    QFont bold = font();
    bold.setBold(true);
    lblCaption->setFont(bold);
    lblCaption->setAlignment(Qt::AlignCenter);
    buttons->addWidget(lblCaption, 1);
    entries->AddMenuButton(*buttons, *mnuScales, "str_ScaleMenu");
    column->addLayout(buttons);
    picScale = new picNeck(side, [](double width, double height) -> std::optional<picNeck::Content> {
        const Library::ScaleRec* const scale = Tools::ChosenScale();
        if (!scale) return {};
        return picNeck::Content{Library::ScaleNeck(*scale, ScaleManager.View, width, height),
                                {scale->Tuning.begin(), scale->Tuning.begin() + scale->NumStrings},
                                Library::ScaleDots(*scale, ScaleManager.View)};
    });
    picScale->setObjectName("picScale");
    connect(picScale, &picNeck::Clicked, this, [](int string, int fret) {
        Shell::Guarded([&] { Tools::SoundNeckPlace({string, fret}); });
    });
    column->addWidget(picScale, 1);

    facts = new QBoxLayout(QBoxLayout::LeftToRight);
    cmbKey = new QComboBox(side);
    cmbKey->setObjectName("cmbKey");
    for (const char* const name : KeyNames) cmbKey->addItem(name);
    cmbKey->setMaxVisibleItems(cmbKey->count());
    connect(cmbKey, &QComboBox::activated, this, [](int key) { Shell::Guarded([key] { Tools::SetScaleKey(key); }); });
    facts->addWidget(cmbKey, 0, Qt::AlignLeft);
    lblTones = NewLabel(side, "lblTones");
    facts->addWidget(lblTones, 1);
    auto* const heard = new QHBoxLayout;
    facts->addLayout(heard);
    chkReverb = new QCheckBox(side);
    chkReverb->setObjectName("chkReverb");
    chkReverb->setLayoutDirection(Qt::RightToLeft);  // its text ends in a colon: the box comes behind it
    connect(chkReverb, &QCheckBox::toggled, this, [](bool on) { Shell::Guarded([on] { Tools::SetScaleReverb(on); }); });
    heard->addWidget(chkReverb);
    vbSpeed = new QSpinBox(side);
    vbSpeed->setObjectName("vbSpeed");
    vbSpeed->setRange(Tools::LeastNotesAMinute, Tools::MostNotesAMinute);
    constexpr int step = 20;
    vbSpeed->setSingleStep(step);
    connect(vbSpeed, &QSpinBox::valueChanged, this,
            [](int notes) { Shell::Guarded([notes] { Tools::SetNotesAMinute(notes); }); });
    heard->addWidget(vbSpeed);
    column->addLayout(facts);
    return side;
}

void frmScaleManager::SetTexts() {
    setWindowTitle(Text("str_ScaleManagerTitle"));
    entries->SetTexts();
    SetDockTexts();
    const std::array<const char*, Panels.size()> kinds = {"str_ScaleSearchAll", "str_SearchByName",
                                                          "str_SearchByKeywords", "str_SearchByStrings"};
    for (int i = 0; i < cmbSearch->count(); ++i) {
        cmbSearch->setItemText(i, Text(kinds.at(static_cast<std::size_t>(i))));
    }
    const auto name = [](QWidget* field, const char* key) {
        field->setAccessibleName(Text(key).remove('&'));
        field->setToolTip(field->accessibleName());
    };
    name(cmbSearch, "str_ScaleSearchMenu");
    name(txtSearch, "str_ScaleNameHint");
    name(txtKeywords, "str_ScaleKeywordsHint");
    name(vbStrings, "str_SearchByStrings");
    name(cmbKey, "str_ScaleKey");
    name(vbSpeed, "str_ScaleSpeed");
    txtSearch->setPlaceholderText(Text("str_ScaleNameHint"));
    txtKeywords->setPlaceholderText(Text("str_ScaleKeywordsHint"));
    vbSpeed->setSuffix(Text("str_ScaleSpeedUnit"));
    chkReverb->setText(Text("str_ScaleReverb"));
    lstScales->setAccessibleName(Text("str_ScaleList"));
    Refresh();
}

void frmScaleManager::ShowList() {
    const QSignalBlocker quiet(lstScales);
    QStringList names;
    for (const std::string& name : ScaleManager.lstScales) names << ToQString(name);
    QStringList shown;
    for (int row = 0; row < lstScales->count(); ++row) shown << lstScales->item(row)->text();
    if (names != shown) {
        lstScales->clear();
        lstScales->addItems(names);
    }
    const auto row = static_cast<int>(names.indexOf(ToQString(ScaleManager.Chosen)));
    if (lstScales->currentRow() == row) return;
    lstScales->setCurrentRow(row);
    if (row >= 0) lstScales->scrollToItem(lstScales->item(row));
}

void frmScaleManager::Refresh() {
    ShowList();
    const auto show = [](auto* field, auto set) {
        const QSignalBlocker quiet(field);
        set();
    };
    show(cmbSearch, [this] { cmbSearch->setCurrentIndex(PanelOf(ScaleManager.Panel)); });
    panels->setCurrentIndex(PanelOf(ScaleManager.Panel));
    for (const auto& [field, text] :
         {std::pair(txtSearch, &ScaleManager.txtSearch), std::pair(txtKeywords, &ScaleManager.txtKeywords)}) {
        if (field->text() != ToQString(*text)) field->setText(ToQString(*text));
    }
    show(vbStrings, [this] { vbStrings->setValue(ScaleManager.Strings); });
    show(cmbKey, [this] { cmbKey->setCurrentIndex(ScaleManager.View.Key); });
    show(vbSpeed, [this] { vbSpeed->setValue(ScaleManager.NotesAMinute); });
    lblCount->setText(ToQString(Tools::ScaleCountText()));
    lblCount->setToolTip(lblCount->text());
    lblCaption->setText(ToQString(Tools::ShownScaleCaption()));
    lblTones->setText(ToQString(Tools::ScaleTonesText()));
    lblTones->setToolTip(lblTones->text());
    picScale->setAccessibleName(lblCaption->text() + ". " + lblTones->text());
    picScale->Refresh();
    CommandsChanged();
}

std::filesystem::path frmScaleManager::Folder() const { return Library::Scales.Folder(); }
void frmScaleManager::FolderChanged() { Tools::LookAtScaleFolder(); }
void frmScaleManager::EndSounds() { Tools::frmScaleManager_Unload(); }
void frmScaleManager::TakeFocus() { lstScales->setFocus(); }

/// Beside the paper there is no room for two columns, nor for a scale's tones among the fields.
void frmScaleManager::resizeEvent(QResizeEvent* event) {
    LibraryWindow::resizeEvent(event);
    const auto wanted = width() > height() ? Qt::Horizontal : Qt::Vertical;
    if (halves->orientation() == wanted) return;
    halves->setOrientation(wanted);
    facts->setDirection(wanted == Qt::Vertical ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
}

/// From a search field the arrows walk the list, and Enter plays what was found.
bool frmScaleManager::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && (watched == txtSearch || watched == txtKeywords)) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        const int step = key == Qt::Key_Down ? 1 : key == Qt::Key_Up ? -1 : 0;
        if (step != 0) {
            const int row = std::clamp(lstScales->currentRow() + step, 0, std::max(0, lstScales->count() - 1));
            lstScales->setCurrentRow(row);
            return true;
        }
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            Shell::Guarded(Tools::PlayScale);
            return true;
        }
    }
    return LibraryWindow::eventFilter(watched, event);
}

}  // namespace Quillon::Forms
