#include "trace/TraceRecorder.h"

#include "modules/ModuleEventDispatch.h"
#include "modules/ModuleLoader.h"
#include "monitoring/MonitorRecorder.h"
#include "notices/NoticeBoard.h"
#include "system/QuestionWatch.h"
#include "trace/TraceWriter.h"

#include "browser/MainWindow.h"

#include "frame-core/IBrowserTab.h"
#include "frame-core/ModuleEvent.h"
#include "http/HttpManager.h"
#include "http/HttpNotifyManager.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>

namespace {

QString Key(const char* name)
{
    return QLatin1String(name);
}

QString GetName(EndKind kind)
{
    switch (kind) {
    case EndKind::LogOut:
        return Key("log out");
    case EndKind::Refused:
        return Key("refused");
    case EndKind::Restart:
        return Key("restart");
    case EndKind::SystemEnd:
        return Key("system end");
    case EndKind::Quit:
        break;
    }
    return Key("quit");
}

} // namespace

TraceRecorder::TraceRecorder(TraceWriter* writer, QObject* parent) : QObject(parent), m_writer(writer) {}

void TraceRecorder::Watch(ModuleLoader* loader)
{
    connect(loader, &ModuleLoader::SigLoaded, this, [this](const QString& file, const QString& key) {
        m_writer->Write(Key("module.loaded"), {{Key("file"), file}, {Key("key"), key}});
    });
    connect(loader, &ModuleLoader::SigRefused, this, [this](const QString& file, const QString& reason) {
        m_writer->Write(Key("module.refused"), {{Key("file"), file}, {Key("reason"), reason}});
    });
}

void TraceRecorder::Watch(HttpManager* http)
{
    connect(http, &HttpManager::SigFinished, this, [this](const HttpCallReport& report) {
        m_writer->Write(Key("request"), {{Key("method"), QString::fromUtf8(report.method)},
                                         {Key("ok"), report.ok},
                                         {Key("code"), report.code},
                                         {Key("ms"), report.milliseconds},
                                         {Key("cached"), report.fromCache}});
    });
}

void TraceRecorder::Watch(ModuleEventDispatch* dispatch)
{
    connect(
        dispatch, &ModuleEventDispatch::SigModuleEvent, this,
        [this](const QString& sender, const ModuleEvent& event) {
            m_writer->Write(Key("module.event"), {{Key("sender"), sender}, {Key("name"), event.GetName()}});
        });
}

void TraceRecorder::Watch(MonitorRecorder* monitor)
{
    connect(monitor, &MonitorRecorder::SigReported, this,
            [this](const QString& id, const QString& page, const QStringList& parameters) {
                m_writer->Write(Key("monitor"),
                                {{Key("id"), id},
                                 {Key("page"), page},
                                 {Key("parameters"), QJsonArray::fromStringList(parameters)}});
            });
}

void TraceRecorder::Watch(NoticeBoard* notices)
{
    connect(notices, &NoticeBoard::SigShown, this, [this](const QString& id, const QString& text) {
        m_writer->Write(Key("notice"), {{Key("id"), id}, {Key("text"), text}});
    });
    connect(notices, &NoticeBoard::SigGone, this, [this](const QString& id) {
        m_writer->Write(Key("notice.gone"), {{Key("id"), id}});
    });
}

void TraceRecorder::Watch(MainWindow* window)
{
    connect(window, &MainWindow::SigTabOpened, this,
            [this](int index, const QString& url, const QString& routerUrl, int type, bool delayed) {
                m_writer->Write(Key("tab.opened"), {{Key("index"), index},
                                                    {Key("url"), url},
                                                    {Key("routerUrl"), routerUrl},
                                                    {Key("type"), type},
                                                    {Key("delayed"), delayed}});
            });
    connect(window, &MainWindow::SigTabSelected, this, [this](int index) {
        m_writer->Write(Key("tab.selected"), {{Key("index"), index}});
    });
    connect(window, &MainWindow::SigTabClosed, this, [this](int index) {
        m_writer->Write(Key("tab.closed"), {{Key("index"), index}});
    });
    connect(window, &MainWindow::SigTabMoved, this, [this](int from, int to) {
        m_writer->Write(Key("tab.moved"), {{Key("from"), from}, {Key("to"), to}});
    });
    connect(window, &MainWindow::SigTabChanged, this, [this, window](int index) {
        const IBrowserTab* const tab = window->GetTab(index);
        m_writer->Write(Key("tab.changed"),
                        {{Key("index"), index}, {Key("routerUrl"), tab ? tab->GetRouterUrl() : QString()}});
    });
    connect(window, &MainWindow::SigPageLoaded, this, [this](int index, const QString& url, bool ok) {
        m_writer->Write(Key("page.loaded"), {{Key("index"), index}, {Key("url"), url}, {Key("ok"), ok}});
    });
}

void TraceRecorder::WatchNotifications()
{
    connect(HttpNotifyManager::Instance(), &HttpNotifyManager::SigDispatched, this, [this](int id) {
        m_writer->Write(Key("notification"), {{Key("id"), id}});
    });
}

void TraceRecorder::Watch(QuestionWatch* questions)
{
    connect(questions, &QuestionWatch::SigAsked, this, [this](const QString& text) {
        m_writer->Write(Key("question.asked"), {{Key("text"), text}});
    });
    connect(questions, &QuestionWatch::SigAnswered, this, [this](const QString& text, const QString& answer) {
        m_writer->Write(Key("question"), {{Key("text"), text}, {Key("answer"), answer}});
    });
}

void TraceRecorder::WriteLogin(const QString& pin, bool ok, LoginFlow::Origin origin)
{
    QJsonObject fields{{Key("ok"), ok}, {Key("pin"), pin}};
    if (origin == LoginFlow::Origin::Saved) {
        fields.insert(Key("kept"), true);
    } else if (origin == LoginFlow::Origin::Restart) {
        fields.insert(Key("restart"), true);
    }
    m_writer->Write(Key("login"), fields);
}

void TraceRecorder::WriteSettingsPage(const QString& page, bool cached)
{
    m_writer->Write(Key("settings.page"), {{Key("page"), page}, {Key("cached"), cached}});
}

void TraceRecorder::WriteExit(EndKind kind)
{
    m_writer->Write(Key("exit"), {{Key("orderly"), true}, {Key("kind"), GetName(kind)}});
}
