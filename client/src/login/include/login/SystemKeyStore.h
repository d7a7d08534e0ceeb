#pragma once

#include "login/IKeyStore.h"

#include <QtCore/QObject>

/// The system's key store: the Secret Service or KWallet, the Windows credential store, the macOS keychain.
/// Never a file of the client. A store that does not answer in time counts as missing.
class SystemKeyStore final : public QObject, public IKeyStore
{
    Q_OBJECT

public:
    explicit SystemKeyStore(QObject* parent = nullptr);

    void AskAvailable(AvailableAnswer answer) override;
    void Read(const QString& name, ReadAnswer answer) override;
    void Write(const QString& name, const QString& secret, DoneAnswer answer) override;
    void Remove(const QString& name, DoneAnswer answer) override;
};
