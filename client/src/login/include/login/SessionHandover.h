#pragma once

#include "login/Session.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <optional>

/// How a client that restarts itself gives its session to the process that takes over: through the
/// anonymous pipe that is the new process's standard input. The pipe has no name, so no other process can
/// open it, it is empty once it was read, and nothing of it stands in a file, in the environment or on the
/// command line. What a person types instead is refused like any other text.
class SessionHandover final
{
public:
    static constexpr int textLimit = 64 * 1024; ///< [bytes]
    static constexpr int readTimeout = 10000;   ///< [ms]
    static constexpr int lifeTime = 60;         ///< [s] from writing to reading

    Session session;
    bool openTabs = false; ///< the tabs that were open are to come back

    SessionHandover() = default;

    /// One line of JSON. `now` is written into it.
    QByteArray ToText(const QDateTime& now) const;
    /// Empty when the text is damaged, of another version, too old at `now`, or without a session.
    static std::optional<SessionHandover> FromText(const QByteArray& text, const QDateTime& now);

    /// Reads from this process's standard input; empty when nothing usable comes within `readTimeout`, and
    /// at once when somebody sits at the other end. Once per process.
    static std::optional<SessionHandover> Take();
    /// Starts `program`, which `Take`s this, and leaves it running when this process ends. One that does not
    /// take it in time comes up at the log-in dialog. False when no process could be started.
    bool StartProcess(const QString& program, const QStringList& arguments) const;
};
