#include "HoverLabel.h"

HoverLabel::HoverLabel(QWidget* parent) : QLabel(parent)
{
    setObjectName(QStringLiteral("hover_address"));
    setTextFormat(Qt::PlainText);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void HoverLabel::ShowAddress(const QString& address)
{
    setText(fontMetrics().elidedText(address, Qt::ElideMiddle, parentWidget()->width() / 2));
    setVisible(!address.isEmpty());
    Place();
}

void HoverLabel::Place()
{
    adjustSize();
    move(0, parentWidget()->height() - height());
    raise();
}
