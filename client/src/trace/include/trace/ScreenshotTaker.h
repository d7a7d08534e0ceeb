#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QTimer>

class MainWindow;

/// Saves the main window as a picture once nothing loads any more and what is shown had time to be
/// painted; again each time that this is so after something changed.
class ScreenshotTaker final : public QObject
{
    Q_OBJECT

public:
    /// `window` is not owned and outlives this object.
    ScreenshotTaker(MainWindow* window, const QString& file, QObject* parent = nullptr);

    /// From now on the tabs count that are to be seen in the picture.
    void Arm();
    /// Saves what is there now.
    void TakeNow();

private:
    void TakeWhenIdle();

    MainWindow* m_window;
    QString m_file;
    QTimer m_settle;
    bool m_armed = false;
};
