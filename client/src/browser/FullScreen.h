#pragma once

#include <QtCore/QVector>
#include <QtCore/qnamespace.h>

class QWidget;

/// Gives the whole screen to the page: hides what stands around it and brings the window back as it was.
class FullScreen final
{
public:
    /// `around` is what a page in full screen does without. All outlive this object.
    FullScreen(QWidget* window, const QVector<QWidget*>& around);

    bool IsOn() const noexcept;
    /// False when nothing changes.
    bool Set(bool on);

private:
    QWidget* m_window;
    QVector<QWidget*> m_around;
    Qt::WindowStates m_before = Qt::WindowNoState;
    bool m_on = false;
};
