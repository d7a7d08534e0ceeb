#pragma once

#include "login/Session.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <optional>

/// Hands the session of a client that restarts itself over to the new process, through the anonymous pipe
/// that is the new process's standard input. No other process can open the pipe, it is empty after one read,
/// and no file, environment variable or command line contains any of the session. What a person types instead
/// is refused like any other text.
class SessionHandover final
{
public:
    static constexpr int TextLimit = 64 * 1024; ///< [bytes]
    static constexpr int ReadTimeout = 10000;   ///< [ms]
    static constexpr int LifeTime = 60;         ///< [s] from writing to reading

    Session session;
    bool openTabs = false; ///< whether to reopen the tabs

    SessionHandover() = default;

    /// One line of JSON, with `now` as the time of writing.
    QByteArray ToText(const QDateTime& now) const;
    /// Empty when the text is damaged, has another version, is too old at `now`, or contains no session.
    static std::optional<SessionHandover> FromText(const QByteArray& text, const QDateTime& now);

    /// Reads this process's standard input, which works once. Empty when nothing usable comes within
    /// `ReadTimeout`; returns immediately when standard input is a terminal.
    static std::optional<SessionHandover> Take();
    /// Starts `program`, which calls `Take` and keeps running when this process ends. If it does not take the
    /// session in time, it shows the log-in dialog. False when the process could not be started.
    bool StartProcess(const QString& program, const QStringList& arguments) const;
};
