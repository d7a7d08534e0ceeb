#include "base-ui/TLPushButton.h"

#include "ScaleWatch.h"
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
    m_scaleWatch = std::make_unique<ScaleWatch>([this] {
        updateGeometry();
        update();
    });
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
    if (wanted == m_buttonType) {
        return;
    }
    m_buttonType = wanted;
    // The theme's rules depend on the type.
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

void TLPushButton::showEvent(QShowEvent* event)
{
    // The size class is a plain field, so this is the place to notice a new value.
    updateGeometry();
    QPushButton::showEvent(event);
}

TLPushButton::Look TLPushButton::GetLook() const
{
    const QPalette& colors = palette();
    const bool primary = m_buttonType == ButtonType::Primary;
    const auto choose = [&](const QColor& themed, QPalette::ColorRole role, QPalette::ColorRole primaryRole) {
        return ThemedColor(themed, colors, primary ? primaryRole : role);
    };
    Look look;
    if (!isEnabled()) {
        look.fill = choose(m_disabledFillColor, QPalette::Button, QPalette::Mid);
        look.border = choose(m_disabledBorderColor, QPalette::Mid, QPalette::Mid);
        look.text = choose(m_disabledTextColor, QPalette::ButtonText, QPalette::ButtonText);
        return look;
    }
    if (isDown() || isChecked()) {
        look.fill = choose(m_pressedColor, QPalette::Mid, QPalette::Highlight);
    } else if (underMouse()) {
        look.fill = choose(m_hoverColor, QPalette::Midlight, QPalette::Highlight);
    } else if (m_buttonType == ButtonType::Plain && !m_fillColor.isValid()) {
        look.fill = Qt::transparent;
    } else {
        look.fill = choose(m_fillColor, QPalette::Button, QPalette::Highlight);
    }
    look.border = choose(m_borderColor, QPalette::Dark, QPalette::Highlight);
    look.text = choose(m_textColor, QPalette::ButtonText, QPalette::HighlightedText);
    look.borderWidth = Scaled(1);
    if (hasFocus()) {
        look.border = choose(m_focusColor, QPalette::Highlight, QPalette::WindowText);
        look.borderWidth = Scaled(2);
    }
    return look;
}

void TLPushButton::paintEvent(QPaintEvent*)
{
    const Look look = GetLook();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool framed = look.border.alpha() > 0;
    const qreal inset = framed ? look.borderWidth / 2.0 : 0;
    painter.setPen(framed ? QPen(look.border, look.borderWidth) : QPen(Qt::NoPen));
    painter.setBrush(look.fill);
    const qreal radius = Scaled(6) - inset;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), radius, radius);
    painter.setPen(look.text);
    PaintLabel(&painter);
}

void TLPushButton::PaintLabel(QPainter* painter) const
{
    QStyleOptionButton option;
    initStyleOption(&option);
    const bool underlined = style()->styleHint(QStyle::SH_UnderlineShortcut, &option, this) != 0;
    const int flags = Qt::AlignCenter | (underlined ? Qt::TextShowMnemonic : Qt::TextHideMnemonic);
    QRect area = rect().adjusted(Scaled(4), 0, -Scaled(4), 0);
    if (!icon().isNull()) {
        const QSize size = iconSize();
        const int gap = option.text.isEmpty() ? 0 : Scaled(6);
        const int wanted = size.width() + gap + fontMetrics().size(Qt::TextShowMnemonic, option.text).width();
        const QRect place = QStyle::alignedRect(layoutDirection(), Qt::AlignCenter,
                                                QSize(qMin(wanted, area.width()), area.height()), area);
        const QRect picture =
            QStyle::alignedRect(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter, size, place);
        icon().paint(painter, picture, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
        area = QStyle::visualRect(layoutDirection(), place, place.adjusted(size.width() + gap, 0, 0, 0));
    }
    painter->drawText(area, flags,
                      fontMetrics().elidedText(option.text, Qt::ElideRight, area.width(), flags));
}
