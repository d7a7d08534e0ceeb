#include "FullScreen.h"

#include <QtWidgets/QWidget>

FullScreen::FullScreen(QWidget* window, const QVector<QWidget*>& around) : m_window(window), m_around(around)
{}

bool FullScreen::IsOn() const noexcept
{
    return m_on;
}

bool FullScreen::Set(bool on)
{
    if (on == m_on) {
        return false;
    }
    m_on = on;
    for (QWidget* widget : qAsConst(m_around)) {
        widget->setVisible(!on);
    }
    if (on) {
        m_before = m_window->windowState();
        m_window->setWindowState(m_before | Qt::WindowFullScreen);
    } else {
        m_window->setWindowState(m_before);
    }
    return true;
}
