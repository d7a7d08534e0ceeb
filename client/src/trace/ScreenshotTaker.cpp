#include "trace/ScreenshotTaker.h"

#include "browser/MainWindow.h"

#include <QtCore/QLoggingCategory>
#include <QtGui/QPixmap>

namespace {

Q_LOGGING_CATEGORY(logScreenshot, "tl.client.screenshot")

// A page is painted by a process of its own, some frames after it has loaded.
constexpr int settleTime = 500; // [ms]

} // namespace

ScreenshotTaker::ScreenshotTaker(MainWindow* window, const QString& file, QObject* parent)
    : QObject(parent), m_window(window), m_file(file)
{
    m_settle.setSingleShot(true);
    m_settle.setInterval(settleTime);
    connect(&m_settle, &QTimer::timeout, this, &ScreenshotTaker::TakeWhenIdle);
    const auto again = [this] {
        if (m_armed) {
            m_settle.start();
        }
    };
    connect(window, &MainWindow::SigIdle, this, again);
    connect(window, &MainWindow::SigTabOpened, this, again);
    connect(window, &MainWindow::SigTabSelected, this, again);
    connect(window, &MainWindow::SigTabClosed, this, again);
}

void ScreenshotTaker::Arm()
{
    m_armed = true;
    m_settle.start();
}

void ScreenshotTaker::TakeNow()
{
    if (!m_window->grab().save(m_file, "PNG")) {
        qCWarning(logScreenshot).noquote() << "the picture cannot be saved as" << m_file;
    }
}

void ScreenshotTaker::TakeWhenIdle()
{
    // While a tab loads, SigIdle is still to come.
    if (!m_window->IsLoading()) {
        TakeNow();
    }
}
