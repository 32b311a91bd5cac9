#include "forms/WorkProgress.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QToolButton>

#include "forms/Text.h"

namespace Quillon::Forms {

namespace {

bool IsInput(QEvent::Type type) {
    switch (type) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ContextMenu:
        case QEvent::TouchBegin:
        case QEvent::DragEnter:
        case QEvent::Drop:
        case QEvent::Close:
            return true;
        default:
            return false;
    }
}

}  // namespace

WorkProgress::WorkProgress(QWidget* parent)
    : QWidget(parent),
      lblWork(new QLabel(this)),
      barWork(new QProgressBar(this)),
      cmdCancelWork(new QToolButton(this)) {
    barWork->setObjectName("barWork");
    cmdCancelWork->setObjectName("cmdCancelWork");
    lblWork->setTextFormat(Qt::PlainText);
    barWork->setRange(0, 100);
    barWork->setFixedWidth(180);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(8, 0, 8, 0);
    row->addWidget(lblWork);
    row->addWidget(barWork);
    row->addWidget(cmdCancelWork);
    connect(cmdCancelWork, &QToolButton::clicked, this, [this] { cancelled = true; });
    hide();
}

void WorkProgress::Begin(const QString& text) {
    cancelled = false;
    lblWork->setText(text);
    cmdCancelWork->setText(Text("str_Cancel"));
    barWork->setValue(0);
    barWork->setAccessibleName(text);
    show();
    qApp->installEventFilter(this);
}

bool WorkProgress::GoOn(int percent) {
    barWork->setValue(percent);
    QCoreApplication::processEvents();
    return !cancelled;
}

void WorkProgress::End() {
    qApp->removeEventFilter(this);
    hide();
}

bool WorkProgress::eventFilter(QObject* watched, QEvent* event) {
    if (!IsInput(event->type())) return false;
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        cancelled = true;
        return true;
    }
    // The system's windows hand mouse and keys on to their widgets, which are asked about themselves.
    if (!watched->isWidgetType() && event->type() != QEvent::Shortcut) return false;
    if (watched == cmdCancelWork) return false;
    event->ignore();
    return true;
}

}  // namespace Quillon::Forms
