#include "TabButton.h"

#include "look/Scaled.h"
#include "look/SymbolicIcon.h"

#include <QtCore/QEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QStyleOptionButton>
#include <QtWidgets/QStylePainter>
#include <QtWidgets/QToolButton>

namespace {

constexpr int Height = 36;    // [px]
constexpr int IconSize = 16;  // [px]
constexpr int CloseSize = 20; // [px]
constexpr int Edge = 12;      // left of the icon [px]
constexpr int CloseEdge = 6;  // right of the close button [px]
constexpr int Gap = 8;        // between icon, title and close button [px]
constexpr int SignSize = 14;  // in the close button [px]
constexpr int Turns = 12;     // positions of the loading sign

QIcon LoadingSign(int tick, const QColor& color, qreal ratio)
{
    const int line = Scaled(2);
    const int size = Scaled(IconSize) - 2 * line;
    QPixmap picture(ScaledSquare(IconSize) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, line, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(QRectF(line, line, size, size), -(tick % Turns) * 360 * 16 / Turns, 260 * 16);
    return QIcon(picture);
}

} // namespace

TabButton::TabButton(QWidget* parent) : QPushButton(parent), m_close(new QToolButton(this))
{
    setObjectName(QStringLiteral("tab_button"));
    setCheckable(true);
    setFocusPolicy(Qt::NoFocus);
    m_close->setObjectName(QStringLiteral("tab_close"));
    m_close->setIcon(SymbolicIcon::Make(QStringLiteral("close")));
    m_close->setAutoRaise(true);
    m_close->setFocusPolicy(Qt::NoFocus);
    connect(m_close, &QToolButton::clicked, this, &TabButton::SigCloseClicked);
    TabButton::AdjustForDpi();
    Retranslate();
}

void TabButton::SetItem(const TabStripItem& item)
{
    m_item = item;
    m_close->setVisible(item.closable);
    setAccessibleName(item.title);
    UpdateToolTip();
    updateGeometry();
    update();
}

void TabButton::SetTick(int tick)
{
    if (!m_item.loading || tick == m_tick) {
        return;
    }
    m_tick = tick;
    update();
}

void TabButton::AdjustForDpi()
{
    setIconSize(ScaledSquare(IconSize));
    m_close->setIconSize(ScaledSquare(SignSize));
    m_close->setFixedSize(ScaledSquare(CloseSize));
    PlaceClose();
    UpdateToolTip();
    updateGeometry();
    update();
}

QSize TabButton::sizeHint() const
{
    const int text = fontMetrics().horizontalAdvance(m_item.title);
    return {Scaled(Edge) + Scaled(IconSize) + Scaled(Gap) + text + Scaled(Gap) +
                (m_item.closable ? Scaled(CloseSize) + Scaled(CloseEdge) : Scaled(Edge)),
            Scaled(Height)};
}

void TabButton::changeEvent(QEvent* event)
{
    QPushButton::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        Retranslate();
    }
}

bool TabButton::event(QEvent* event)
{
    if (event->type() == QEvent::Polish) {
        UpdateToolTip();
    }
    return QPushButton::event(event);
}

void TabButton::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.icon = QIcon();
    option.text.clear();
    painter.drawControl(QStyle::CE_PushButton, option);

    // The style's own label would centre icon and title together; a tab has them at its left edge.
    const QIcon icon = m_item.loading
                           ? LoadingSign(m_tick, palette().color(QPalette::Highlight), devicePixelRatioF())
                           : m_item.icon;
    const QRect iconRect(Scaled(Edge), (height() - Scaled(IconSize)) / 2, Scaled(IconSize), Scaled(IconSize));
    icon.paint(&painter, iconRect);
    option.rect = QRect(iconRect.right() + 1 + Scaled(Gap), 0, GetTextRoom(), height());
    option.text = fontMetrics().elidedText(m_item.title, Qt::ElideRight, option.rect.width());
    option.text.replace(QLatin1Char('&'), QLatin1String("&&"));
    painter.drawControl(QStyle::CE_PushButtonLabel, option);
}

void TabButton::resizeEvent(QResizeEvent* event)
{
    QPushButton::resizeEvent(event);
    PlaceClose();
    UpdateToolTip();
}

void TabButton::PlaceClose()
{
    m_close->move(width() - Scaled(CloseEdge) - Scaled(CloseSize), (height() - Scaled(CloseSize)) / 2);
}

int TabButton::GetTextRoom() const
{
    const int right =
        m_item.closable ? Scaled(CloseSize) + Scaled(CloseEdge) + Scaled(Gap) / 2 : Scaled(Edge);
    return qMax(0, width() - Scaled(Edge) - Scaled(IconSize) - Scaled(Gap) - right);
}

void TabButton::Retranslate()
{
    m_close->setToolTip(tr("Close tab"));
    m_close->setAccessibleName(tr("Close tab"));
}

void TabButton::UpdateToolTip()
{
    // Escaped: titles come from web pages and must not be read as rich text.
    const bool elided = fontMetrics().horizontalAdvance(m_item.title) > GetTextRoom();
    setToolTip(elided ? QStringLiteral("<p style='white-space:pre-wrap'>%1</p>")
                            .arg(m_item.title.left(400).toHtmlEscaped())
                      : QString());
}
