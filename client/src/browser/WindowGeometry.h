#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtCore/QTimer>

#include <functional>

class FullScreen;
class QWidget;

/// Restores the window's place and size, and stores them shortly after the last change.
class WindowGeometry final : public QObject
{
    Q_OBJECT

public:
    using Load = std::function<QByteArray()>;
    using Save = std::function<void(const QByteArray&)>;

    /// `load` and `save` may be empty; the other objects outlive this one. Nothing is stored in full screen.
    WindowGeometry(QWidget* window, const FullScreen* fullScreen, const Load& load, const Save& save);
    /// Stores a change that still waits.
    ~WindowGeometry() override;

    /// As it was stored; a size that suits the screen when nothing was.
    void Restore();
    void Store();
    /// The window was moved or resized.
    void HandleChange();

private:
    QWidget* m_window;
    const FullScreen* m_fullScreen;
    Load m_load;
    Save m_save;
    QTimer m_delay;
};
