#include "base-ui/TLComboBox.h"

#include "ComboItemDelegate.h"
#include "FieldFrame.h"
#include "ScaleWatch.h"
#include "Scaled.h"
#include "ThemedColor.h"

#include <QtGui/QPainter>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QLayout>
#include <QtWidgets/QListView>
#include <QtWidgets/QStyle>

namespace {

// [px, unscaled]
constexpr int Inset = 10;
constexpr int Gap = 8;
constexpr int ArrowWidth = 8;

} // namespace

TLComboBox::TLComboBox(QWidget* parent) : QComboBox(parent)
{
    // The theme reaches the rows only in a list of our own.
    auto* list = new QListView(this);
    list->setTextElideMode(Qt::ElideRight);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setView(list);
    setItemDelegate(new ComboItemDelegate(this));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);

    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    m_scaleWatch = std::make_unique<ScaleWatch>([this] { AdjustForScale(); });
    AdjustForScale();
}

TLComboBox::~TLComboBox() = default;

int TLComboBox::GetBusiness() const noexcept
{
    return m_business;
}

void TLComboBox::SetBusiness(int business)
{
    m_business = business == ComboBusiness::Apps ? ComboBusiness::Apps : ComboBusiness::Plain;
    AdjustForScale();
}

QSize TLComboBox::sizeHint() const
{
    const int height =
        qMax(qMax(Scaled(32), fontMetrics().height() + 2 * Scaled(4)), iconSize().height() + 2 * Scaled(4));
    const int text = fontMetrics().averageCharWidth() * 16;
    return {text + iconSize().width() + 2 * Scaled(Inset) + Scaled(ArrowWidth) + 2 * Scaled(Gap), height};
}

QSize TLComboBox::minimumSizeHint() const
{
    const int text = fontMetrics().averageCharWidth() * 6;
    return {text + iconSize().width() + 2 * Scaled(Inset) + Scaled(ArrowWidth) + 2 * Scaled(Gap),
            sizeHint().height()};
}

void TLComboBox::showPopup()
{
    // The list was made before the theme was known, and took itself for a menu: it has no scroll bar, and its
    // frame subtracts a menu's margins from its height.
    view()->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    if (QLayout* const frame = view()->parentWidget()->layout()) {
        for (int i = 0; i < frame->count(); ++i) {
            if (QSpacerItem* const margin = frame->itemAt(i)->spacerItem()) {
                margin->changeSize(0, 0);
            }
        }
        frame->invalidate();
    }
    QComboBox::showPopup();
}

void TLComboBox::paintEvent(QPaintEvent*)
{
    const QPalette& colors = palette();
    const bool active = hasFocus() || view()->isVisible();
    QColor fill = ThemedColor(m_fieldColor, colors, QPalette::Base);
    QColor border = ThemedColor(m_borderColor, colors, QPalette::Dark);
    QColor text = ThemedColor(m_textColor, colors, QPalette::Text);
    if (!isEnabled()) {
        fill = ThemedColor(m_disabledFieldColor, colors, QPalette::Window);
        border = ThemedColor(m_disabledBorderColor, colors, QPalette::Mid);
        text = ThemedColor(m_disabledTextColor, colors, QPalette::Text);
    } else if (active) {
        border = ThemedColor(m_focusColor, colors, QPalette::Highlight);
    } else if (underMouse()) {
        border = ThemedColor(m_hoverColor, colors, QPalette::Shadow);
    }

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    FieldFrame::PaintFill(&painter, rect(), fill);
    FieldFrame::PaintBorder(&painter, rect(), border, active);

    const QRect inner = rect().adjusted(Scaled(Inset), 0, -Scaled(Inset), 0);
    const QRect arrow = QStyle::alignedRect(layoutDirection(), Qt::AlignRight | Qt::AlignVCenter,
                                            QSize(Scaled(ArrowWidth), Scaled(ArrowWidth) / 2), inner);
    const QPoint arrowLines[] = {arrow.topLeft(), QPoint(arrow.center().x(), arrow.bottom()),
                                 arrow.topRight()};
    painter.setPen(QPen(text, Scaled(3) / 2.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(arrowLines, 3);

    painter.setPen(text);
    const QRect label =
        QStyle::visualRect(layoutDirection(), inner, inner.adjusted(0, 0, -Scaled(ArrowWidth + Gap), 0));
    const int current = currentIndex();
    ComboItemDelegate::PaintItem(&painter, label, layoutDirection(), iconSize(), itemIcon(current),
                                 currentText(), isEnabled());
}

void TLComboBox::wheelEvent(QWheelEvent* event)
{
    // Without the focus, the user means the page that scrolls under the mouse.
    if (hasFocus()) {
        QComboBox::wheelEvent(event);
    } else {
        event->ignore();
    }
}

void TLComboBox::AdjustForScale()
{
    const bool apps = m_business == ComboBusiness::Apps;
    static_cast<ComboItemDelegate*>(itemDelegate())->SetRowHeight(apps ? 36 : 30);
    setMaxVisibleItems(apps ? 7 : 10);
    view()->doItemsLayout();
    updateGeometry();
}
