// Long work in the status bar: what is done, how far it is, and a button to cancel it. Meanwhile user input is held
// back from everything else.
#pragma once

#include <QWidget>

class QLabel;
class QProgressBar;
class QToolButton;

namespace Quillon::Forms {

class WorkProgress : public QWidget {
    Q_OBJECT

public:
    explicit WorkProgress(QWidget* parent);
    void Begin(const QString& text);
    /// Shows 0 to 100 and runs what waits. False when the person cancelled, by the button or Esc.
    bool GoOn(int percent);
    void End();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QLabel* lblWork;
    QProgressBar* barWork;
    QToolButton* cmdCancelWork;
    bool cancelled = false;
};

}  // namespace Quillon::Forms
