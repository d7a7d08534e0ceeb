#pragma once

#include "login/Session.h"

#include "login/LoginProblem.h"

#include <QtCore/QObject>

#include <functional>

class IKeyStore;

/// The session that stays when the client ends ("Stay signed in"): the token in the system's key store,
/// pin, belong type and expiry in the settings store. Whatever is missing, the session counts as absent.
/// GUI thread.
class SavedSession final : public QObject
{
    Q_OBJECT

public:
    /// `keyStore` is not owned. `now` tells the time, UTC.
    SavedSession(IKeyStore* keyStore, std::function<QDateTime()> now, QObject* parent = nullptr);

    /// Whether there may be one, without asking the key store.
    bool HasRecord() const;
    /// Whose session it is; empty when there is none.
    QString GetPin() const;
    /// Answers with the kept session, or with an empty one and the problem that ended it (none when there
    /// was none). One that has expired, or whose token is gone, is forgotten. May answer at once.
    void Load(std::function<void(const Session&, LoginProblem::Kind)> answer);
    /// Keeps the session in place of any other. Not ok: nothing is kept.
    void Keep(const Session& session, std::function<void(bool ok)> answer);
    /// From now on there is none, also when the key store fails to answer.
    void Forget(std::function<void()> answer);

private:
    QString KeyName() const;
    void ClearRecord();

    IKeyStore* m_keyStore;
    std::function<QDateTime()> m_now;
};
