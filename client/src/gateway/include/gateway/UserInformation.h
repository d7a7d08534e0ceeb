#pragma once

#include <QtCore/QObject>
#include <QtCore/QSharedPointer>
#include <QtCore/QTimer>

class TLFunctionData;
class TLPluginBaseManager;

/// Reads what the client needs to know of the signed-in user: the app list and the function switches.
/// A cached reply stands in when the gateway cannot be reached. GUI thread.
class UserInformation final : public QObject
{
    Q_OBJECT

public:
    /// Fills both, owns neither.
    UserInformation(TLPluginBaseManager* plugins, TLFunctionData* functions, QObject* parent = nullptr);

    /// Reads both for the first time. `SigFinished` follows when both reads have ended, well or not, and at
    /// the latest after `limit` [ms]; a later answer still fills its list.
    void Read(int limit);
    /// Reads one of them again; sends no `SigFinished`.
    void RefreshPlugins();
    void RefreshFunctions();
    /// Suppresses `SigFinished` for the `Read` that runs.
    void Stop();

Q_SIGNALS:
    /// Once for each `Read`.
    void SigFinished();

private:
    void ReadPlugins(int timeout);
    void ReadFunctions(int timeout);
    template <class Request, class Entity, class List, class Store>
    void ReadList(List (Entity::*getList)() const, const Store& store, int timeout);
    void HandleEnd();

    TLPluginBaseManager* m_plugins;
    TLFunctionData* m_functions;
    QTimer m_limit;
    int m_waiting = 0;
};
