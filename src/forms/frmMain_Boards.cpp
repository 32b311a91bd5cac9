// What stands beside the paper: the list of tracks, the fretboard and the piano; and the menu over it.
#include <QAction>
#include <QDockWidget>
#include <QHBoxLayout>
#include <QMenu>
#include <QToolButton>
#include <QVBoxLayout>
#include <functional>
#include <utility>

#include "forms/Text.h"
#include "forms/frmMain.h"
#include "forms/picDocument.h"
#include "forms/picFretboard.h"
#include "forms/picMixTable.h"
#include "forms/picPiano.h"
#include "shell/Commands.h"
#include "shell/RightMenu.h"

namespace Quillon::Forms {

namespace {

constexpr int SmallIcon = 18;

/// A few buttons beside a list or a board. No toolbar: those are the settings' and can be moved.
void AddButtons(QBoxLayout* to, frmMain* window, QBoxLayout::Direction direction,
                std::initializer_list<const char*> commands) {
    auto* const buttons = new QBoxLayout(direction);
    buttons->setContentsMargins(2, 2, 2, 2);
    buttons->setSpacing(1);
    for (const char* name : commands) {
        auto* const button = new QToolButton(to->parentWidget());
        button->setDefaultAction(window->ActionOf(name));
        button->setIconSize({SmallIcon, SmallIcon});
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::TabFocus);
        button->installEventFilter(window);
        buttons->addWidget(button);
    }
    buttons->addStretch();
    to->addLayout(buttons);
}

/// Tells when a dock is closed by its own button, and not because the whole window goes.
class CloseWatch : public QObject {
public:
    CloseWatch(QDockWidget* dock, std::function<void(bool)> tell) : QObject(dock), shown(std::move(tell)) {
        dock->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        // A dock that is being taken down is a mere widget by now.
        if (event->type() == QEvent::Close && static_cast<QWidget*>(watched)->window()->isVisible()) shown(false);
        return false;
    }

private:
    std::function<void(bool)> shown;
};

/// The program remembers which docks are there, also when one went by its own button or by the menu over a title.
void Remember(QDockWidget* dock, bool& visible, frmMain* window) {
    const auto shown = [&visible, window](bool now) {
        visible = now;
        window->UpdateCommands();
    };
    QObject::connect(dock->toggleViewAction(), &QAction::triggered, window, shown);
    new CloseWatch(dock, shown);
}

}  // namespace

void frmMain::BuildTrackList() {
    dockMixTable = new QDockWidget(this);
    dockMixTable->setObjectName("dockMixTable");
    auto* const content = new QWidget(dockMixTable);
    auto* const column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    mixTable = new picMixTable(content);
    column->addWidget(mixTable);
    AddButtons(column, this, QBoxLayout::LeftToRight,
               {"mnuTrackAdd", "mnuTrackDelete", "mnuTrackMoveUp", "mnuTrackMoveDown", "mnuTrackProperties"});
    dockMixTable->setWidget(content);
    dockMixTable->setVisible(false);
    addDockWidget(Qt::LeftDockWidgetArea, dockMixTable);
    resizeDocks({dockMixTable}, {380}, Qt::Horizontal);
    Remember(dockMixTable, Shell::Program.MixTableVisible, this);
}

QDockWidget* frmMain::BuildBoard(picBoard* board, const char* name) {
    auto* const dock = new QDockWidget(this);
    dock->setObjectName(name);
    auto* const content = new QWidget(dock);
    auto* const row = new QHBoxLayout(content);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(board, 1);
    AddButtons(row, this, QBoxLayout::TopToBottom, {"mnuGoPreviousBeat", "mnuGoNextBeat", "mnuChordRest"});
    dock->setWidget(content);
    dock->setVisible(false);
    connect(board, &picBoard::Left, this, [this] { document->setFocus(); });
    connect(dock, &QDockWidget::visibilityChanged, board, [board](bool visible) {
        if (visible) board->ShowNotes();
    });
    return dock;
}

void frmMain::BuildBoards() {
    fretboard = new picFretboard;
    dockFretboard = BuildBoard(fretboard, "dockFretboard");
    addDockWidget(Qt::BottomDockWidgetArea, dockFretboard);
    Remember(dockFretboard, Shell::Program.FretboardVisible, this);
    piano = new picPiano;
    dockPiano = BuildBoard(piano, "dockPiano");
    addDockWidget(Qt::BottomDockWidgetArea, dockPiano);
    splitDockWidget(dockFretboard, dockPiano, Qt::Vertical);
    Remember(dockPiano, Shell::Program.PianoVisible, this);
}

/// A board that comes for the first time gets the height that it asks for: left alone, the paper keeps all it can.
void frmMain::ShowBoard(QDockWidget* dock, bool visible) {
    const bool comes = visible && dock->isHidden();
    dock->setVisible(visible);
    if (!comes || dock->property("sized").toBool()) return;
    dock->setProperty("sized", true);
    QList<QDockWidget*> shown;
    QList<int> heights;
    for (QDockWidget* each : {dockFretboard, dockPiano}) {
        if (each->isHidden()) continue;
        shown << each;
        heights << (each == dock ? dock->sizeHint().height() : each->height());
    }
    resizeDocks(shown, heights, Qt::Vertical);
}

void frmMain::ShowDocks() {
    dockMixTable->setVisible(Shell::Program.MixTableVisible);
    ShowBoard(dockFretboard, Shell::Program.FretboardVisible);
    ShowBoard(dockPiano, Shell::Program.PianoVisible);
    fretboard->SetNames(Shell::Program.FretboardNames);
    mixTable->ShowCurrent();
}

void frmMain::ShowBoards() {
    fretboard->ShowNotes();
    piano->ShowNotes();
}

void frmMain::SetBoardTexts() {
    dockMixTable->setWindowTitle(Text("str_MixTableTitle"));
    mixTable->SetTexts();
    dockFretboard->setWindowTitle(Text("str_FretboardTitle"));
    fretboard->SetTexts();
    dockPiano->setWindowTitle(Text("str_PianoTitle"));
    piano->SetTexts();
    for (QDockWidget* dock : {dockMixTable, dockFretboard, dockPiano}) {
        for (QToolButton* button : dock->widget()->findChildren<QToolButton*>()) {
            const QAction* const action = button->defaultAction();
            const Shell::Command* const command =
                action ? Shell::FindCommand(action->objectName().toStdString()) : nullptr;
            if (command) button->setAccessibleName(ToQString(Shell::PlainCaption(*command)));
        }
    }
}

void frmMain::ShowRightMenu(QPoint point) {
    UpdateCommands();
    delete picRightMenu;
    picRightMenu = new QMenu(this);
    picRightMenu->setObjectName("picRightMenu");
    for (const Shell::RightMenuSection& section : Shell::RightMenu()) {
        picRightMenu->addSection(Text(section.Title));
        std::map<std::string_view, QMenu*> submenus;
        for (const Shell::Command* command : section.Entries) {
            QMenu* menu = picRightMenu;
            const std::string_view path = Shell::SubmenuOf(*command);
            for (std::size_t from = 0; from < path.size();) {
                const std::size_t to = std::min(path.find('/', from), path.size());
                QMenu*& sub = submenus[path.substr(0, to)];
                if (!sub) sub = menu->addMenu(Text(path.substr(from, to - from)));
                menu = sub;
                from = to + 1;
            }
            menu->addAction(ActionOf(std::string(command->Name)));
        }
    }
    if (!picRightMenu->isEmpty()) picRightMenu->popup(point);
}

}  // namespace Quillon::Forms
