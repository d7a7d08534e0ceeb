#pragma once

#include "login/IKeyStore.h"

#include <QtCore/QMap>
#include <QtCore/QString>

#include <functional>
#include <vector>

/// A key store in memory that answers when the test says so, never inside the call.
class FakeKeyStore final : public IKeyStore
{
public:
    void AskAvailable(AvailableAnswer answer) override;
    void Read(const QString& name, ReadAnswer answer) override;
    void Write(const QString& name, const QString& secret, DoneAnswer answer) override;
    void Remove(const QString& name, DoneAnswer answer) override;

    /// Gives all waiting answers, and those that they lead to.
    void Answer();

    QMap<QString, QString> secrets;
    bool available = true;
    bool refusesToWrite = false;

private:
    std::vector<std::function<void()>> m_waiting;
};
