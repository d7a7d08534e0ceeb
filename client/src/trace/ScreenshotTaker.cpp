#include "trace/ScreenshotTaker.h"

#include "browser/MainWindow.h"

#include <QtCore/QLoggingCategory>
#include <QtGui/QPixmap>

namespace {

Q_LOGGING_CATEGORY(logScreenshot, "tl.client.screenshot")

// The web engine paints a page in another process, a few frames after the page has loaded.
constexpr int SettleTime = 500; // [ms]

} // namespace

ScreenshotTaker::ScreenshotTaker(MainWindow* window, const QString& file, QObject* parent)
    : QObject(parent), m_window(window), m_file(file)
{
    m_settle.setSingleShot(true);
    m_settle.setInterval(SettleTime);
    connect(&m_settle, &QTimer::timeout, this, &ScreenshotTaker::SaveWhenIdle);
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
        qCWarning(logScreenshot).noquote() << "cannot save the screenshot as" << m_file;
    }
}

void ScreenshotTaker::SaveWhenIdle()
{
    // SigIdle comes when the last tab has loaded.
    if (!m_window->IsLoading()) {
        TakeNow();
    }
}
