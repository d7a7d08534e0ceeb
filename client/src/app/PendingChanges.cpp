#include "PendingChanges.h"

#include <utility>

PendingChanges::PendingChanges(std::function<bool()> isBusy, QObject* parent)
    : QObject(parent), m_isBusy(std::move(isBusy))
{
    m_limit.setSingleShot(true);
    connect(&m_limit, &QTimer::timeout, this, &PendingChanges::Finish);
}

void PendingChanges::WaitThen(int limit, std::function<void()> action)
{
    if (!m_isBusy()) {
        action();
        return;
    }
    m_action = std::move(action);
    m_limit.start(limit);
}

void PendingChanges::Check()
{
    if (!m_action) {
        return;
    }
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (m_action && !m_isBusy()) {
                Finish();
            }
        },
        Qt::QueuedConnection);
}

void PendingChanges::Finish()
{
    m_limit.stop();
    std::exchange(m_action, {})();
}
