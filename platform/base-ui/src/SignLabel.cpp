#include "SignLabel.h"

#include "Scaled.h"
#include "SignPainter.h"

#include <QtGui/QPainter>

SignLabel::SignLabel(Sign sign, QWidget* parent) : QWidget(parent), m_sign(sign)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

SignLabel::~SignLabel() = default;

QSize SignLabel::sizeHint() const
{
    return {Scaled(28), Scaled(28)};
}

void SignLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    SignPainter::Paint(&painter, rect(), m_sign, palette().color(QPalette::PlaceholderText));
}
