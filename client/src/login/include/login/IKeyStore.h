#pragma once

#include <QtCore/QString>

#include <functional>

/// Keeps secrets where the system keeps them, under names. Every operation answers once, on the GUI
/// thread and never inside the call; none keeps the client waiting for longer than a bound of its own.
class IKeyStore
{
public:
    virtual ~IKeyStore() = default;

    /// Whether there is a store. `reason` says why not, in words for the user; empty when there is one.
    using AvailableAnswer = std::function<void(bool available, const QString& reason)>;
    /// An empty secret: there is none under this name, or it could not be read.
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
