#include "TabListPopup.h"

#include "look/Scaled.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QScreen>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QVBoxLayout>

namespace {

constexpr int Width = 360;    // [px]
constexpr int LowestRow = 24; // [px]
constexpr int Gap = 8;        // around and between the parts [px]
constexpr int RowsSeen = 12;

} // namespace

TabListPopup::TabListPopup(const QStringList& titles, int current, QWidget* parent)
    : QFrame(parent, Qt::Popup), m_search(new QLineEdit(this)), m_list(new QListWidget(this))
{
    setObjectName(QStringLiteral("tab_list"));
    setAttribute(Qt::WA_DeleteOnClose);
    m_search->setObjectName(QStringLiteral("tab_list_search"));
    m_search->setPlaceholderText(tr("Search tabs"));
    m_search->setAccessibleName(tr("Search tabs"));
    m_search->installEventFilter(this);
    m_list->setObjectName(QStringLiteral("tab_list_view"));
    m_list->setAccessibleName(tr("All tabs"));
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->setUniformItemSizes(true);
    m_list->setTextElideMode(Qt::ElideRight);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setFocusPolicy(Qt::NoFocus);
    m_list->setMouseTracking(true);
    m_list->addItems(titles);
    m_list->setCurrentRow(current);
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_search);
    column->addWidget(m_list);
    connect(m_search, &QLineEdit::textChanged, this, &TabListPopup::Narrow);
    connect(m_search, &QLineEdit::returnPressed, this, &TabListPopup::Choose);
    connect(m_list, &QListWidget::itemClicked, this, &TabListPopup::Choose);
    TabListPopup::AdjustForDpi();
}

void TabListPopup::PopUp(QWidget* anchor)
{
    m_anchor = anchor;
    ensurePolished();
    Place();
    show();
    m_search->setFocus(Qt::PopupFocusReason);
    m_list->scrollToItem(m_list->currentItem(), QAbstractItemView::PositionAtCenter);
}

void TabListPopup::AdjustForDpi()
{
    layout()->setContentsMargins(Scaled(QMargins(Gap, Gap, Gap, Gap)));
    layout()->setSpacing(Scaled(Gap));
    Place();
}

bool TabListPopup::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_search && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Down || key == Qt::Key_Up) {
            const int step = key == Qt::Key_Down ? 1 : -1;
            for (int row = m_list->currentRow() + step; row >= 0 && row < m_list->count(); row += step) {
                if (!m_list->item(row)->isHidden()) {
                    m_list->setCurrentRow(row);
                    break;
                }
            }
            return true;
        }
    }
    return QFrame::eventFilter(watched, event);
}

void TabListPopup::Place()
{
    if (!m_anchor) {
        return;
    }
    const QRect screen = m_anchor->screen()->availableGeometry();
    const int rows = qBound(1, m_list->count(), RowsSeen);
    m_list->setFixedHeight(rows * qMax(m_list->sizeHintForRow(0), Scaled(LowestRow)) + Scaled(4));
    layout()->activate(); // otherwise the former height stays the minimum
    setFixedWidth(qMin(Scaled(Width), screen.width()));
    adjustSize();
    QPoint place = m_anchor->mapToGlobal(QPoint(m_anchor->width() - width(), m_anchor->height() + Scaled(4)));
    place.setX(qBound(screen.left(), place.x(), screen.right() - width()));
    place.setY(qBound(screen.top(), place.y(), screen.bottom() - height()));
    move(place);
}

void TabListPopup::Narrow(const QString& text)
{
    int first = -1;
    for (int row = 0; row < m_list->count(); ++row) {
        const bool fits = m_list->item(row)->text().contains(text.trimmed(), Qt::CaseInsensitive);
        m_list->item(row)->setHidden(!fits);
        if (fits && first < 0) {
            first = row;
        }
    }
    m_list->setCurrentRow(first);
}

void TabListPopup::Choose()
{
    const int row = m_list->currentRow();
    if (row < 0) {
        return;
    }
    close();
    Q_EMIT SigChosen(row);
}
