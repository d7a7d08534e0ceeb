// Shows the settings dialog with the modules of the build, in the client's theme, to look at it and to make
// pictures of it. No gateway: a made-up one answers in the process. Not a test and not installed.
//
//   SettingsPreview [--theme light|dark] [--language en|zh_CN] [--scale 200] [--page 10,60] [--search word]
//                   [--list empty|full|many|failed|stale|loading|slow] [--do action,...] [--picture file]
//                   [--modules folder]
//
// Actions, one after the other: hover:N, tick:N and edit:N (row N of the page), click:name, focus:name,
// type:text, tab:N, key:name, fail (the next write fails), wait:milliseconds. With "picture" a picture of the
// dialog, with what stands over it, is written after the last action, and the program ends.

#include "PreviewBrowser.h"
#include "PreviewGateway.h"
#include "PreviewSteps.h"

#include "FakeGeneralData.h"
#include "FakeRouteExecutor.h"

#include "look/ScaleManager.h"
#include "settings/SettingsDialog.h"

#include "look/LanguageManager.h"
#include "look/ThemeManager.h"

#include "base/DpiTool.h"
#include "base/Provided.h"
#include "core/TLGlobalData.h"
#include "frame-core/IBusinessModule.h"
#include "frame-core/ISysSettingFactory.h"
#include "frame-data/TLFunctionData.h"
#include "frame-data/TLPluginBaseManager.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QDir>
#include <QtCore/QPluginLoader>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>

#include <memory>
#include <vector>

namespace {

QSharedPointer<TLPluginBaseEntity> App(const QString& name, const QString& code)
{
    const auto app = QSharedPointer<TLPluginBaseEntity>::create();
    app->setProperty("name", name);
    app->setProperty("serviceCode", code);
    return app;
}

QVector<MonitorEvent> SomeEvents()
{
    const QDateTime time(QDate(2026, 11, 21), QTime(8, 0), Qt::UTC);
    const QString page = QStringLiteral("Home_Openingsetting");
    QVector<MonitorEvent> events;
    for (int i = 0; i < 40; ++i) {
        const bool even = i % 2 == 0;
        events.append(
            {time.addSecs(i * 47),
             even ? QStringLiteral("Home_Openingsetting_Selected")
                  : QStringLiteral("Home_Openingsetting_Addpage"),
             page, even ? QStringList(QStringLiteral("https://www.shop.example/orders")) : QStringList()});
    }
    return events;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication application(argc, argv);
    QApplication::setApplicationDisplayName(QStringLiteral("Workstation"));

    QCommandLineParser parser;
    const auto add = [&parser](const QString& name, const QString& value = QString()) {
        parser.addOption({name, QString(), QStringLiteral("value"), value});
    };
    add(QStringLiteral("theme"));
    add(QStringLiteral("language"), QStringLiteral("en"));
    add(QStringLiteral("scale"), QStringLiteral("100"));
    add(QStringLiteral("page"), QStringLiteral("10,60"));
    add(QStringLiteral("search"));
    add(QStringLiteral("list"), QStringLiteral("full"));
    add(QStringLiteral("do"));
    add(QStringLiteral("picture"));
    add(QStringLiteral("modules"), QCoreApplication::applicationDirPath() + QStringLiteral("/../modules"));
    parser.process(application);
    const auto value = [&parser](const char* name) { return parser.value(QLatin1String(name)); };

    ScaleManager scales;
    ThemeManager themes;
    themes.Apply(value("theme") == QLatin1String("dark") ? Theme::Dark : Theme::Light);
    LanguageManager languages(QCoreApplication::applicationDirPath() +
                              QStringLiteral("/../bin/translations"));
    languages.Apply(value("language"));
    scales.Apply(value("scale").toInt());

    PreviewGateway gateway(value("list"));
    const Provided<IHttpManager> gatewayProvided(&gateway);
    FakeGeneralData general;
    const Provided<IGeneralData> generalProvided(&general);
    TLGlobalData::Instance()->SetUser(QStringLiteral("demo"), QStringLiteral("merchant"));
    FakeRouteExecutor router;
    const Provided<IRouteExecutor> routerProvided(&router);
    TLPluginBaseManager apps;
    apps.SetPlugins({App(QStringLiteral("Print station"), QStringLiteral("print")),
                     App(QStringLiteral("客服工作台"), QStringLiteral("service")),
                     App(QStringLiteral("Invoices"), QStringLiteral("invoices")),
                     App(QStringLiteral("Warehouse"), QStringLiteral("warehouse"))});
    TLFunctionData functions;
    functions.SetFunctions({{8, TLFunctionInfo(true, true)}});
    router.SetRouteObject(QStringLiteral("tl://plugins/object"), &apps);
    router.SetRouteObject(QStringLiteral("tl://funcdynamic/object"), &functions);
    PreviewBrowser browser;
    const Provided<IBrowserMain> browserProvided(&browser);
    browser.window.resize(DpiTool::ScaleDefault(1000), DpiTool::ScaleDefault(720));
    browser.window.show();

    QVector<ISysSettingFactory*> factories;
    const QDir folder(value("modules"));
    const QFileInfoList files = folder.entryInfoList(QDir::Files);
    for (const QFileInfo& file : files) {
        QPluginLoader loader(file.filePath());
        auto* const module = qobject_cast<IBusinessModule*>(loader.instance());
        if (module == nullptr) {
            continue;
        }
        module->InitModule();
        if (ISysSettingFactory* const factory = module->GetSysSettingFactory()) {
            factories.append(factory);
        }
    }

    SettingsServices services;
    services.theme = themes.GetTheme();
    services.chooseTheme = [&themes](Theme theme) { themes.Apply(theme); };
    services.scale = scales.GetScale();
    services.chooseScale = [&scales](int scale) { scales.Apply(scale); };
    services.language = languages.GetLanguage();
    services.chooseLanguage = [&languages](const QString& language) { languages.Apply(language); };
    services.clearBrowsingData = [&application](const std::function<void(bool)>& done) {
        QTimer::singleShot(500, &application, [done] { done(true); });
    };
    services.hasSavedSession = [] { return true; };
    services.forgetSession = [](const std::function<void()>& done) { done(); };
    services.clearCachedReplies = [] {};
    services.loadEvents = &SomeEvents;
    services.clearEvents = [] {};
    services.versions = {{QStringLiteral("Workstation"), QStringLiteral("0.1.0")},
                         {QStringLiteral("Qt"), QString::fromLatin1(qVersion())},
                         {QStringLiteral("Qt WebEngine"), QStringLiteral("5.15.13")},
                         {QStringLiteral("PlatformAutoRun"), QStringLiteral("0.1.0")}};
    services.loadPage = [&value] { return value("page"); };

    SettingsDialog dialog(services, factories, &browser.window);
    dialog.show();
    dialog.activateWindow();
    QStringList steps = value("do").split(QLatin1Char(','), Qt::SkipEmptyParts);
    if (!value("search").isEmpty()) {
        steps =
            QStringList{QStringLiteral("focus:settings_search"), QStringLiteral("type:") + value("search")} +
            steps;
    }
    const PreviewSteps run(&dialog, &gateway, steps, value("picture"));
    return QApplication::exec();
}
