#include "forms/ToolEntries.h"

#include <QActionGroup>
#include <QBoxLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QToolButton>

#include "forms/LibraryWindow.h"
#include "forms/SvgIcon.h"
#include "forms/Text.h"
#include "shell/ToolWindows.h"
#include "shell/mod_Shell.h"

namespace Quillon::Forms {

ToolEntries::ToolEntries(LibraryWindow& owner) : QObject(&owner), window(owner) {}

namespace {

/// All but those that only commands know: with Alt, with Ctrl except for the moves of lists, and from F1 on.
bool BelongsToField(const QKeyEvent& key) {
    const auto modifiers = key.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    const bool moves = key.key() >= Qt::Key_Home && key.key() <= Qt::Key_PageDown;
    if (modifiers) return moves && modifiers == Qt::ControlModifier;
    return key.key() < Qt::Key_F1;
}

}  // namespace

QAction* ToolEntries::Add(QMenu& menu, const std::string& name, const std::string& textKey, std::function<void()> act,
                          const Look& look) {
    QAction* const action = menu.addAction(QString());
    action->setObjectName(QString::fromStdString(name));
    if (*look.Icon != 0) action->setIcon(SvgIcon(look.Icon));
    action->setCheckable(look.Checked != nullptr);
    if (!look.Key.isEmpty()) {
        action->setShortcut(look.Key);
        action->setShortcutContext(Qt::WidgetShortcut);
        action->setShortcutVisibleInContextMenu(true);
    }
    if (look.Radio) {
        auto* group = menu.findChild<QActionGroup*>(QString(), Qt::FindDirectChildrenOnly);
        if (!group) group = new QActionGroup(&menu);
        group->addAction(action);
    }
    connect(action, &QAction::triggered, this, [this, act = std::move(act)] {
        Shell::Guarded(act);
        ShowStates();
    });
    entries.push_back({action, textKey, look.Enabled, look.Checked, look.Icon});
    return action;
}

QMenu* ToolEntries::AddMenu(QMenu& menu, const char* name, const char* textKey) {
    QMenu* const sub = menu.addMenu(QString());
    sub->setObjectName(name);
    menus.emplace_back(sub, textKey);
    return sub;
}

void ToolEntries::AddButtons(QBoxLayout& row, std::initializer_list<const char*> names) {
    constexpr QSize icon(20, 20);
    for (const char* name : names) {
        auto* const button = new QToolButton(&window);
        button->setDefaultAction(Find(name));
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::TabFocus);
        button->setIconSize(icon);
        row.addWidget(button);
    }
}

QToolButton* ToolEntries::AddMenuButton(QBoxLayout& row, QMenu& menu, const char* textKey) {
    auto* const button = new QToolButton(&window);
    button->setObjectName("cmdMenu");
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setPopupMode(QToolButton::InstantPopup);
    button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    button->setMenu(&menu);
    row.addWidget(button);
    menuButtons.emplace_back(button, textKey);
    connect(&menu, &QMenu::aboutToShow, this, &ToolEntries::ShowStates);
    return button;
}

QAction* ToolEntries::Find(const char* name) const {
    for (const Entry& entry : entries) {
        if (entry.Action->objectName() == name) return entry.Action;
    }
    return nullptr;
}

void ToolEntries::ShowIcon(const char* name, const char* icon) {
    for (Entry& entry : entries) {
        if (entry.Action->objectName() != name || entry.Icon == icon) continue;  // asked with every step of the cursor
        entry.Icon = icon;
        entry.Action->setIcon(SvgIcon(icon));
    }
}

void ToolEntries::SetTexts() {
    for (const Entry& entry : entries) {
        entry.Action->setText(Text(entry.Text));
        const QString caption = Text(entry.Text).remove('&').remove("...");
        const QString key = entry.Action->shortcut().toString(QKeySequence::NativeText);
        entry.Action->setToolTip(key.isEmpty() ? caption : QString("%1 (%2)").arg(caption, key));
    }
    for (const auto& [menu, key] : menus) menu->setTitle(Text(key));
    for (const auto& [button, key] : menuButtons) {
        button->setText(Text(key));
        button->setAccessibleName(Text(key).remove('&'));
    }
}

void ToolEntries::ShowStates() {
    for (const Entry& entry : entries) {
        if (entry.Enabled) entry.Action->setEnabled(entry.Enabled());
        if (entry.Checked) entry.Action->setChecked(entry.Checked());
    }
}

void ToolEntries::GuardKeys(QWidget& content, const QWidget* view) {
    for (QWidget* const child : content.findChildren<QWidget*>()) {
        if (child != view) child->installEventFilter(this);
    }
}

bool ToolEntries::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::ShortcutOverride && event->type() != QEvent::KeyPress) return false;
    const auto* const key = static_cast<QKeyEvent*>(event);
    if (event->type() == QEvent::ShortcutOverride) {
        if (!BelongsToField(*key)) return false;
        event->accept();
        return true;
    }
    const bool plain = !(key->modifiers() & ~Qt::KeypadModifier);
    if (key->key() != Qt::Key_Escape || !plain) return QObject::eventFilter(watched, event);
    if (Shell::DoToolsSound()) {
        Shell::SilenceTools();
    } else {
        Q_EMIT window.Left();
    }
    return true;
}

}  // namespace Quillon::Forms
