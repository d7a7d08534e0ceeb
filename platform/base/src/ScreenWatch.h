#pragma once

#include <QtCore/QMetaObject>
#include <QtCore/QObject>

class QScreen;
class QWindow;

/// Passes the resolution of the screen that a window is on to `DpiTool`. A child of the window.
class ScreenWatch final : public QObject
{
public:
    explicit ScreenWatch(QWindow* window);
    ~ScreenWatch() override;

    /// Passes on the current screen. May destroy this object, as may every later change.
    void Begin();

private:
    void Follow(QScreen* screen);

    QWindow* const m_window;
    QMetaObject::Connection m_resolution; // of the current screen
};
