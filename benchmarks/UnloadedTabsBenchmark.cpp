// What a window with many unloaded tabs costs: opening them, reading their records (on the GUI thread, after
// each change), scrolling, listing, moving and closing them, another language and another theme; and the
// memory of each. The window is on the screen, and painting counts. Needs a screen: xvfb-run -a
// build/release/benchmarks/UnloadedTabsBenchmark
//
// usage: UnloadedTabsBenchmark [tabs]

#include "browser/MainWindow.h"
#include "look/LanguageManager.h"
#include "look/ThemeManager.h"
#include "webengine/WebEnginePageFactory.h"

#include "frame-core/IBrowserTab.h"
#include "frame-data/TLPluginBaseManager.h"
#include "frame-data/TabOpenInfo.h"
#include "tab-container/TabData.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QToolButton>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>

namespace {

/// Runs events until nothing is left to do, including painting.
void Settle()
{
    for (int i = 0; i < 3; ++i) {
        QApplication::sendPostedEvents();
        QApplication::processEvents();
    }
}

void Measure(const char* what, const std::function<void()>& work)
{
    QElapsedTimer clock;
    clock.start();
    const std::clock_t before = std::clock();
    work();
    Settle();
    const double cpu = 1000.0 * double(std::clock() - before) / CLOCKS_PER_SEC;
    std::printf("%-58s %9.2f ms %9.2f ms CPU\n", what, double(clock.nsecsElapsed()) / 1e6, cpu);
    static_cast<void>(std::fflush(stdout));
}

/// The process's proportional memory (PSS) [KiB]; 0 where the system does not report it.
double GetMemory()
{
    QFile file(QStringLiteral("/proc/self/smaps_rollup"));
    if (!file.open(QIODevice::ReadOnly)) {
        return 0.0;
    }
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith("Pss:")) {
            return line.mid(4).trimmed().split(' ').first().toDouble();
        }
    }
    return 0.0;
}

int ReadAll(const MainWindow& window)
{
    int characters = 0;
    for (int i = 1; i < window.GetTabCount(); ++i) {
        const IBrowserTab* tab = window.GetTab(i);
        const auto data = tab->GetTabData();
        characters += tab->GetRouterUrl().size() + data->GetTitle().size() + data->GetIconUrl().size();
    }
    return characters;
}

/// Delivers a picture immediately and counts it.
class PictureSource final
{
public:
    void Load(const std::function<void(const QPixmap&)>& done)
    {
        ++m_count;
        QPixmap picture(32, 32);
        picture.fill(Qt::darkCyan);
        done(picture);
    }
    int GetCount() const { return m_count; }

private:
    int m_count = 0;
};

void OpenAll(MainWindow& window, int count)
{
    for (int i = 0; i < count; ++i) {
        TabOpenInfo info;
        info.address = QStringLiteral("https://shop-%1.example/orders?day=today&page=%1").arg(i);
        info.title = QStringLiteral("Orders of shop number %1").arg(i);
        info.iconUrl = QStringLiteral("https://shop-%1.example/favicon.ico").arg(i);
        info.isDelay = true;
        window.OpenUrl(info, -1);
    }
}

/// Returns the number of characters that the records of all tabs need.
int MeasureReading(const MainWindow& window)
{
    int characters = 0;
    Measure("title, icon and router URL of all, first time", [&] { characters = ReadAll(window); });
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < 100; ++i) {
        characters = ReadAll(window);
    }
    std::printf("%-58s %9.3f ms\n", "the same, mean of 100", double(clock.nsecsElapsed()) / 1e8);
    return characters;
}

void MeasureStrip(MainWindow& window, int count)
{
    Measure("scroll on by a screenful, a hundred times", [&] {
        QWidget* strip = window.findChild<QWidget*>(QStringLiteral("tab_strip"));
        for (int i = 0; i < 100; ++i) {
            QWheelEvent event(QPointF(300, 20), strip->mapToGlobal(QPoint(300, 20)), QPoint(),
                              QPoint(0, -960), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(strip, &event);
            Settle();
        }
    });
    Measure("list of all tabs",
            [&] { window.findChild<QToolButton*>(QStringLiteral("strip_list"))->click(); });
    if (QWidget* popup = QApplication::activePopupWidget()) {
        Measure("narrow the list to one",
                [&] { popup->findChild<QLineEdit*>()->setText(QStringLiteral("number %1").arg(count - 1)); });
        popup->close();
    }
    Settle();
    Measure("move the last to the front", [&] { window.MoveTab(count, 1); });
    Measure("move it back", [&] { window.MoveTab(1, count); });
}

void MeasureClosing(MainWindow& window, int count)
{
    Measure("close one in the middle", [&] { window.CloseTab(count / 2); });
    Measure("close all but one hundred, one by one", [&] {
        while (window.GetTabCount() > 101) {
            window.CloseTab(window.GetTabCount() / 2);
        }
    });
    Measure("close the rest at once", [&] { window.CloseAllTabs(); });
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    const int count = arguments.size() > 1 ? arguments.at(1).toInt() : 1000;

    ThemeManager themes;
    themes.Apply(Theme::Light);
    LanguageManager languages(QStringLiteral(TL_TRANSLATIONS_DIR));
    TLPluginBaseManager apps;
    QTemporaryDir folder;
    WebEnginePageFactory pages(folder.path(), QStringLiteral("en"));
    PictureSource pictures;
    MainWindowServices services;
    services.pages = &pages;
    services.apps = &apps;
    services.loadPicture = [&pictures](const QString&, QObject*,
                                       const std::function<void(const QPixmap&)>& done) {
        pictures.Load(done);
    };
    MainWindow window(services);
    window.resize(1280, 800);
    window.show();
    Settle();

    const double memoryBefore = GetMemory();
    Measure("open all", [&] { OpenAll(window, count); });
    const double memoryAfter = GetMemory();
    const int characters = MeasureReading(window);
    MeasureStrip(window, count);
    Measure("another language", [&] { languages.Apply(QStringLiteral("zh_CN")); });
    Measure("another theme", [&] { themes.Apply(Theme::Dark); });
    Measure("another app list", [&] { apps.SetPlugins({}); });
    MeasureClosing(window, count);

    std::printf("memory: %.1f KiB for each unloaded tab; %d icons fetched; %d characters recorded\n",
                (memoryAfter - memoryBefore) / double(std::max(count, 1)), pictures.GetCount(), characters);
    return 0;
}
