#pragma once

#include <QtCore/QString>

#include <functional>

/// Saves secrets by name in the system's key store. Every operation answers exactly once, on the GUI thread,
/// after the call has returned and within a bounded time.
class IKeyStore
{
public:
    virtual ~IKeyStore() = default;

    /// Whether there is a store; otherwise `reason` tells the user why not.
    using AvailableAnswer = std::function<void(bool available, const QString& reason)>;
    /// `secret` is empty when there is none with this name or the store could not read it.
    using ReadAnswer = std::function<void(const QString& secret)>;
    using DoneAnswer = std::function<void(bool ok)>;

    virtual void AskAvailable(AvailableAnswer answer) = 0;
    virtual void Read(const QString& name, ReadAnswer answer) = 0;
    virtual void Write(const QString& name, const QString& secret, DoneAnswer answer) = 0;
    virtual void Remove(const QString& name, DoneAnswer answer) = 0;

protected:
    IKeyStore() = default;
    Q_DISABLE_COPY(IKeyStore)
};
