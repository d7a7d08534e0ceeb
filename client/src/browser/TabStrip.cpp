#include "TabStrip.h"

#include "TabButton.h"
#include "look/Scaled.h"
#include "look/SymbolicIcon.h"

#include <QtCore/QEvent>
#include <QtCore/QTimerEvent>
#include <QtGui/QContextMenuEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QToolButton>

namespace {

constexpr int Height = 44;     // [px]
constexpr int TabTop = 6;      // above the tabs [px]
constexpr int TabHeight = 38;  // [px]
constexpr int Gap = 2;         // between tabs [px]
constexpr int Edge = 8;        // at both ends of the strip [px]
constexpr int Narrowest = 148; // [px]
constexpr int Widest = 232;    // [px]
constexpr int ButtonSize = 28; // of the buttons beside the tabs [px]
constexpr int IconSize = 18;   // on these buttons [px]
constexpr int ButtonGap = 4;   // around these buttons [px]
constexpr int TickTime = 90;   // [ms]
constexpr int EdgeTime = 30;   // between scroll steps while a tab is dragged to the edge [ms]
constexpr int EdgeStep = 16;   // [px]

QToolButton* MakeButton(QWidget* parent, const QString& name, const QString& icon)
{
    auto* button = new QToolButton(parent);
    button->setObjectName(name);
    button->setProperty("strip", true);
    button->setIcon(SymbolicIcon::Make(icon));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

} // namespace

TabStrip::TabStrip(QWidget* parent)
    : QWidget(parent)
    , m_viewport(new QWidget(this))
    , m_left(MakeButton(this, QStringLiteral("strip_left"), QStringLiteral("chevron-left")))
    , m_right(MakeButton(this, QStringLiteral("strip_right"), QStringLiteral("chevron-right")))
    , m_add(MakeButton(this, QStringLiteral("strip_add"), QStringLiteral("plus")))
    , m_list(MakeButton(this, QStringLiteral("strip_list"), QStringLiteral("chevron-down")))
{
    setObjectName(QStringLiteral("tab_strip"));
    setAttribute(Qt::WA_StyledBackground);
    m_left->setAutoRepeat(true);
    m_right->setAutoRepeat(true);
    connect(m_left, &QToolButton::clicked, this, [this] { ScrollTo(m_offset - m_tabWidth); });
    connect(m_right, &QToolButton::clicked, this, [this] { ScrollTo(m_offset + m_tabWidth); });
    connect(m_add, &QToolButton::clicked, this, &TabStrip::SigNewTabRequested);
    connect(m_list, &QToolButton::clicked, this, [this] { Q_EMIT SigListRequested(m_list); });
    TabStrip::AdjustForDpi();
    Retranslate();
}

TabStrip::~TabStrip() = default;

int TabStrip::GetCount() const noexcept
{
    return m_entries.size();
}

int TabStrip::GetCurrent() const noexcept
{
    return m_current;
}

const TabStripItem& TabStrip::GetItem(int index) const
{
    return m_entries.at(index).item;
}

TabButton* TabStrip::GetButton(int index) const
{
    return m_entries.value(index).button;
}

void TabStrip::Insert(int index, const TabStripItem& item)
{
    EndDrag();
    Entry entry;
    entry.item = item;
    m_entries.insert(index, entry);
    if (m_entries.size() > 1 && index <= m_current) {
        ++m_current;
    }
    if (index >= 1 && index < m_firstSeen) {
        ++m_firstSeen;
    }
    if (index >= 1 && index <= m_lastSeen) {
        ++m_lastSeen;
    }
    Arrange();
}

void TabStrip::Remove(int index)
{
    EndDrag();
    ReleaseButton(m_entries[index]);
    m_entries.remove(index);
    if (index < m_current || m_current >= m_entries.size()) {
        --m_current;
    }
    if (index < m_firstSeen) {
        --m_firstSeen;
    }
    if (index <= m_lastSeen) {
        --m_lastSeen;
    }
    Arrange();
}

void TabStrip::Move(int from, int to)
{
    if (from == to) {
        return;
    }
    m_entries.move(from, to);
    const auto follow = [from, to](int index) {
        if (index == from) {
            return to;
        }
        if (from < index && index <= to) {
            return index - 1;
        }
        if (to <= index && index < from) {
            return index + 1;
        }
        return index;
    };
    m_current = follow(m_current);
    if (m_dragged >= 0) {
        m_dragged = follow(m_dragged);
    }
    if (m_pressed >= 0) {
        m_pressed = follow(m_pressed);
    }
    // The moved tab may come from far away: look at all of them once.
    for (int i = 1; i < m_entries.size(); ++i) {
        if (i != m_dragged) {
            ReleaseButton(m_entries[i]);
        }
    }
    m_firstSeen = m_dragged > 0 ? m_dragged : 1;
    m_lastSeen = m_dragged > 0 ? m_dragged : 0;
    ArrangeScrolled();
}

void TabStrip::SetItem(int index, const TabStripItem& item)
{
    Entry& entry = m_entries[index];
    entry.item = item;
    if (entry.button) {
        entry.button->SetItem(item);
    }
    if (index == 0) {
        Arrange();
    }
    UpdateTicking();
}

void TabStrip::SetCurrent(int index)
{
    m_current = index;
    Reveal(index);
    for (int i = 0; i < m_entries.size(); ++i) {
        if (i > 0 && (i < m_firstSeen || i > m_lastSeen)) {
            continue;
        }
        if (TabButton* button = m_entries.at(i).button) {
            button->setChecked(i == m_current);
            button->setFocusPolicy(i == m_current ? Qt::TabFocus : Qt::NoFocus);
        }
    }
}

int TabStrip::GetFirstSeen() const noexcept
{
    return m_firstSeen;
}

int TabStrip::GetLastSeen() const noexcept
{
    return m_lastSeen;
}

void TabStrip::AdjustForDpi()
{
    const int before = m_tabWidth;
    setFixedHeight(Scaled(Height));
    for (QToolButton* button : {m_left, m_right, m_add, m_list}) {
        button->setIconSize(ScaledSquare(IconSize));
        button->setFixedSize(ScaledSquare(ButtonSize));
    }
    Arrange();
    if (m_tabWidth != before) {
        Reveal(m_current);
    }
}

void TabStrip::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        Retranslate();
    } else if (event->type() == QEvent::FontChange) {
        Arrange();
    }
}

