#pragma once

#include <QtCore/QObject>
#include <QtCore/QPoint>

class QEvent;
class QWidget;

/// What the mouse does to the tabs of the strip: the left button selects and drags, the middle one closes.
/// The pinned tab, 0, is not dragged.
class TabDrag final : public QObject
{
    Q_OBJECT

public:
    /// A press, move or release over the tab's widget; false for any other event.
    bool HandleMouse(int index, const QWidget* button, QEvent* event);
    /// The tab being dragged; -1 when there is none.
    int GetDragged() const noexcept;
    /// A tab has moved, perhaps the dragged one.
    void Follow(int from, int to);
    void End();

Q_SIGNALS:
    void SigPressed(int index);
    void SigMiddleClicked(int index);
    /// The dragged tab's left edge is at the global position now.
    void SigDragged(const QPoint& globalPosition);
    void SigEnded();

private:
    int m_pressed = -1; // tab under the pressed button
    int m_dragged = -1;
    int m_grip = 0; // where in the tab the mouse holds it [px]
    QPoint m_pressPosition;
};
