#include "forms/frmScaleFinder.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "forms/ElidedLabel.h"
#include "forms/SvgIcon.h"
#include "forms/Text.h"
#include "forms/ToolEntries.h"
#include "forms/frmMain.h"
#include "forms/picNeck.h"
#include "library/ChordNaming.h"
#include "shell/mod_Shell.h"
#include "tools/ScaleFinder.h"
#include "tools/ScaleManager.h"

namespace Quillon::Forms {

using Tools::ScaleFinder;

namespace {

constexpr int FirstExtent = 360;
constexpr int MostRows = 200;  // further ones fit so badly that none will read them

}  // namespace

frmScaleFinder::frmScaleFinder(frmMain& window)
    : LibraryWindow(window, Shell::ToolWindow::ScaleFinder, "frmScaleFinder", "ScaleFinderWindowDetails",
                    Qt::RightDockWidgetArea, FirstExtent),
      main(window) {
    entries = new ToolEntries(*this);
    mnuFinder = new QMenu(this);
    mnuFinder->setObjectName("mnuFinder");
    AddDockEntries(*mnuFinder);
    auto* const content = new QWidget(this);
    auto* const column = new QVBoxLayout(content);
    column->setContentsMargins(4, 2, 4, 2);
    column->setSpacing(4);
    column->addWidget(BuildNotes());
    column->addWidget(BuildFound(), 1);
    SetContent(content);
    entries->GuardKeys(*content);
    Tools::frmScaleFinder_Load();
    ScaleFinder.Changed = [this] { Refresh(); };
}

frmScaleFinder::~frmScaleFinder() {
    ScaleFinder.Changed = nullptr;
    Tools::frmScaleFinder_Unload();
}

QWidget* frmScaleFinder::BuildNotes() {
    auto* const top = new QWidget(this);
    auto* const column = new QVBoxLayout(top);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    auto* const row = new QHBoxLayout;
    cmdTakeBars = new QPushButton(top);
    cmdTakeBars->setObjectName("cmdTakeBars");
    connect(cmdTakeBars, &QPushButton::clicked, this, &frmScaleFinder::TakeBars);
    row->addWidget(cmdTakeBars);
    cmdClear = new QPushButton(top);
    cmdClear->setObjectName("cmdClear");
    connect(cmdClear, &QPushButton::clicked, this, [] { Shell::Guarded(Tools::ClearNotes); });
    row->addWidget(cmdClear);
    row->addStretch();
    entries->AddMenuButton(*row, *mnuFinder, "str_FinderMenu");
    column->addLayout(row);

    auto* const notes = new QGridLayout;
    notes->setSpacing(2);
    constexpr int InRow = 6;
    for (int note = 0; note < static_cast<int>(cmdNotes.size()); ++note) {
        auto* const button = new QToolButton(top);
        button->setObjectName(QString("cmdNote%1").arg(note));
        button->setText(ToQString(Library::PitchClassName(note)));
        button->setCheckable(true);
        button->setFocusPolicy(Qt::TabFocus);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        connect(button, &QToolButton::clicked, this, [note] { Shell::Guarded([note] { Tools::ToggleNote(note); }); });
        notes->addWidget(button, note / InRow, note % InRow);
        cmdNotes.at(static_cast<std::size_t>(note)) = button;
    }
    column->addLayout(notes);
    picNotes = new picNeck(top, [](double width, double height) -> std::optional<picNeck::Content> {
        constexpr int ToFret = 7;  // of a narrow window
        const std::vector<int> open = Tools::FinderStrings();
        return picNeck::Content{
            Library::NeckGeometry(static_cast<int>(open.size()), Tools::NeckIsLeftHanded(), 0, ToFret, width, height),
            open, Tools::FinderDots()};
    });
    picNotes->setObjectName("picNotes");
    constexpr int MostHeight = 230;
    picNotes->setMaximumHeight(MostHeight);
    connect(picNotes, &picNeck::Clicked, this, [](int string, int fret) {
        Shell::Guarded([&] { Tools::ToggleNeckPlace({string, fret}); });
    });
    column->addWidget(picNotes);
    return top;
}

QWidget* frmScaleFinder::BuildFound() {
    auto* const bottom = new QWidget(this);
    auto* const column = new QVBoxLayout(bottom);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    lblStatus = new QLabel(bottom);
    lblStatus->setObjectName("lblStatus");
    lblStatus->setTextFormat(Qt::PlainText);
    lblStatus->setWordWrap(true);
    column->addWidget(lblStatus);
    lstFound = new QTreeWidget(bottom);
    lstFound->setObjectName("lstFound");
    lstFound->setColumnCount(4);
    lstFound->setRootIsDecorated(false);
    lstFound->setAllColumnsShowFocus(true);
    lstFound->setUniformRowHeights(true);
    lstFound->header()->setStretchLastSection(true);
    // By Enter, or by a double click.
    connect(lstFound, &QTreeWidget::itemActivated, this, &frmScaleFinder::OpenCurrent);
    column->addWidget(lstFound, 1);
    cmdOpen = new QPushButton(bottom);
    cmdOpen->setObjectName("cmdOpen");
    connect(cmdOpen, &QPushButton::clicked, this, &frmScaleFinder::OpenCurrent);
    column->addWidget(cmdOpen);
    return bottom;
}

void frmScaleFinder::SetTexts() {
    setWindowTitle(Text("str_ScaleFinderTitle"));
    entries->SetTexts();
    SetDockTexts();
    cmdTakeBars->setText(ToQString(Tools::TakeBarsText()));
    cmdTakeBars->setToolTip(Text("str_FinderTakeBarsAbout"));
    cmdClear->setText(Text("str_FinderClear"));
    cmdOpen->setText(Text("str_FinderOpen"));
    picNotes->setAccessibleName(Text("str_FinderNotes"));
    lstFound->setAccessibleName(Text("str_FinderFound"));
    lstFound->setHeaderLabels(
        {Text("str_FinderScale"), Text("str_FinderKey"), Text("str_FinderLacks"), Text("str_FinderBesides")});
    Refresh();
}

void frmScaleFinder::CursorMoved() {
    const QString caption = ToQString(Tools::TakeBarsText());
    if (isVisible() && cmdTakeBars->text() != caption) cmdTakeBars->setText(caption);
}

void frmScaleFinder::Refresh() {
    for (std::size_t note = 0; note < cmdNotes.size(); ++note) cmdNotes[note]->setChecked(ScaleFinder.Notes.test(note));
    picNotes->Refresh();
    lblStatus->setText(ToQString(Tools::FinderStatus()));
    lstFound->setUpdatesEnabled(false);
    lstFound->clear();
    const auto count = std::min<std::size_t>(ScaleFinder.Found.size(), MostRows);
    for (std::size_t i = 0; i < count; ++i) {
        const Tools::FoundRow row = Tools::RowOf(ScaleFinder.Found[i]);
        new QTreeWidgetItem(lstFound,
                            {ToQString(row.Name), ToQString(row.Key), ToQString(row.Lacks), ToQString(row.Besides)});
    }
    if (count > 0) lstFound->setCurrentItem(lstFound->topLevelItem(0));
    for (const int column : {0, 1, 2}) lstFound->resizeColumnToContents(column);
    lstFound->setUpdatesEnabled(true);
    cmdOpen->setEnabled(count > 0);
    cmdClear->setEnabled(ScaleFinder.Notes.any());
}

void frmScaleFinder::TakeBars() {
    Shell::Guarded([this] {
        if (!Tools::TakeBars()) lblStatus->setText(Text("str_FinderNothing"));
    });
}

void frmScaleFinder::OpenCurrent() {
    const int row = lstFound->indexOfTopLevelItem(lstFound->currentItem());
    Shell::Guarded([row] { Tools::OpenFound(row); });
    if (auto* const manager = main.findChild<QWidget*>("frmScaleManager")) manager->raise();
}

std::filesystem::path frmScaleFinder::Folder() const { return Library::Scales.Folder(); }
void frmScaleFinder::FolderChanged() { Tools::LookAtFinderFolder(); }
void frmScaleFinder::EndSounds() { Tools::frmScaleFinder_Unload(); }
void frmScaleFinder::TakeFocus() { picNotes->setFocus(); }

}  // namespace Quillon::Forms
