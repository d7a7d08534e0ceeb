#include "login/SystemKeyStore.h"

#include <QtCore/QTimer>

#include <windows.h>

#include <wincred.h>

#include <memory>
#include <string>

namespace {

/// The name of the client's entry in the system's list of credentials.
std::wstring TargetOf(const QString& name)
{
    return (QStringLiteral("tl-client/") + name).toStdWString();
}

struct FreeCredential
{
    void operator()(CREDENTIALW* credential) const { CredFree(credential); }
};
using CredentialPtr = std::unique_ptr<CREDENTIALW, FreeCredential>;

CredentialPtr ReadCredential(const QString& name)
{
    CREDENTIALW* credential = nullptr;
    return CredentialPtr(CredReadW(TargetOf(name).c_str(), CRED_TYPE_GENERIC, 0, &credential) ? credential
                                                                                              : nullptr);
}

/// The store answers immediately, but callers expect the answer from the event loop.
template <class Call>
void Later(QObject* context, Call call)
{
    QTimer::singleShot(0, context, std::move(call));
}

} // namespace

SystemKeyStore::SystemKeyStore(QObject* parent) : QObject(parent) {}

void SystemKeyStore::AskAvailable(AvailableAnswer answer)
{
    const bool there = ReadCredential(QStringLiteral("probe")) || GetLastError() == ERROR_NOT_FOUND;
    Later(this, [there, answer = std::move(answer)] {
        answer(there,
               there ? QString() : SystemKeyStore::tr("This system has no key store to save a session in."));
    });
}

void SystemKeyStore::Read(const QString& name, ReadAnswer answer)
{
    QString secret;
    if (const CredentialPtr credential = ReadCredential(name)) {
        secret = QString::fromUtf8(reinterpret_cast<const char*>(credential->CredentialBlob),
                                   static_cast<int>(credential->CredentialBlobSize));
    }
    Later(this, [secret, answer = std::move(answer)] { answer(secret); });
}

void SystemKeyStore::Write(const QString& name, const QString& secret, DoneAnswer answer)
{
    std::wstring target = TargetOf(name);
    QByteArray bytes = secret.toUtf8();
    CREDENTIALW credential = {};
    credential.Type = CRED_TYPE_GENERIC;
    credential.TargetName = target.data();
    credential.CredentialBlobSize = static_cast<DWORD>(bytes.size());
    credential.CredentialBlob = reinterpret_cast<LPBYTE>(bytes.data());
    credential.Persist = CRED_PERSIST_LOCAL_MACHINE; // for this user, on this machine only
    const bool done = CredWriteW(&credential, 0) != FALSE;
    Later(this, [done, answer = std::move(answer)] { answer(done); });
}

void SystemKeyStore::Remove(const QString& name, DoneAnswer answer)
{
    const bool done = CredDeleteW(TargetOf(name).c_str(), CRED_TYPE_GENERIC, 0) != FALSE ||
                      GetLastError() == ERROR_NOT_FOUND;
    Later(this, [done, answer = std::move(answer)] { answer(done); });
}
