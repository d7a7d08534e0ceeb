#include "login/SavedSession.h"

#include "login/IKeyStore.h"

#include "core/TLGlobalData.h"
#include "settings-store/VXSettingManager.h"

#include <QtCore/QPointer>

#include <utility>

namespace {

const QString section = QStringLiteral("CLIENT_KEPT_SESSION");
const QString pinField = QStringLiteral("PIN");
const QString belongTypeField = QStringLiteral("BELONG_TYPE");
const QString expiryField = QStringLiteral("EXPIRES_AT");

QString Stored(const QString& field)
{
    return VXSettingManager::Instance()->GetGlobalValue(section, field);
}

} // namespace

SavedSession::SavedSession(IKeyStore* keyStore, std::function<QDateTime()> now, QObject* parent)
    : QObject(parent), m_keyStore(keyStore), m_now(std::move(now))
{}

bool SavedSession::HasRecord() const
{
    return !GetPin().isEmpty();
}

QString SavedSession::GetPin() const
{
    return Stored(pinField);
}

void SavedSession::Load(std::function<void(const Session&, LoginProblem::Kind)> answer)
{
    Session session;
    session.pin = Stored(pinField);
    session.belongType = Stored(belongTypeField);
    session.expiresAt = QDateTime::fromString(Stored(expiryField), Qt::ISODate);
    const bool expired = session.expiresAt.isValid() && session.expiresAt <= m_now();
    if (session.pin.isEmpty() || expired) {
        const auto problem = expired ? LoginProblem::Kind::SessionExpired : LoginProblem::Kind::None;
        Forget([] {});
        answer(Session(), problem);
        return;
    }
    const QPointer<SavedSession> guard(this);
    m_keyStore->Read(KeyName(), [guard, session, answer = std::move(answer)](const QString& secret) {
        if (!guard) {
            return;
        }
        if (secret.isEmpty()) {
            guard->ClearRecord();
            answer(Session(), LoginProblem::Kind::SessionRefused);
            return;
        }
        Session complete = session;
        complete.accessToken = secret;
        answer(complete, LoginProblem::Kind::None);
    });
}

void SavedSession::Keep(const Session& session, std::function<void(bool ok)> answer)
{
    ClearRecord();
    const QPointer<SavedSession> guard(this);
    // The record comes last: an end in between leaves a token that nobody looks for, never a record
    // without its token.
    m_keyStore->Write(KeyName(), session.accessToken, [guard, session, answer = std::move(answer)](bool ok) {
        if (!guard) {
            return;
        }
        if (ok) {
            auto* const settings = VXSettingManager::Instance();
            settings->SetGlobalValue(section, belongTypeField, session.belongType);
            settings->SetGlobalValue(section, expiryField, session.expiresAt.toString(Qt::ISODate));
            settings->SetGlobalValue(section, pinField, session.pin);
        }
        answer(ok);
    });
}

void SavedSession::Forget(std::function<void()> answer)
{
    ClearRecord();
    m_keyStore->Remove(KeyName(), [answer = std::move(answer)](bool) { answer(); });
}

QString SavedSession::KeyName() const
{
    // One profile's session must not be another's.
    return QStringLiteral("session/") + TLGlobalData::Instance()->GetUUID();
}

void SavedSession::ClearRecord()
{
    auto* const settings = VXSettingManager::Instance();
    for (const QString& field : {pinField, belongTypeField, expiryField}) {
        settings->SetGlobalValue(section, field, QString());
    }
}
