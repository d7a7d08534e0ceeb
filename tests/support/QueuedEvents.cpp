#include "QueuedEvents.h"

#include <QtCore/QEventLoop>
#include <QtCore/QTimer>

void RunQueuedEvents()
{
    // Timers of the same delay fire in the order of their start, so this one is the last of them.
    QEventLoop loop;
    QTimer::singleShot(0, &loop, &QEventLoop::quit);
    loop.exec();
}
