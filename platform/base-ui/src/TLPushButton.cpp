#include "base-ui/TLPushButton.h"

#include "Scaled.h"
#include "ThemedColor.h"

#include <QtGui/QPainter>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionButton>

TLPushButton::TLPushButton(QWidget* parent) : QPushButton(parent)
{
    Construct();
}

TLPushButton::TLPushButton(const QString& text, QWidget* parent) : QPushButton(text, parent)
{
    Construct();
}

TLPushButton::~TLPushButton() = default;

void TLPushButton::Construct()
{
    setAttribute(Qt::WA_Hover);
}

int TLPushButton::GetButtonType() const noexcept
{
    return m_buttonType;
}

void TLPushButton::SetButtonType(int type)
{
    const bool known =
        type == ButtonType::Primary || type == ButtonType::Plain || type == ButtonType::Secondary;
    const int wanted = known ? type : ButtonType::Default;
    if (wanted == m_buttonType)
        return;
    m_buttonType = wanted;
    // The theme's rules depend on it.
    style()->unpolish(this);
    style()->polish(this);
    update();
}

QSize TLPushButton::sizeHint() const
{
    const QFontMetrics metrics = fontMetrics();
    int width = metrics.size(Qt::TextShowMnemonic, text()).width();
    int height = metrics.height();
    if (!icon().isNull()) {
        width += iconSize().width() + (text().isEmpty() ? 0 : Scaled(6));
        height = qMax(height, iconSize().height());
    }
    if (m_sizeClass == 1) {
        return {qMax(width + 2 * Scaled(16), Scaled(80)), qMax(height + 2 * Scaled(4), Scaled(32))};
    }
    return {width + 2 * Scaled(10), height + 2 * Scaled(4)};
}

QSize TLPushButton::minimumSizeHint() const
{
    return sizeHint();
}

void TLPushButton::paintEvent(QPaintEvent*)
{
    const bool primary = m_buttonType == ButtonType::Primary;
    const bool plain = m_buttonType == ButtonType::Plain;
    const QPalette& colors = palette();

    QColor fill = plain ? m_fillColor
                        : ThemedColor(m_fillColor, colors, primary ? QPalette::Highlight : QPalette::Button);
    QColor border = plain
                        ? m_borderColor
                        : ThemedColor(m_borderColor, colors, primary ? QPalette::Highlight : QPalette::Dark);
    QColor text =
        ThemedColor(m_textColor, colors, primary ? QPalette::HighlightedText : QPalette::ButtonText);
    if (!isEnabled()) {
        fill = plain ? m_disabledFillColor : ThemedColor(m_disabledFillColor, colors, QPalette::Button);
        border = plain ? m_disabledBorderColor : ThemedColor(m_disabledBorderColor, colors, QPalette::Mid);
        text = ThemedColor(m_disabledTextColor, colors, QPalette::ButtonText);
    } else if (isDown() || isChecked()) {
        fill = ThemedColor(m_pressedColor, colors, primary ? QPalette::Highlight : QPalette::Mid);
    } else if (underMouse()) {
        fill = ThemedColor(m_hoverColor, colors, primary ? QPalette::Highlight : QPalette::Midlight);
    }
    qreal width = Scaled(1);
    if (hasFocus()) {
        border = ThemedColor(m_focusColor, colors, primary ? QPalette::WindowText : QPalette::Highlight);
        width = Scaled(2);
    }

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(border.isValid() ? QPen(border, width) : QPen(Qt::NoPen));
    painter.setBrush(fill.isValid() ? QBrush(fill) : QBrush(Qt::NoBrush));
    const qreal inset = width / 2;
    const qreal radius = Scaled(6);
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), radius, radius);

    QStyleOptionButton option;
    initStyleOption(&option);
    const int flags = Qt::AlignCenter | (style()->styleHint(QStyle::SH_UnderlineShortcut, &option, this) != 0
                                             ? Qt::TextShowMnemonic
                                             : Qt::TextHideMnemonic);
    QRect area = rect().adjusted(Scaled(4), 0, -Scaled(4), 0);
    if (!icon().isNull()) {
        const QSize size = iconSize();
        const int gap = option.text.isEmpty() ? 0 : Scaled(6);
        const int wanted = size.width() + gap + fontMetrics().size(Qt::TextShowMnemonic, option.text).width();
        const QRect place = QStyle::alignedRect(layoutDirection(), Qt::AlignCenter,
                                                QSize(qMin(wanted, area.width()), area.height()), area);
        const QRect picture =
            QStyle::alignedRect(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter, size, place);
        icon().paint(&painter, picture, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
        area = QStyle::visualRect(layoutDirection(), place,
                                  QRect(place.left() + size.width() + gap, place.top(),
                                        place.width() - size.width() - gap, place.height()));
    }
    painter.setPen(text);
    painter.drawText(area, flags, fontMetrics().elidedText(option.text, Qt::ElideRight, area.width(), flags));
}