bool TabStrip::eventFilter(QObject* watched, QEvent* event)
{
    const int index = IndexOf(watched);
    if (index < 0) {
        return QWidget::eventFilter(watched, event);
    }
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        return HandleMouse(index, event);
    case QEvent::KeyPress:
        return HandleKey(index, static_cast<QKeyEvent*>(event)->key());
    case QEvent::ContextMenu:
        Q_EMIT SigContextMenuRequested(index, static_cast<QContextMenuEvent*>(event)->globalPos());
        return true;
    default:
        return QWidget::eventFilter(watched, event);
    }
}

bool TabStrip::HandleMouse(int index, QEvent* event)
{
    auto* mouse = static_cast<QMouseEvent*>(event);
    TabButton* button = m_entries.at(index).button;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        if (mouse->button() == Qt::LeftButton) {
            m_pressed = index;
            m_pressPosition = mouse->globalPos();
            m_grip = mouse->x();
            Q_EMIT SigSelectRequested(index);
        } else if (mouse->button() == Qt::MiddleButton) {
            m_pressed = index;
        }
        return true;
    case QEvent::MouseMove:
        if (!(mouse->buttons() & Qt::LeftButton) || m_pressed < 1) {
            return true;
        }
        if (m_dragged < 0 &&
            (mouse->globalPos() - m_pressPosition).manhattanLength() >= QApplication::startDragDistance()) {
            TabButton* const pressed = GetButton(m_pressed);
            if (!pressed) {
                return true; // scrolled out of sight meanwhile
            }
            m_dragged = m_pressed;
            pressed->raise();
        }
        if (m_dragged > 0) {
            DragTo(m_viewport->mapFromGlobal(mouse->globalPos()).x() - m_grip);
        }
        return true;
    case QEvent::MouseButtonRelease: {
        const bool middleClick = mouse->button() == Qt::MiddleButton && m_pressed == index &&
                                 button->rect().contains(mouse->pos());
        m_pressed = -1;
        EndDrag();
        if (middleClick && m_entries.at(index).item.closable) {
            Q_EMIT SigCloseRequested(index);
        }
        return true;
    }
    default:
        return false;
    }
}

bool TabStrip::HandleKey(int index, int key)
{
    const int last = m_entries.size() - 1;
    const bool mirrored = isRightToLeft();
    int target = -1;
    if (key == Qt::Key_Left) {
        target = mirrored ? index + 1 : index - 1;
    } else if (key == Qt::Key_Right) {
        target = mirrored ? index - 1 : index + 1;
    } else if (key == Qt::Key_Home) {
        target = 0;
    } else if (key == Qt::Key_End) {
        target = last;
    } else if (key == Qt::Key_Delete && m_entries.at(index).item.closable) {
        Q_EMIT SigCloseRequested(index);
    } else {
        return false;
    }
    if (target >= 0 && target <= last) {
        Q_EMIT SigSelectRequested(target);
        if (TabButton* button = GetButton(m_current)) {
            button->setFocus(Qt::TabFocusReason);
        }
    }
    return true;
}

void TabStrip::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    Arrange();
    Reveal(m_current);
}

