#include "ScreenWatch.h"

#include "base/DpiTool.h"

#include <QtGui/QScreen>
#include <QtGui/QWindow>

ScreenWatch::ScreenWatch(QWindow* window) : QObject(window), m_window(window)
{
    connect(window, &QWindow::screenChanged, this, &ScreenWatch::Follow);
}

ScreenWatch::~ScreenWatch() = default;

void ScreenWatch::Begin()
{
    Follow(m_window->screen());
}

void ScreenWatch::Follow(QScreen* screen)
{
    disconnect(m_resolution);
    if (!screen) {
        return; // the last screen was unplugged
    }
    m_resolution = connect(screen, &QScreen::logicalDotsPerInchChanged, this,
                           [](qreal dpi) { DpiTool::SetScreenDpi(dpi); });
    DpiTool::SetScreenDpi(screen->logicalDotsPerInch());
}
