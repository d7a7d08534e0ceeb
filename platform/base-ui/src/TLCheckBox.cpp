#include "base-ui/TLCheckBox.h"

#include "ScaleWatch.h"
#include "Scaled.h"
#include "ThemedColor.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionButton>

namespace {

constexpr int BoxSize = 16;  // [px, unscaled]
constexpr int BoxMargin = 2; // [px, unscaled]
constexpr int Gap = 8;       // [px, unscaled]

// The tick of a checked box, or the dash of a partly checked one.
QPainterPath MakeMark(Qt::CheckState state, const QRectF& box)
{
    const auto point = [&box](qreal x, qreal y) {
        return QPointF(box.left() + x * box.width(), box.top() + y * box.height());
    };
    QPainterPath path;
    if (state == Qt::Checked) {
        path.moveTo(point(0.25, 0.53));
        path.lineTo(point(0.43, 0.70));
        path.lineTo(point(0.75, 0.33));
    } else {
        path.moveTo(point(0.27, 0.5));
        path.lineTo(point(0.73, 0.5));
    }
    return path;
}

} // namespace

TLCheckBox::TLCheckBox(QWidget* parent) : QCheckBox(parent)
{
    Construct();
}

TLCheckBox::TLCheckBox(const QString& text, QWidget* parent) : QCheckBox(text, parent)
{
    Construct();
}

TLCheckBox::~TLCheckBox() = default;

void TLCheckBox::Construct()
{
    setAttribute(Qt::WA_Hover);
    m_scaleWatch = std::make_unique<ScaleWatch>([this] {
        updateGeometry();
        update();
    });
}

QRect TLCheckBox::GetBox() const
{
    const int size = Scaled(BoxSize);
    const QRect box(Scaled(BoxMargin), (height() - size) / 2, size, size);
    return QStyle::visualRect(layoutDirection(), rect(), box);
}

QSize TLCheckBox::sizeHint() const
{
    int width = Scaled(BoxSize) + 2 * Scaled(BoxMargin);
    int height = width;
    if (!text().isEmpty()) {
        const QSize size = fontMetrics().size(Qt::TextShowMnemonic, text());
        width += Scaled(Gap) - Scaled(BoxMargin) + size.width();
        height = qMax(height, size.height());
    } else if (m_sizeClass == 1) {
        width += Scaled(Gap) - Scaled(BoxMargin);
        height = Scaled(32);
    }
    return {width, height};
}

QSize TLCheckBox::minimumSizeHint() const
{
    const QSize size = sizeHint();
    return {size.width(), qMin(size.height(), Scaled(BoxSize))};
}

bool TLCheckBox::hitButton(const QPoint& point) const
{
    return rect().contains(point);
}

void TLCheckBox::showEvent(QShowEvent* event)
{
    // The size class is a plain field, so this is the place to notice a new value.
    updateGeometry();
    QCheckBox::showEvent(event);
}

TLCheckBox::Look TLCheckBox::GetLook() const
{
    const QPalette& colors = palette();
    const bool marked = checkState() != Qt::Unchecked;
    Look look;
    if (!isEnabled()) {
        look.fill = ThemedColor(m_disabledBoxColor, colors, QPalette::Window);
        look.border = ThemedColor(m_disabledBorderColor, colors, QPalette::Mid);
        look.mark = ThemedColor(m_disabledMarkColor, colors, QPalette::Text);
        look.text = ThemedColor(m_disabledTextColor, colors, QPalette::WindowText);
        return look;
    }
    look.fill = marked ? ThemedColor(m_checkedColor, colors, QPalette::Highlight)
                       : ThemedColor(m_boxColor, colors, QPalette::Base);
    look.border = marked ? look.fill : ThemedColor(m_borderColor, colors, QPalette::Dark);
    look.mark = ThemedColor(m_markColor, colors, QPalette::HighlightedText);
    look.text = ThemedColor(m_textColor, colors, QPalette::WindowText);
    if (isDown() || underMouse()) {
        look.border = isDown() ? ThemedColor(m_pressedColor, colors, QPalette::Highlight)
                               : ThemedColor(m_hoverColor, colors, QPalette::Highlight);
        if (marked) {
            look.fill = look.border;
        }
    }
    return look;
}

void TLCheckBox::PaintBox(QPainter* painter, const Look& look) const
{
    const bool marked = checkState() != Qt::Unchecked;
    const QRectF box = GetBox();
    const qreal line = Scaled(1);
    const qreal radius = Scaled(4);
    painter->setPen(QPen(look.border, line));
    painter->setBrush(look.fill);
    painter->drawRoundedRect(box.adjusted(line / 2, line / 2, -line / 2, -line / 2), radius, radius);
    painter->setBrush(Qt::NoBrush);
    if (hasFocus()) {
        const qreal ring = Scaled(2);
        const qreal away = marked ? ring / 2 + line : -ring / 2;
        painter->setPen(QPen(ThemedColor(m_focusColor, palette(), QPalette::Highlight), ring));
        painter->drawRoundedRect(box.adjusted(-away, -away, away, away), radius, radius);
    }
    if (marked) {
        painter->setPen(QPen(look.mark, box.width() / 9, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->drawPath(MakeMark(checkState(), box));
    }
}

void TLCheckBox::paintEvent(QPaintEvent*)
{
    const Look look = GetLook();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    PaintBox(&painter, look);

    QStyleOptionButton option;
    initStyleOption(&option);
    if (option.text.isEmpty()) {
        return;
    }
    const int lead = Scaled(BoxMargin) + Scaled(BoxSize) + Scaled(Gap);
    const QRect area = QStyle::visualRect(layoutDirection(), rect(), rect().adjusted(lead, 0, 0, 0));
    const int flags =
        int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter)) |
        (style()->styleHint(QStyle::SH_UnderlineShortcut, &option, this) != 0 ? Qt::TextShowMnemonic
                                                                              : Qt::TextHideMnemonic);
    painter.setPen(look.text);
    painter.drawText(area, flags, fontMetrics().elidedText(option.text, Qt::ElideRight, area.width(), flags));
}
