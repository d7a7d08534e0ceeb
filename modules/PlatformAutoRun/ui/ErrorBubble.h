#pragma once

#include <QtCore/QString>

class QWidget;
class TLBaseDialog;
class TLBubbleLabel;

/// What the dialogs say about the choice or text that they cannot take. GUI thread.
class ErrorBubble final
{
public:
    /// Owned by the dialog and made when the first message is shown.
    explicit ErrorBubble(TLBaseDialog* dialog) noexcept : m_dialog(dialog) {}

    /// Shows `message` below `control`, a part of the dialog's form; it replaces an earlier message.
    void Show(const QWidget* control, const QString& message);
    void Hide();

private:
    Q_DISABLE_COPY(ErrorBubble)

    TLBaseDialog* m_dialog;
    TLBubbleLabel* m_label = nullptr;
};
