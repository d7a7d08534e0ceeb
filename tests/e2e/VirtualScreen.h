#pragma once

#include <QtCore/QProcess>
#include <QtCore/QString>

/// An X server of the test's own, without a display behind it, and a window manager, which gives the keyboard
/// to whom a person would expect. Ends with the object.
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
