#include "base-ui/PackagedMsgBox.h"

#include "base-ui/TLMask.h"

#include "ActiveWindow.h"
#include "MessageDialog.h"

#include <QtCore/QPointer>

QMessageBox::StandardButton PackagedMsgBox::question(const QString& text, QWidget* parent,
                                                     QMessageBox::StandardButtons buttons,
                                                     const QStringList& buttonTexts, TextStyle style)
{
    QWidget* const over = parent != nullptr ? parent->window() : FindActiveWindow();
    // The dialog goes with its parent, perhaps while it waits.
    const QPointer<MessageDialog> dialog(new MessageDialog(text, buttons, buttonTexts, style, over));
    (void)TLMask::Instance()->InitMask(over, over);
    TLMask::Instance()->ShowMask(dialog);
    dialog->exec();
    if (dialog.isNull()) {
        return MessageDialog::GetEscapeAnswer(buttons);
    }
    const QMessageBox::StandardButton answer = dialog->GetAnswer();
    delete dialog.data();
    return answer;
}
