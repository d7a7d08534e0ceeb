// The client's window with a number of unloaded tabs and one in front that loads. thousand_tabs.py watches it
// from outside; it runs until it is killed.
//
// usage: UnloadedTabsWindow FOLDER COUNT ADDRESS

#include "browser/MainWindow.h"
#include "look/ThemeManager.h"
#include "webengine/WebEnginePageFactory.h"

#include "frame-data/TLPluginBaseManager.h"
#include "frame-data/TabOpenInfo.h"

#include <QtWidgets/QApplication>

int main(int argc, char** argv)
{
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    const int count = arguments.value(2).toInt();

    ThemeManager themes;
    themes.Apply(Theme::Light);
    TLPluginBaseManager apps;
    WebEnginePageFactory pages(arguments.value(1), QStringLiteral("en"));
    MainWindowServices services;
    services.pages = &pages;
    services.apps = &apps;
    MainWindow window(services);
    window.show();

    for (int i = 0; i < count; ++i) {
        TabOpenInfo info;
        info.address = QStringLiteral("%1-%2").arg(arguments.value(3)).arg(i);
        info.title = QStringLiteral("Page number %1").arg(i);
        info.iconUrl = QStringLiteral("http://127.0.0.1/favicon-%1.ico").arg(i);
        info.isDelay = true;
        window.OpenUrl(info, -1);
    }
    TabOpenInfo front;
    front.address = arguments.value(3);
    front.activate = true;
    window.OpenUrl(front, -1);
    return QApplication::exec();
}