void TabStrip::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    Arrange();
    Reveal(m_current);
}

void TabStrip::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_ticking.timerId()) {
        ++m_tick;
        bool loading = m_entries.first().item.loading;
        m_entries.first().button->SetTick(m_tick);
        for (int i = m_firstSeen; i <= m_lastSeen; ++i) {
            loading = loading || m_entries.at(i).item.loading;
            if (m_entries.at(i).button) {
                m_entries.at(i).button->SetTick(m_tick);
            }
        }
        if (!loading) {
            m_ticking.stop();
        }
    } else if (event->timerId() == m_seenChange.timerId()) {
        m_seenChange.stop();
        Q_EMIT SigSeenChanged();
    } else if (event->timerId() == m_edgeScroll.timerId()) {
        const int before = m_offset;
        ScrollTo(m_offset + (m_dragX < 0 ? -Scaled(EdgeStep) : Scaled(EdgeStep)));
        if (m_offset == before) {
            m_edgeScroll.stop();
        } else {
            DragTo(m_dragX);
        }
    }
}

void TabStrip::wheelEvent(QWheelEvent* event)
{
    const QPoint angle = event->angleDelta();
    const int turn = qAbs(angle.x()) > qAbs(angle.y()) ? angle.x() : angle.y();
    ScrollTo(m_offset - turn * m_tabWidth / 120);
    event->accept();
}

TabButton* TabStrip::TakeButton()
{
    if (!m_spare.isEmpty()) {
        return m_spare.takeLast();
    }
    auto* button = new TabButton(m_viewport);
    button->installEventFilter(this);
    connect(button, &TabButton::SigCloseClicked, this, [this, button] {
        const int index = IndexOf(button);
        if (index >= 0) {
            Q_EMIT SigCloseRequested(index);
        }
    });
    // From the space bar or an accessibility tool; the mouse goes through the event filter.
    connect(button, &TabButton::clicked, this, [this, button] {
        const int index = IndexOf(button);
        if (index >= 0) {
            Q_EMIT SigSelectRequested(index);
        }
        button->setChecked(index == m_current);
    });
    return button;
}

void TabStrip::ReleaseButton(Entry& entry)
{
    if (!entry.button) {
        return;
    }
    entry.button->hide();
    m_spare.append(entry.button);
    entry.button = nullptr;
}

int TabStrip::IndexOf(const QObject* button) const
{
    if (!button || m_entries.isEmpty()) {
        return -1;
    }
    if (m_entries.first().button == button) {
        return 0;
    }
    for (int i = qMax(1, m_firstSeen); i <= qMin(m_lastSeen, m_entries.size() - 1); ++i) {
        if (m_entries.at(i).button == button) {
            return i;
        }
    }
    return -1;
}

int TabStrip::GetScrollRange() const
{
    return qMax(0, (m_entries.size() - 1) * m_tabWidth - m_viewport->width());
}

void TabStrip::ScrollTo(int offset)
{
    const int bounded = qBound(0, offset, GetScrollRange());
    if (bounded == m_offset) {
        return;
    }
    m_offset = bounded;
    ArrangeScrolled();
}

void TabStrip::Reveal(int index)
{
    if (index < 1 || m_tabWidth == 0) {
        return;
    }
    const int left = (index - 1) * m_tabWidth;
    if (left < m_offset) {
        ScrollTo(left);
    } else if (left + m_tabWidth > m_offset + m_viewport->width()) {
        ScrollTo(left + m_tabWidth - m_viewport->width());
    }
}

void TabStrip::Arrange()
{
    if (m_entries.isEmpty() || !isVisible()) {
        return;
    }

    Entry& home = m_entries.first();
    if (!home.button) {
        home.button = TakeButton();
        home.button->setParent(this);
        home.button->SetItem(home.item);
        home.button->show();
    }
    home.button->setChecked(m_current == 0);
    home.button->setFocusPolicy(m_current == 0 ? Qt::TabFocus : Qt::NoFocus);
    const int homeWidth = home.button->sizeHint().width();
    home.button->setGeometry(Scaled(Edge), Scaled(TabTop), homeWidth, Scaled(TabHeight));

    const int count = m_entries.size() - 1;
    const int buttonTop = Scaled(TabTop) + (Scaled(TabHeight) - Scaled(ButtonSize)) / 2;
    const int start = Scaled(Edge) + homeWidth + Scaled(Gap);
    const int end =
        width() - Scaled(Edge) - Scaled(ButtonSize) - Scaled(ButtonGap); // the list button stands at the end
    m_list->move(width() - Scaled(Edge) - Scaled(ButtonSize), buttonTop);

    const int room =
        end - start - Scaled(ButtonSize) - 2 * Scaled(ButtonGap); // and the "+" after the last tab
    const bool overflow = count * (Scaled(Narrowest) + Scaled(Gap)) > room;
    m_left->setVisible(overflow);
    m_right->setVisible(overflow);
    if (overflow) {
        m_tabWidth = Scaled(Narrowest) + Scaled(Gap);
        m_left->move(start, buttonTop);
        m_add->move(end - Scaled(ButtonSize), buttonTop);
        m_right->move(end - 2 * Scaled(ButtonSize), buttonTop);
        m_viewport->setGeometry(start + Scaled(ButtonSize) + Scaled(Gap), 0,
                                qMax(0, room - 2 * Scaled(ButtonSize)), height());
    } else {
        m_tabWidth =
            count == 0 ? Scaled(Widest) + Scaled(Gap) : qMin(Scaled(Widest) + Scaled(Gap), room / count);
        m_viewport->setGeometry(start, 0, count * m_tabWidth, height());
        m_add->move(start + count * m_tabWidth + Scaled(ButtonGap), buttonTop);
    }
    m_offset = qBound(0, m_offset, GetScrollRange());
    ArrangeScrolled();
}

