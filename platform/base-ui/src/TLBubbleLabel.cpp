#include "base-ui/TLBubbleLabel.h"

#include "base-ui/TLBaseDialog.h"

#include "AlertAccessible.h"
#include "Fade.h"
#include "ScaleWatch.h"
#include "Scaled.h"
#include "SignPainter.h"
#include "ThemedColor.h"

#include <QtCore/QEvent>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QStyle>

namespace {

// [px, unscaled]
constexpr int PointerHeight = 6;
constexpr int PointerWidth = 12;
constexpr int CornerRadius = 6;
constexpr int Padding = 10;
constexpr int SignSize = 14;
constexpr int SignGap = 6;
constexpr int ShortestText = 80;

QWidget* PlaceFor(QWidget* parent)
{
    auto* const dialog = qobject_cast<TLBaseDialog*>(parent);
    return dialog != nullptr ? dialog->GetContentWidget() : parent;
}

} // namespace

TLBubbleLabel::TLBubbleLabel(QWidget* parent) : QLabel(PlaceFor(parent)), m_fade(std::make_unique<Fade>(this))
{
    AlertAccessible::Install();
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setTextFormat(Qt::PlainText);
    hide();
    m_scaleWatch = std::make_unique<ScaleWatch>([this] { Adjust(); });
}

TLBubbleLabel::~TLBubbleLabel() = default;

void TLBubbleLabel::setText(const QString& text)
{
    QLabel::setText(text);
    setAccessibleName(text);
    Adjust();
    if (isVisible()) {
        Announce();
    }
}

void TLBubbleLabel::SetBubbleParam(int direction, int pointerOffset)
{
    m_direction = direction == BubbleDirection::Down ? BubbleDirection::Down : BubbleDirection::Up;
    m_pointerOffset = pointerOffset;
    Adjust();
}

void TLBubbleLabel::changeEvent(QEvent* event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        Adjust();
    }
}

void TLBubbleLabel::moveEvent(QMoveEvent* event)
{
    QLabel::moveEvent(event);
    Adjust();
}

void TLBubbleLabel::showEvent(QShowEvent* event)
{
    QLabel::showEvent(event);
    raise();
    Adjust();
    Announce();
    m_fade->Reset();
    m_fade->GoTo(1);
}

int TLBubbleLabel::GetLead() const
{
    if (m_direction != BubbleDirection::Up || parentWidget() == nullptr) {
        return 0;
    }
    // This does not find the bubble itself, which lets the mouse through.
    const QWidget* control = parentWidget()->childAt(pos());
    while (control != nullptr && control != parentWidget() && control->focusPolicy() == Qt::NoFocus) {
        control = control->parentWidget();
    }
    if (control == nullptr || control == parentWidget()) {
        return 0;
    }
    const int bottom = control->mapTo(parentWidget(), QPoint(0, control->height())).y();
    return bottom + Scaled(2) - y();
}

void TLBubbleLabel::Adjust()
{
    m_lead = GetLead();
    const int around = 2 * Scaled(Padding) + Scaled(SignSize) + Scaled(SignGap);
    int room = QWIDGETSIZE_MAX;
    if (parentWidget() != nullptr) {
        room = qMax(Scaled(ShortestText), parentWidget()->width() - x() - Scaled(8) - around);
    }
    const QRect needed = fontMetrics().boundingRect(QRect(0, 0, room, QWIDGETSIZE_MAX),
                                                    Qt::AlignLeft | Qt::TextWordWrap, text());
    const int width =
        qMax(needed.width() + around, m_pointerOffset + Scaled(PointerWidth) + 2 * Scaled(CornerRadius));
    const int height = qMax(needed.height(), Scaled(SignSize)) + 2 * Scaled(Padding) * 6 / 10;
    resize(width, m_lead + Scaled(PointerHeight) + height);
    update();
}

void TLBubbleLabel::Announce()
{
    AlertAccessible::Announce(this);
}

QPainterPath TLBubbleLabel::GetOutline() const
{
    const bool up = m_direction == BubbleDirection::Up;
    const qreal line = Scaled(1) / 2.0;
    const qreal pointer = Scaled(PointerHeight);
    const QRectF body =
        QRectF(rect()).adjusted(line, up ? m_lead + pointer : line, -line, up ? -line : -pointer);
    const qreal radius = Scaled(CornerRadius);

    QPainterPath box;
    box.addRoundedRect(body, radius, radius);
    const qreal half = Scaled(PointerWidth) / 2.0;
    const qreal tip =
        qBound(body.left() + radius + half, qreal(m_pointerOffset), body.right() - radius - half);
    const qreal base = up ? body.top() + 1 : body.bottom() - 1;
    QPainterPath triangle;
    triangle.moveTo(tip - half, base);
    triangle.lineTo(tip, up ? body.top() - pointer + line : body.bottom() + pointer - line);
    triangle.lineTo(tip + half, base);
    triangle.closeSubpath();
    return box.united(triangle);
}

void TLBubbleLabel::paintEvent(QPaintEvent*)
{
    const QPalette& colors = palette();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(m_fade->GetOpacity());
    painter.setPen(QPen(ThemedColor(m_borderColor, colors, QPalette::Dark), Scaled(1)));
    painter.setBrush(ThemedColor(m_bubbleColor, colors, QPalette::ToolTipBase));
    painter.drawPath(GetOutline());

    const bool up = m_direction == BubbleDirection::Up;
    const int pointer = Scaled(PointerHeight);
    const QRect body =
        rect().adjusted(Scaled(Padding), up ? m_lead + pointer : 0, -Scaled(Padding), up ? 0 : -pointer);
    const QRect sign = QStyle::alignedRect(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter,
                                           QSize(Scaled(SignSize), Scaled(SignSize)), body);
    const QColor text = ThemedColor(m_textColor, colors, QPalette::ToolTipText);
    SignPainter::Paint(&painter, sign, Sign::Warning, m_signColor.isValid() ? m_signColor : text);

    const int lead = Scaled(SignSize) + Scaled(SignGap);
    const QRect area = QStyle::visualRect(layoutDirection(), body, body.adjusted(lead, 0, 0, 0));
    painter.setPen(text);
    painter.drawText(area,
                     int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter)) |
                         Qt::TextWordWrap,
                     QLabel::text());
}
