#pragma once

#include <QtCore/QProcess>
#include <QtCore/QString>

/// An X server of the test's own without a physical display, and a window manager that gives the focus to the
/// window that a user would expect. The destructor ends both.
class VirtualScreen final
{
public:
    VirtualScreen();
    ~VirtualScreen();

    VirtualScreen(const VirtualScreen&) = delete;
    VirtualScreen& operator=(const VirtualScreen&) = delete;

    /// The value for DISPLAY; empty when the X server did not start.
    QString GetDisplay() const { return m_display; }

private:
    QProcess m_server;
    QProcess m_windows;
    QString m_display;
};
