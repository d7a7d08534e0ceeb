#pragma once

#include <QtCore/QString>

class QWidget;
class TLBaseDialog;
class TLBubbleLabel;

/// The dialogs' message about a choice or text that they cannot accept. GUI thread.
class ErrorBubble final
{
public:
    /// Owned by the dialog; made when the first message is shown.
    explicit ErrorBubble(TLBaseDialog* dialog) noexcept : m_dialog(dialog) {}

    /// Shows `message` below `control`, a part of the dialog's form, in place of an earlier message.
    void Show(const QWidget* control, const QString& message);
    void Hide();

private:
    Q_DISABLE_COPY(ErrorBubble)

    TLBaseDialog* m_dialog;
    TLBubbleLabel* m_label = nullptr;
};
