// What the windows of the libraries share: entries of menus that are buttons too, and their keys.
#pragma once

#include <QKeySequence>
#include <QObject>
#include <functional>
#include <initializer_list>
#include <string>
#include <utility>
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
        std::function<bool()> Enabled{};  ///< nothing: always
        std::function<bool()> Checked{};  ///< nothing: no check mark
        bool Radio = false;               ///< with the other radio entries of its menu one of a choice
        QKeySequence Key{};               ///< that does the same in the window's view, which takes it itself
    };
    QAction* Add(QMenu& menu, const std::string& name, const std::string& textKey, std::function<void()> act,
                 const Look& look);
    QAction* Add(QMenu& menu, const std::string& name, const std::string& textKey, std::function<void()> act) {
        return Add(menu, name, textKey, std::move(act), Look());
    }
    /// A submenu with its name.
    QMenu* AddMenu(QMenu& menu, const char* name, const char* textKey);
    /// Buttons for entries by their names.
    void AddButtons(QBoxLayout& row, std::initializer_list<const char*> names);
    /// The button that opens the window's menu.
    QToolButton* AddMenuButton(QBoxLayout& row, QMenu& menu, const char* textKey);
    QAction* Find(const char* name) const;
    /// Gives an entry another icon, as its meaning turned.
    void ShowIcon(const char* name, const char* icon);

    /// Captions in the language in use.
    void SetTexts();
    /// Which are enabled and checked now.
    void ShowStates();
    /// Keys mean what they mean in the window's fields and not what they do in the score; Esc leaves. `view` takes its
    /// keys itself.
    void GuardKeys(QWidget& content, const QWidget* view = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Entry {
        QAction* Action;
        std::string Text;
        std::function<bool()> Enabled;
        std::function<bool()> Checked;
        std::string Icon;
    };
    LibraryWindow& window;
    std::vector<Entry> entries;
    std::vector<std::pair<QMenu*, const char*>> menus;
    std::vector<std::pair<QToolButton*, const char*>> menuButtons;
};

}  // namespace Quillon::Forms
