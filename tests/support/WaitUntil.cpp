#include "WaitUntil.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QEvent>
#include <QtCore/QTimer>

bool WaitUntil(const std::function<bool()>& condition, int patience)
{
    const QDeadlineTimer deadline(patience);
    QTimer wake; // for conditions that become true without an event on this thread
    wake.start(20);
    while (!condition()) {
        if (deadline.hasExpired()) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}
