#include "base-ui/PackagedMsgBox.h"

#include "ActiveWindow.h"
#include "MessageDialog.h"

#include <QtCore/QPointer>

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
