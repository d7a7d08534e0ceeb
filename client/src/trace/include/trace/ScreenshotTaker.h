#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QTimer>

class MainWindow;

/// Saves a picture of the main window when all tabs have loaded and had time to be painted, and again after
/// every later change.
class ScreenshotTaker final : public QObject
{
    Q_OBJECT

public:
    /// Does not own `window`, which has to outlive this object.
    ScreenshotTaker(MainWindow* window, const QString& file, QObject* parent = nullptr);

    /// Start watching: the tabs that the picture should show are being opened.
    void Arm();
    /// Saves the window as it is now.
    void TakeNow();

private:
    void SaveWhenIdle();

    MainWindow* m_window;
    QString m_file;
    QTimer m_settle;
    bool m_armed = false;
};
