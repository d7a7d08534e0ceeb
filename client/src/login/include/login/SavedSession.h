#pragma once

#include "login/Session.h"

#include "login/LoginProblem.h"

#include <QtCore/QObject>

#include <functional>

class IKeyStore;

/// The session that outlives the client ("Stay signed in"): the token in the system's key store, pin, belong
/// type and expiry in the settings store. If any of them is missing, there is no session. GUI thread.
class SavedSession final : public QObject
{
    Q_OBJECT

public:
    /// Does not own `keyStore`. `now` returns the time, UTC.
    SavedSession(IKeyStore* keyStore, std::function<QDateTime()> now, QObject* parent = nullptr);

    /// Whether there may be a session, without asking the key store.
    bool HasRecord() const;
    /// The session's account; empty when there is none.
    QString GetPin() const;
    /// Answers with the saved session, or with an empty one and the problem that ended it (`None` when there
    /// was no session). Forgets a session that has expired or whose token is gone. May answer immediately.
    void Load(std::function<void(const Session&, LoginProblem::Kind)> answer);
    /// Saves the session in place of any other. Not ok: nothing is saved.
    void Save(const Session& session, std::function<void(bool ok)> answer);
    /// Drops the session now, even if the key store never answers.
    void Forget(std::function<void()> answer);

private:
    QString KeyName() const;
    void ClearRecord();

    IKeyStore* m_keyStore;
    std::function<QDateTime()> m_now;
};
