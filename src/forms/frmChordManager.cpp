#include "forms/frmChordManager.h"

#include <QAction>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "forms/ElidedLabel.h"
#include "forms/Text.h"
#include "forms/ToolEntries.h"
#include "forms/WrappedLabel.h"
#include "forms/frmMain.h"
#include "forms/picChordView.h"
#include "shell/mod_Shell.h"

namespace Quillon::Forms {

using Tools::ChordManager;
using Kind = Library::ChordFilter::Kind;

namespace {

constexpr int FirstExtent = 310;  ///< two columns of boxes
constexpr int LeastStrings = 4;
/// The search panels in the order of their list.
constexpr std::array<Kind, 4> Panels = {Kind::Name, Kind::Tab, Kind::Strings, Kind::InTrack};

int PanelOf(Kind kind) {
    const auto* const found = std::ranges::find(Panels, kind);
    return found == Panels.end() ? 0 : static_cast<int>(found - Panels.begin());
}

}  // namespace

frmChordManager::frmChordManager(frmMain& main)
    : LibraryWindow(main, Shell::ToolWindow::Chords, "frmChordManager", "ChordWindowDetails", Qt::RightDockWidgetArea,
                    FirstExtent) {
    entries = new ToolEntries(*this);
    BuildMenus();
    Tools::ChordManager_Load(*this);
    auto* const content = new QWidget(this);
    auto* const column = new QVBoxLayout(content);
    column->setContentsMargins(4, 2, 4, 2);
    column->setSpacing(4);
    picView = new picChordView(content);
    column->addLayout(BuildButtons());
    column->addLayout(BuildSearch());
    column->addWidget(picView, 1);
    column->addLayout(BuildStatus());
    SetContent(content);
    entries->GuardKeys(*content, picView);
    txtSearch->installEventFilter(this);  // asked before the guard
    for (QLineEdit* const field : txtTabSearch) field->installEventFilter(this);
    connect(picView, &picChordView::Left, this, &LibraryWindow::Left);
    connect(picView, &picChordView::Typed, this, &frmChordManager::Search);
    connect(picView, &picChordView::EditAsked, entries->Find("mnuEditChord"), &QAction::trigger);
    connect(picView, &picChordView::DeleteAsked, entries->Find("mnuDeleteChords"), &QAction::trigger);
    connect(picView, &picChordView::UnreadableSeen, this, &frmChordManager::ShowCount, Qt::QueuedConnection);
    connect(picView, &picChordView::MenuAsked, this, [this](QPoint at) {
        CommandsChanged();
        lblMenu->popup(at);
    });
}

frmChordManager::~frmChordManager() { Tools::ChordManager_Unload(); }

QHBoxLayout* frmChordManager::BuildSearch() {
    auto* const row = new QHBoxLayout;
    row->setSpacing(4);
    cmbSearch = new QComboBox(this);
    cmbSearch->setObjectName("cmbSearch");
    cmbSearch->addItems({"", "", "", ""});
    row->addWidget(cmbSearch);
    panels = new QStackedWidget(this);
    panels->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Maximum);
    row->addWidget(panels, 1);

    txtSearch = new QLineEdit(this);
    txtSearch->setObjectName("txtSearch");
    txtSearch->setClearButtonEnabled(true);
    panels->addWidget(txtSearch);
    // Blocked signals would leave the clear button behind when a search ends: what the manager has already is no news.
    connect(txtSearch, &QLineEdit::textChanged, this, [](const QString& text) {
        if (text == ToQString(ChordManager.Filter.Text)) return;
        Shell::Guarded([&text] { Tools::txtSearch_Change(text.toStdString()); });
    });

