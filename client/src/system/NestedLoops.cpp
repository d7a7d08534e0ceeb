#include "system/NestedLoops.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QThread>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

namespace {

constexpr int LeaveLimit = 3000; // [ms]
constexpr int Pause = 10;        // [ms]

void TryToLeave(QObject* context, const std::function<void()>& action, const QDeadlineTimer& deadline)
{
    if (QThread::currentThread()->loopLevel() <= 1 || deadline.hasExpired()) {
        action();
        return;
    }
    if (QWidget* const popup = QApplication::activePopupWidget()) {
        popup->close();
    } else if (QWidget* const modal = QApplication::activeModalWidget()) {
        modal->close();
    }
    QTimer::singleShot(Pause, context,
                       [context, action, deadline] { TryToLeave(context, action, deadline); });
}

} // namespace

void NestedLoops::LeaveThen(QObject* context, const std::function<void()>& action)
{
    TryToLeave(context, action, QDeadlineTimer(LeaveLimit));
}
