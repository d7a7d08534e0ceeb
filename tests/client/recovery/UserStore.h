#pragma once

#include <QtCore/QTemporaryDir>

/// A separate settings store with the user "demo" signed in, for the life of the object.
class UserStore final
{
public:
    UserStore();
    ~UserStore();
    Q_DISABLE_COPY(UserStore)

    /// Switches to another user of the same store; empty for nobody.
    static void SignIn(const QString& pin);
    /// Acts as if the client were killed now and started again: loses what is not on disk. Returns whether
    /// the store could be opened again.
    [[nodiscard]] bool KillAndReopen();

private:
    QTemporaryDir m_folder;
    int m_round = 0;
};