    const auto panel = [this] {
        auto* const page = new QWidget(panels);
        auto* const fields = new QHBoxLayout(page);
        fields->setContentsMargins(0, 0, 0, 0);
        fields->setSpacing(2);
        panels->addWidget(page);
        return fields;
    };
    QHBoxLayout* const tab = panel();
    for (int box = 0; box < Core::StringCount; ++box) {
        auto* const field = new QLineEdit(this);
        field->setObjectName(QString("txtTabSearch%1").arg(box));
        constexpr int MostDigits = 2, LeastWidth = 18, MostWidth = 34;
        field->setMaxLength(MostDigits);
        field->setAlignment(Qt::AlignCenter);
        field->setMinimumWidth(LeastWidth);
        field->setMaximumWidth(MostWidth);
        field->setTextMargins(-1, 0, -1, 0);
        connect(field, &QLineEdit::textChanged, this, [box](const QString& text) {
            if (text == ToQString(ChordManager.Filter.Tab[box])) return;
            Shell::Guarded([&text, box] { Tools::txtTabSearch_Change(box, text.toStdString()); });
        });
        tab->addWidget(field);
        txtTabSearch[static_cast<std::size_t>(box)] = field;
    }
    tab->addStretch();

    QHBoxLayout* const strings = panel();
    for (int count = LeastStrings; count <= Core::StringCount; ++count) {
        auto* const option = new QRadioButton(QString::number(count), this);
        option->setObjectName(QString("optString%1").arg(count));
        connect(option, &QRadioButton::clicked, this,
                [count] { Shell::Guarded([count] { Tools::optString_Click(count); }); });
        strings->addWidget(option);
        optString.push_back(option);
    }
    strings->addStretch();

    lblInTrack = new ElidedLabel(this);
    panels->addWidget(lblInTrack);
    connect(cmbSearch, &QComboBox::activated, this, [](int index) {
        Shell::Guarded([index] {
            switch (Panels.at(static_cast<std::size_t>(index))) {
                case Kind::Tab:
                    return Tools::mnuSearchTab_Click();
                case Kind::Strings:
                    return Tools::mnuSearchStrings_Click();
                case Kind::InTrack:
                    return Tools::mnuSearchChordsInCurrentFile_Click();
                default:
                    return Tools::mnuSearchName_Click();
            }
        });
    });
    return row;
}

QHBoxLayout* frmChordManager::BuildStatus() {
    auto* const row = new QHBoxLayout;
    row->setSpacing(4);
    lblCount = new WrappedLabel(this);
    lblCount->setObjectName("lblCount");
    row->addWidget(lblCount, 1);
    cmdCursor = new QToolButton(this);
    cmdCursor->setObjectName("cmdCursor");
    cmdCursor->setAutoRaise(true);
    cmdCursor->setFocusPolicy(Qt::TabFocus);
    connect(cmdCursor, &QToolButton::clicked, this, [this] {
        // The library's names have a "-" where a bass follows.
        QString name = ToQString(atCursor);
        txtSearch->setText(name.replace('/', '-'));
        Shell::Guarded(Tools::mnuSearchName_Click);
        picView->setFocus();
    });
    row->addWidget(cmdCursor);
    return row;
}

void frmChordManager::SetTexts() {
    setWindowTitle(Text("str_ChordManagerTitle"));
    picView->setAccessibleName(Text("str_ChordManagerTitle"));
    const std::array<const char*, Panels.size()> kinds = {"str_SearchByName", "str_SearchByTab", "str_SearchByStrings",
                                                          "str_SearchByTrack"};
    for (int i = 0; i < cmbSearch->count(); ++i) {
        cmbSearch->setItemText(i, Text(kinds.at(static_cast<std::size_t>(i))));
    }
    cmbSearch->setAccessibleName(Text("str_MenuSearch").remove('&'));
    cmbSearch->setToolTip(cmbSearch->accessibleName());
    txtSearch->setPlaceholderText(Text("str_SearchNamePlace"));
    txtSearch->setAccessibleName(Text("str_SearchNamePlace"));
    for (int box = 0; box < Core::StringCount; ++box) {
        const int string = Core::StringCount - box;
        QLineEdit* const field = txtTabSearch[static_cast<std::size_t>(box)];
        field->setAccessibleName(ToQString(Core::LanguageText("str_SearchTabBox", {std::to_string(box + 1)})));
        field->setToolTip(string == Core::StringCount ? Text("str_SearchTabAbout") : field->accessibleName());
    }
    lblInTrack->setText(Text("str_SearchTrackAbout"));
    SetDockTexts();
    entries->SetTexts();
    cmdCursor->setToolTip(Text("str_ChordCursorAbout"));
    RefreshView();
    CursorMoved();
}

