#include "base-ui/PackagedMsgBox.h"

#include "MessageDialog.h"

#include <QtCore/QPointer>
#include <QtWidgets/QApplication>

namespace {

/// The window that the user works in; null when the client shows none.
QWidget* FindActiveWindow()
{
    if (QWidget* const modal = QApplication::activeModalWidget())
        return modal;
    if (QWidget* const active = QApplication::activeWindow())
        return active;
    // The user is in another program.
    QWidget* found = nullptr;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        const Qt::WindowType type = window->windowType();
        if (!window->isVisible() || (type != Qt::Window && type != Qt::Dialog))
            continue;
        if (found == nullptr || window->width() * window->height() > found->width() * found->height())
            found = window;
    }
    return found;
}

} // namespace

QMessageBox::StandardButton PackagedMsgBox::question(const QString& text, QWidget* parent,
                                                     QMessageBox::StandardButtons buttons,
                                                     const QStringList& buttonTexts, TextStyle style)
{
    // It goes with its parent, which may happen while it waits.
    const QPointer<MessageDialog> dialog(new MessageDialog(text, buttons, buttonTexts, style,
                                                           parent != nullptr ? parent : FindActiveWindow()));
    dialog->exec();
    if (dialog.isNull())
        return MessageDialog::GetEscapeAnswer(buttons);
    const QMessageBox::StandardButton answer = dialog->GetAnswer();
    delete dialog.data();
    return answer;
}
