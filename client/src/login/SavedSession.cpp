#include "login/SavedSession.h"

#include "login/IKeyStore.h"

#include "core/TLGlobalData.h"
#include "settings-store/VXSettingManager.h"

#include <QtCore/QPointer>

#include <utility>

namespace {

const QString Section = QStringLiteral("CLIENT_KEPT_SESSION");
const QString PinField = QStringLiteral("PIN");
const QString BelongTypeField = QStringLiteral("BELONG_TYPE");
const QString ExpiryField = QStringLiteral("EXPIRES_AT");

QString Stored(const QString& field)
{
    return VXSettingManager::Instance()->GetGlobalValue(Section, field);
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
    return Stored(PinField);
}

void SavedSession::Load(std::function<void(const Session&, LoginProblem::Kind)> answer)
{
    Session session;
    session.pin = Stored(PinField);
    session.belongType = Stored(BelongTypeField);
    session.expiresAt = QDateTime::fromString(Stored(ExpiryField), Qt::ISODate);
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

void SavedSession::Save(const Session& session, std::function<void(bool ok)> answer)
{
    ClearRecord();
    const QPointer<SavedSession> guard(this);
    // The record comes last: if the client ends in between, an unused token remains, never a record without
    // its token.
    m_keyStore->Write(KeyName(), session.accessToken, [guard, session, answer = std::move(answer)](bool ok) {
        if (!guard) {
            return;
        }
        if (ok) {
            auto* const settings = VXSettingManager::Instance();
            settings->SetGlobalValue(Section, BelongTypeField, session.belongType);
            settings->SetGlobalValue(Section, ExpiryField, session.expiresAt.toString(Qt::ISODate));
            settings->SetGlobalValue(Section, PinField, session.pin);
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
    // Each profile has its own session.
    return QStringLiteral("session/") + TLGlobalData::Instance()->GetUUID();
}

void SavedSession::ClearRecord()
{
    auto* const settings = VXSettingManager::Instance();
    for (const QString& field : {PinField, BelongTypeField, ExpiryField}) {
        settings->SetGlobalValue(Section, field, QString());
    }
}
