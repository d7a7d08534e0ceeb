#pragma once

#include <QtCore/QTemporaryDir>

/// A settings store of its own with the user "demo" signed in, for the life of the object.
class UserStore final
{
public:
    UserStore();
    ~UserStore();
    Q_DISABLE_COPY(UserStore)

    /// Another user of the same store; empty: nobody.
    static void SignIn(const QString& pin);
    /// The client is killed now and started again: what is not on disk is lost. Returns whether the store
    /// could be opened again.
    [[nodiscard]] bool KillAndReopen();

private:
    QTemporaryDir m_folder;
    int m_round = 0;
};
