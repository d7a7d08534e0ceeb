#include "WindowGeometry.h"

#include "FullScreen.h"
#include "look/ScaledWidget.h"

namespace {

constexpr int StoreDelay = 500;         // after the last change [ms]
constexpr QSize DefaultSize(1280, 840); // [px]

} // namespace

WindowGeometry::WindowGeometry(QWidget* window, const FullScreen* fullScreen, const Load& load,
                               const Save& save)
    : m_window(window), m_fullScreen(fullScreen), m_load(load), m_save(save)
{
    m_delay.setSingleShot(true);
    m_delay.setInterval(StoreDelay);
    connect(&m_delay, &QTimer::timeout, this, &WindowGeometry::Store);
}

WindowGeometry::~WindowGeometry()
{
    if (m_delay.isActive()) {
        Store();
    }
}

void WindowGeometry::Restore()
{
    const QByteArray geometry = m_load ? m_load() : QByteArray();
    if (geometry.isEmpty() || !m_window->restoreGeometry(geometry)) {
        m_window->resize(ScaledToScreen(m_window, DefaultSize));
    }
}

void WindowGeometry::Store()
{
    m_delay.stop();
    if (m_save && !m_fullScreen->IsOn()) {
        m_save(m_window->saveGeometry());
    }
}

void WindowGeometry::HandleChange()
{
    m_delay.start();
}
