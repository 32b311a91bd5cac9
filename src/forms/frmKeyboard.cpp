#include "forms/frmKeyboard.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QKeySequence>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "forms/Text.h"
#include "forms/WindowPlace.h"
#include "shell/Commands.h"

namespace Quillon::Forms {

namespace {

constexpr std::string_view PlaceSection = "KeyboardWindowDetails";

struct ScoreKey {
    Qt::Key Key;
    const char* TextKey;
};
constexpr ScoreKey ScoreKeys[] = {{Qt::Key_Left, "str_KeyLeft"},     {Qt::Key_Right, "str_KeyRight"},
                                  {Qt::Key_Up, "str_KeyUp"},         {Qt::Key_Down, "str_KeyDown"},
                                  {Qt::Key_PageUp, "str_KeyPageUp"}, {Qt::Key_PageDown, "str_KeyPageDown"},
                                  {Qt::Key_Escape, "str_KeyEscape"}};

/// A key of note entry. Those marked with a star in the list are for tracks without drums.
struct EntryKey {
    const char* TextKey;
    const char* Keys;
    enum Tracks : char { All, Normal, Drums } For;
};
constexpr EntryKey EntryKeys[] = {
    {"str_KeyFret", "0-9", EntryKey::Normal},
    {"str_KeyDeadNote", "X", EntryKey::Normal},
    {"str_KeyClearNote", "Del", EntryKey::All},
    {"str_KeyNotationNote", "Enter", EntryKey::All},
    {"str_KeyDrumLetter", "O X R F S C T", EntryKey::Drums},
    {"str_KeyLength", "+ / -", EntryKey::All},
    {"str_KeyDotted", ".", EntryKey::All},
    {"str_KeyTuplets", "Shift+3 5 6 7 9", EntryKey::All},
    {"str_KeyDeleteBeat", "Shift+Del, Backspace", EntryKey::All},
    {"str_KeyInsertBeat", "Shift+Ins", EntryKey::All},
    {"str_KeyNextString", "Shift+Up / Down", EntryKey::Normal},
    {"str_KeyAddToNote", "Shift++", EntryKey::Normal},
    {"str_KeyTakeFromNote", "Shift+-", EntryKey::Normal},
    {"str_KeyHammerOn", "H", EntryKey::Normal},
    {"str_KeySlide", "S", EntryKey::Normal},
    {"str_KeyGhost", "G", EntryKey::Normal},
    {"str_KeyTie", "L", EntryKey::Normal},
    {"str_KeyLetRing", "Shift+R", EntryKey::Normal},
    {"str_KeyTap", "T", EntryKey::Normal},
    {"str_KeyVibrato", "V", EntryKey::Normal},
    {"str_KeyUpstroke", "U", EntryKey::Normal},
    {"str_KeyDownstroke", "D", EntryKey::Normal},
    {"str_KeyRepeatChord", "R", EntryKey::Normal},
    {"str_KeyMoveRight", "Shift+M", EntryKey::Normal},
    {"str_KeyMoveLeft", "Shift+N", EntryKey::Normal},
    {"str_KeyShiftRight", "Shift+O", EntryKey::Normal},
};

QTreeWidgetItem* AddGroup(QTreeWidget* list, const QString& title) {
    auto* const group = new QTreeWidgetItem(list, {title});
    QFont bold = list->font();
    bold.setBold(true);
    group->setFont(0, bold);
    group->setExpanded(true);
    return group;
}

}  // namespace

frmKeyboard::frmKeyboard(QWidget* parent) : QDialog(parent) {
    setObjectName("frmKeyboard");
    setWindowTitle(Text("str_KeyboardTitle"));
    auto* const list = new QTreeWidget(this);
    list->setObjectName("lstKeys");
    list->setHeaderLabels({Text("str_KeyboardCommand"), Text("str_KeyboardKeys")});
    list->setRootIsDecorated(false);
    list->setAlternatingRowColors(true);
    QTreeWidgetItem* group = AddGroup(list, Text("str_Score"));
    for (const ScoreKey& each : ScoreKeys) {
        new QTreeWidgetItem(group, {Text(each.TextKey), QKeySequence(each.Key).toString(QKeySequence::NativeText)});
    }
    new QTreeWidgetItem(group, {Text("str_KeyShiftClick"), Text("str_KeyShiftClickKeys")});
    new QTreeWidgetItem(group, {Text("str_KeyWheelZoom"), Text("str_KeyWheelZoomKeys")});
    group = AddGroup(list, Text("str_KeyNotes"));
    for (const EntryKey& each : EntryKeys) {
        QString keys = each.Keys;
        if (each.For == EntryKey::Normal) keys += " *";
        if (each.For == EntryKey::Drums) keys += QString(" (%1)").arg(Text("str_KeyDrumOnly"));
        new QTreeWidgetItem(group, {Text(each.TextKey), keys});
    }
    new QTreeWidgetItem(group, {Text("str_KeyNormalOnly"), QString()});
    std::string_view menu;
    for (const Shell::Command& command : Shell::Commands()) {
        if (command.Shortcut.empty()) continue;
        const std::string_view top = command.Menu.substr(0, command.Menu.find('/'));
        if (top != menu) group = AddGroup(list, Text(top).remove('&'));
        menu = top;
        QStringList keys;
        for (const QString& each : ToQString(command.Shortcut).split(' ', Qt::SkipEmptyParts)) {
            keys << QKeySequence(each).toString(QKeySequence::NativeText);
        }
        new QTreeWidgetItem(group, {ToQString(Shell::PlainCaption(command)), keys.join(", ")});
    }
    list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    list->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    list->header()->setStretchLastSection(false);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    buttons->button(QDialogButtonBox::Close)->setText(Text("str_Close"));
    buttons->button(QDialogButtonBox::Close)->setIcon(QIcon());
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(this, &QDialog::finished, this, [this] { KeepPlace(*this, PlaceSection); });
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(list);
    layout->addWidget(buttons);
    RestorePlace(*this, PlaceSection, QSize(460, 520));
}

}  // namespace Quillon::Forms
