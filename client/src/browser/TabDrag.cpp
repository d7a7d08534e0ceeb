#include "TabDrag.h"

#include "TabOrder.h"

#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

bool TabDrag::HandleMouse(int index, const QWidget* button, QEvent* event)
{
    auto* const mouse = static_cast<QMouseEvent*>(event);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        if (mouse->button() == Qt::LeftButton) {
            m_pressed = index;
            m_pressPosition = mouse->globalPos();
            m_grip = mouse->x();
            Q_EMIT SigPressed(index);
        } else if (mouse->button() == Qt::MiddleButton) {
            m_pressed = index;
        }
        return true;
    case QEvent::MouseMove:
        if (!(mouse->buttons() & Qt::LeftButton) || m_pressed < 1) {
            return true;
        }
        if (m_dragged < 0 && index == m_pressed &&
            (mouse->globalPos() - m_pressPosition).manhattanLength() >= QApplication::startDragDistance()) {
            m_dragged = m_pressed;
        }
        if (m_dragged > 0) {
            Q_EMIT SigDragged(mouse->globalPos() - QPoint(m_grip, 0));
        }
        return true;
    case QEvent::MouseButtonRelease: {
        const bool middleClick = mouse->button() == Qt::MiddleButton && m_pressed == index &&
                                 button->rect().contains(mouse->pos());
        End();
        if (middleClick) {
            Q_EMIT SigMiddleClicked(index);
        }
        return true;
    }
    default:
        return false;
    }
}

int TabDrag::GetDragged() const noexcept
{
    return m_dragged;
}

void TabDrag::Follow(int from, int to)
{
    m_pressed = TabOrder::Follow(m_pressed, from, to);
    m_dragged = TabOrder::Follow(m_dragged, from, to);
}

void TabDrag::End()
{
    m_pressed = -1;
    if (m_dragged >= 0) {
        m_dragged = -1;
        Q_EMIT SigEnded();
    }
}
