#include "ui/ErrorBubble.h"

#include "base-ui/TLBaseDialog.h"
#include "base-ui/TLBubbleLabel.h"
#include "base/DpiTool.h"

void ErrorBubble::Show(const QWidget* control, const QString& message)
{
    if (m_label == nullptr) {
        m_label = new TLBubbleLabel(m_dialog);
    }
    const QPoint position = control->pos() + QPoint(0, DpiTool::ScaleDefault(10));
    m_label->setText(message);
    m_label->SetBubbleParam(BubbleDirection::Up, DpiTool::ScaleDefault(40));
    m_label->show();
    m_label->move(position);
}

void ErrorBubble::Hide()
{
    if (m_label != nullptr) {
        m_label->hide();
    }
}
