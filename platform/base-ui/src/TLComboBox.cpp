#include "base-ui/TLComboBox.h"

#include "ComboItemDelegate.h"
#include "ScaleWatch.h"
#include "Scaled.h"

#include <QtGui/QWheelEvent>
#include <QtWidgets/QLayout>
#include <QtWidgets/QListView>
#include <QtWidgets/QStylePainter>

TLComboBox::TLComboBox(QWidget* parent) : QComboBox(parent)
{
    // A list of its own, for only then does the theme reach the rows.
    auto* list = new QListView(this);
    list->setTextElideMode(Qt::ElideRight);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setView(list);
    setItemDelegate(new ComboItemDelegate(this));

    setFocusPolicy(Qt::StrongFocus);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(8);
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
    return {QComboBox::sizeHint().width(), height};
}

QSize TLComboBox::minimumSizeHint() const
{
    return {QComboBox::minimumSizeHint().width(), sizeHint().height()};
}

void TLComboBox::showPopup()
{
    // Made before the theme is known, the list took itself for a menu: it has no scroll bar, and loses the
    // height of a menu's margins.
    view()->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    if (QLayout* const frame = view()->parentWidget()->layout()) {
        for (int i = 0; i < frame->count(); ++i) {
            if (QSpacerItem* const margin = frame->itemAt(i)->spacerItem())
                margin->changeSize(0, 0);
        }
        frame->invalidate();
    }
    QComboBox::showPopup();
}

void TLComboBox::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    const QRect field =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    const int room = field.width() - (option.currentIcon.isNull() ? 0 : option.iconSize.width() + Scaled(4));
    option.currentText = option.fontMetrics.elidedText(option.currentText, Qt::ElideRight, room);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

void TLComboBox::wheelEvent(QWheelEvent* event)
{
    // Without the focus the user means the page that scrolls under the mouse.
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

void TLComboBox::AdjustForScale()
{
    const bool apps = m_business == ComboBusiness::Apps;
    static_cast<ComboItemDelegate*>(itemDelegate())->SetRowHeight(apps ? 36 : 30);
    setMaxVisibleItems(apps ? 7 : 10);
    view()->doItemsLayout();
    updateGeometry();
}
