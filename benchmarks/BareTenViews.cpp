// A bare window with a tab widget and one web view per address: the least that opening the same pages can
// cost. Its clock starts when it begins to open them, with the window already on the screen.
//
// usage: BareTenViews PROFILE URL...          prints two numbers [ms]: last view made, last page loaded

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>
#include <QtCore/QUrl>
#include <QtWebEngineWidgets/QWebEnginePage>
#include <QtWebEngineWidgets/QWebEngineProfile>
#include <QtWebEngineWidgets/QWebEngineView>
#include <QtWidgets/QApplication>
#include <QtWidgets/QTabWidget>

#include <cstdio>

int main(int argc, char** argv)
{
    QApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication application(argc, argv);
    const QStringList urls = QApplication::arguments().mid(2);

    QWebEngineProfile profile(QStringLiteral("bare"));
    profile.setPersistentStoragePath(QApplication::arguments().value(1));
    profile.setCachePath(QApplication::arguments().value(1));

    QTabWidget window;
    window.resize(1280, 800);
    window.addTab(new QWidget, QStringLiteral("Home"));
    window.show();

    QElapsedTimer timer;
    qint64 made = 0;
    int loading = urls.size();
    QTimer::singleShot(0, &window, [&] {
        timer.start();
        for (const QString& url : urls) {
            auto* view = new QWebEngineView;
            view->setPage(new QWebEnginePage(&profile, view));
            window.addTab(view, url);
            QObject::connect(view, &QWebEngineView::loadFinished, &window, [&] {
                if (--loading == 0) {
                    std::printf("%lld %lld\n", static_cast<long long>(made),
                                static_cast<long long>(timer.elapsed()));
                    std::fflush(stdout);
                    QApplication::quit();
                }
            });
            view->load(QUrl(url));
        }
        made = timer.elapsed();
    });
    QTimer::singleShot(60000, &window, [] { QApplication::exit(1); });
    const int result = QApplication::exec();
    while (window.count() > 0) {
        delete window.widget(0); // views before their profile
    }
    return result;
}
