#include "system/NestedLoops.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QPointer>
#include <QtCore/QThread>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <utility>

namespace {

constexpr int LeaveLimit = 3000; // [ms]

/// Closes what runs a nested loop, one after the other, whenever the loops have nothing else to do.
class Leaving final : public QObject
{
public:
    Leaving(QObject* context, std::function<void()> action) : QObject(context), m_action(std::move(action))
    {
        connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
                &Leaving::Continue);
        QTimer::singleShot(LeaveLimit, this, &Leaving::Finish);
    }

    void Start() { CloseInnermost(); }

private:
    void Continue()
    {
        if (QThread::currentThread()->loopLevel() > 1) {
            CloseInnermost();
            return;
        }
        // From the loop itself: the action may take down what the dispatcher is still busy with.
        disconnect(QAbstractEventDispatcher::instance(), nullptr, this, nullptr);
        QTimer::singleShot(0, this, &Leaving::Finish);
    }

    void CloseInnermost()
    {
        QWidget* const popup = QApplication::activePopupWidget();
        QWidget* const widget = popup ? popup : QApplication::activeModalWidget();
        if (!widget || widget == m_closed) {
            return; // it stays, or is on its way
        }
        m_closed = widget;
        QTimer::singleShot(0, widget, &QWidget::close);
    }

    void Finish()
    {
        const std::function<void()> action = std::exchange(m_action, {});
        deleteLater();
        if (action) {
            action();
        }
    }

    std::function<void()> m_action;
    QPointer<QWidget> m_closed; // the one that was last told to close
};

} // namespace

void NestedLoops::LeaveThen(QObject* context, const std::function<void()>& action)
{
    if (QThread::currentThread()->loopLevel() <= 1) {
        action();
        return;
    }
    auto* const leaving = new Leaving(context, action);
    leaving->Start();
}
