#pragma once

#include "login/LoginFlow.h"
#include "system/EndKind.h"

#include <QtCore/QObject>
#include <QtCore/QString>

class HttpManager;
class MainWindow;
class ModuleEventDispatch;
class ModuleLoader;
class MonitorRecorder;
class NoticeBoard;
class QuestionWatch;
class TraceWriter;

/// Writes what happens in the client to its trace.
class TraceRecorder final : public QObject
{
    Q_OBJECT

public:
    /// Does not own `writer`.
    explicit TraceRecorder(TraceWriter* writer, QObject* parent = nullptr);

    void Watch(ModuleLoader* loader);
    void Watch(HttpManager* http);
    void Watch(ModuleEventDispatch* dispatch);
    void Watch(MonitorRecorder* monitor);
    void Watch(NoticeBoard* notices);
    void Watch(MainWindow* window);
    void Watch(QuestionWatch* questions);
    /// Watches the process's notification hub.
    void WatchNotifications();

    void WriteLogin(const QString& pin, bool ok, LoginFlow::Origin origin);
    /// A settings page shows what it has read; `cached`: what was read earlier.
    void WriteSettingsPage(const QString& page, bool cached);
    void WriteExit(EndKind kind);

private:
    TraceWriter* m_writer;
};
