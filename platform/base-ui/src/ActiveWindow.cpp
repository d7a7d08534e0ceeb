#include "ActiveWindow.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

QWidget* FindActiveWindow()
{
    if (QWidget* const modal = QApplication::activeModalWidget()) {
        return modal;
    }
    if (QWidget* const active = QApplication::activeWindow()) {
        return active;
    }
    QWidget* found = nullptr;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        const Qt::WindowType type = window->windowType();
        if (!window->isVisible() || (type != Qt::Window && type != Qt::Dialog)) {
            continue;
        }
        if (found == nullptr || window->width() * window->height() > found->width() * found->height()) {
            found = window;
        }
    }
    return found;
}