void frmChordManager::ShowPanel() {
    const Library::ChordFilter& filter = ChordManager.Filter;
    const QSignalBlocker quiet(cmbSearch);
    cmbSearch->setCurrentIndex(PanelOf(filter.By));
    panels->setCurrentIndex(PanelOf(filter.By));
    const auto show = [](QLineEdit* field, const std::string& text) {
        if (field->text() != ToQString(text)) field->setText(ToQString(text));
    };
    show(txtSearch, filter.Text);
    for (int box = 0; box < Core::StringCount; ++box) {
        show(txtTabSearch[static_cast<std::size_t>(box)], filter.Tab[box]);
    }
    for (std::size_t i = 0; i < optString.size(); ++i) {
        optString[i]->setChecked(filter.Strings == LeastStrings + static_cast<int>(i));
    }
}

void frmChordManager::RefreshView() {
    if (!cmdCursor) return;  // still being built
    ShowPanel();
    ShowCount();
    CommandsChanged();
    picView->Refresh();
}

void frmChordManager::RefreshChosen() {
    CommandsChanged();
    picView->RefreshChosen();
}

void frmChordManager::ShowCount() {
    lblCount->setText(ToQString(Tools::ChordCountText()));
    lblCount->setToolTip(lblCount->text());
}

void frmChordManager::CursorMoved() {
    if (!isVisible()) return;
    Shell::Guarded(Tools::ChordCursorMoved);
    const std::string name = Tools::ChordAtCursor();
    if (name == atCursor && !cmdCursor->text().isEmpty()) return;
    atCursor = name;
    cmdCursor->setEnabled(!name.empty());
    cmdCursor->setText(name.empty() ? Text("str_ChordCursorNone")
                                    : ToQString(Core::LanguageText("str_ChordCursor", {name})));
}

std::filesystem::path frmChordManager::Folder() const { return Library::Chords.Folder(); }
void frmChordManager::FolderChanged() { Tools::ChordFolderChanged(); }
void frmChordManager::EndSounds() { Tools::StopChord(); }

void frmChordManager::TakeFocus() {
    switch (ChordManager.Filter.By) {
        case Kind::All:
        case Kind::Name:
            txtSearch->setFocus();
            return txtSearch->selectAll();
        case Kind::Tab:
            return txtTabSearch.front()->setFocus();
        default:
            return picView->setFocus();
    }
}

void frmChordManager::Search(const QString& typed) {
    Shell::Guarded(Tools::mnuSearchName_Click);
    txtSearch->setFocus();
    txtSearch->setText(typed);
}

/// From a search field the arrows and Enter work on what was found, and Esc first clears the search.
bool frmChordManager::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride) {
        return LibraryWindow::eventFilter(watched, event);
    }
    auto* const key = static_cast<QKeyEvent*>(event);
    const bool ofFind = key->key() == Qt::Key_Up || key->key() == Qt::Key_Down || key->key() == Qt::Key_PageUp ||
                        key->key() == Qt::Key_PageDown || key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter ||
                        (key->key() == Qt::Key_F2 && !key->modifiers());
    const bool escape = key->key() == Qt::Key_Escape;
    if (!ofFind && !escape) return LibraryWindow::eventFilter(watched, event);
    if (event->type() == QEvent::ShortcutOverride) {
        event->accept();
        return true;
    }
    if (ofFind) return picView->TakeKey(*key);
    if (ChordManager.Filter.By != Kind::All) {
        Shell::Guarded(Tools::mnuSearchClear_Click);
        txtSearch->setFocus();
    } else {
        Q_EMIT Left();
    }
    return true;
}

}  // namespace Quillon::Forms
