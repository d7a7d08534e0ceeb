#include "BusyIndicator.h"

#include "Scaled.h"

#include <QtCore/QVariantAnimation>
#include <QtGui/QPainter>

namespace {

constexpr int TurnTime = 900; // [ms]

} // namespace

BusyIndicator::BusyIndicator(QWidget* parent) : QWidget(parent), m_turn(new QVariantAnimation(this))
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_turn->setStartValue(0.0);
    m_turn->setEndValue(360.0);
    m_turn->setDuration(TurnTime);
    m_turn->setLoopCount(-1);
    connect(m_turn, &QVariantAnimation::valueChanged, this, [this] { update(); });
}

BusyIndicator::~BusyIndicator() = default;

QSize BusyIndicator::sizeHint() const
{
    return {Scaled(28), Scaled(28)};
}

void BusyIndicator::showEvent(QShowEvent* event)
{
    m_turn->start();
    QWidget::showEvent(event);
}

void BusyIndicator::hideEvent(QHideEvent* event)
{
    m_turn->stop();
    QWidget::hideEvent(event);
}

void BusyIndicator::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal line = Scaled(3);
    const QRectF ring = QRectF(rect()).adjusted(line, line, -line, -line);
    painter.setPen(QPen(palette().color(QPalette::Mid), line));
    painter.drawEllipse(ring);
    painter.setPen(QPen(palette().color(QPalette::Highlight), line, Qt::SolidLine, Qt::RoundCap));
    constexpr int degree = 16;
    painter.drawArc(ring, -qRound(m_turn->currentValue().toReal() * degree), 100 * degree);
}