void TabStrip::ArrangeScrolled()
{
    if (m_tabWidth == 0 || !isVisible()) {
        return;
    }
    const int last = m_entries.size() - 1;
    const int first = qMax(1, 1 + m_offset / m_tabWidth);
    const int end = qMin(last, 1 + (m_offset + m_viewport->width() - 1) / m_tabWidth);

    for (int i = qMax(1, m_firstSeen); i <= qMin(m_lastSeen, last); ++i) {
        if ((i < first || i > end) && i != m_dragged) {
            ReleaseButton(m_entries[i]);
        }
    }
    for (int i = first; i <= end; ++i) {
        Entry& entry = m_entries[i];
        if (!entry.button) {
            entry.button = TakeButton();
            entry.button->SetItem(entry.item);
        }
        entry.button->setChecked(i == m_current);
        entry.button->setFocusPolicy(i == m_current ? Qt::TabFocus : Qt::NoFocus);
        const int farthest = qMax(0, m_viewport->width() - (m_tabWidth - Scaled(Gap)));
        const int x = i == m_dragged ? qBound(0, m_dragX, farthest) : (i - 1) * m_tabWidth - m_offset;
        entry.button->setGeometry(x, Scaled(TabTop), m_tabWidth - Scaled(Gap), Scaled(TabHeight));
        entry.button->show();
    }
    m_firstSeen = m_dragged > 0 ? qMin(first, m_dragged) : first;
    m_lastSeen = m_dragged > 0 ? qMax(end, m_dragged) : end;
    m_left->setEnabled(m_offset > 0);
    m_right->setEnabled(m_offset < GetScrollRange());
    if (!m_seenChange.isActive()) {
        m_seenChange.start(0, this);
    }
    UpdateTicking();
}

void TabStrip::UpdateTicking()
{
    if (m_ticking.isActive() || !isVisible()) {
        return;
    }
    bool loading = m_entries.first().item.loading;
    for (int i = m_firstSeen; i <= m_lastSeen && !loading; ++i) {
        loading = m_entries.at(i).item.loading;
    }
    if (loading) {
        m_ticking.start(TickTime, this);
    }
}

void TabStrip::DragTo(int x)
{
    const int farthest = qMax(0, m_viewport->width() - (m_tabWidth - Scaled(Gap)));
    const bool atEdge = GetScrollRange() > 0 && (x < 0 || x > farthest);
    m_dragX = x;
    if (!atEdge) {
        m_edgeScroll.stop();
    } else if (!m_edgeScroll.isActive()) {
        m_edgeScroll.start(EdgeTime, this);
    }

    // The place whose middle the dragged tab covers.
    const int shown = qBound(0, x, farthest);
    const int target = qBound(1, 1 + (shown + m_offset + m_tabWidth / 2) / m_tabWidth, m_entries.size() - 1);
    if (target != m_dragged) {
        Q_EMIT SigMoveRequested(m_dragged, target);
    }
    TabButton* button = GetButton(m_dragged);
    if (button) {
        button->move(shown, Scaled(TabTop));
    }
}

void TabStrip::EndDrag()
{
    m_edgeScroll.stop();
    m_pressed = -1;
    if (m_dragged < 0) {
        return;
    }
    m_dragged = -1;
    ArrangeScrolled();
}

void TabStrip::Retranslate()
{
    const auto name = [](QToolButton* button, const QString& text) {
        button->setToolTip(text);
        button->setAccessibleName(text);
    };
    name(m_left, tr("Scroll tabs to the left"));
    name(m_right, tr("Scroll tabs to the right"));
    name(m_add, tr("New tab (Ctrl+T)"));
    name(m_list, tr("List of all tabs"));
    setAccessibleName(tr("Tabs"));
}
