// What the windows of the scales and the tuner share: entries of menus that are buttons too, and their keys.
#pragma once

#include <QObject>
#include <functional>
#include <initializer_list>
#include <vector>

class QAction;
class QBoxLayout;
class QMenu;
class QToolButton;
class QWidget;

namespace Quillon::Forms {

class LibraryWindow;

class ToolEntries : public QObject {
    Q_OBJECT

public:
    explicit ToolEntries(LibraryWindow& window);

    struct Look {
        const char* Icon = "";
        bool (*Enabled)() = nullptr;  ///< nothing: always
        bool (*Checked)() = nullptr;  ///< nothing: no check mark
        bool Radio = false;           ///< with the other radio entries of its menu one of a choice
    };
    QAction* Add(QMenu& menu, const char* name, const char* textKey, void (*act)(), const Look& look);
    QAction* Add(QMenu& menu, const char* name, const char* textKey, void (*act)()) {
        return Add(menu, name, textKey, act, Look());
    }
    /// A submenu with its name.
    QMenu* AddMenu(QMenu& menu, const char* name, const char* textKey);
    /// Buttons for entries by their names.
    void AddButtons(QBoxLayout& row, std::initializer_list<const char*> names);
    /// The button that opens the window's menu.
    QToolButton* AddMenuButton(QBoxLayout& row, QMenu& menu, const char* textKey);
    QAction* Find(const char* name) const;

    /// Captions in the language in use.
    void SetTexts();
    /// Which are enabled and checked now.
    void ShowStates();
    /// Space and Enter mean what they mean in the window's fields and not what they do in the score; Esc leaves.
    void GuardKeys(QWidget& content);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Entry {
        QAction* Action;
        const char* Text;
        bool (*Enabled)();
        bool (*Checked)();
    };
    LibraryWindow& window;
    std::vector<Entry> entries;
    std::vector<std::pair<QMenu*, const char*>> menus;
    std::vector<std::pair<QToolButton*, const char*>> menuButtons;
};

}  // namespace Quillon::Forms
