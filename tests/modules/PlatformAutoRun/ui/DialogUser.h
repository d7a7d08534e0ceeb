#pragma once

#include <QtCore/QDeadlineTimer>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>

#include <gtest/gtest.h>

#include <functional>
#include <utility>

/// Waits in the event loop for the next modal dialog of a class and does with it what the test says, which
/// has to end it. Lives until the dialog is over; a dialog that never came is a failure.
template <class Dialog>
class DialogUser final
{
public:
    explicit DialogUser(std::function<void(Dialog*)> use) : m_use(std::move(use))
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { Look(); });
        m_timer.start(0);
    }
    ~DialogUser() { EXPECT_TRUE(m_used) << "no dialog was opened"; }

private:
    Q_DISABLE_COPY(DialogUser)

    void Look()
    {
        const QPointer<QDialog> modal = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        auto* const dialog = dynamic_cast<Dialog*>(modal.data());
        if (dialog == nullptr || !dialog->isVisible()) {
            if (modal && m_deadline.hasExpired()) {
                ADD_FAILURE() << "another dialog is open: " << modal->metaObject()->className();
                modal->reject();
            }
            return;
        }
        m_timer.stop();
        m_used = true;
        m_use(dialog);
        if (modal && modal->isVisible()) {
            ADD_FAILURE() << "the dialog is still open";
            modal->reject();
        }
    }

    std::function<void(Dialog*)> m_use;
    QTimer m_timer;
    QDeadlineTimer m_deadline{10000};
    bool m_used = false;
};

/// Closes every modal dialog that opens while it lives, each of which is a failure.
class NoDialog final
{
public:
    NoDialog()
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [] {
            if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
                ADD_FAILURE() << "a dialog was opened: " << dialog->metaObject()->className();
                dialog->reject();
            }
        });
        m_timer.start(0);
    }

private:
    Q_DISABLE_COPY(NoDialog)

    QTimer m_timer;
};
