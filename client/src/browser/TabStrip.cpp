#include "TabStrip.h"

#include "TabButton.h"
#include "TabOrder.h"
#include "look/Scaled.h"
#include "look/SymbolicIcon.h"

#include <QtCore/QEvent>
#include <QtCore/QTimerEvent>
#include <QtGui/QContextMenuEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QToolButton>

namespace {

constexpr int IconSize = 18; // on the buttons beside the tabs [px]
constexpr int TickTime = 90; // [ms]
constexpr int EdgeTime = 30; // between scroll steps while a tab is dragged to the edge [ms]
constexpr int EdgeStep = 16; // [px]

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

/// Only the current tab is reached by the tab key.
void MarkCurrent(TabButton* button, bool current)
{
    button->setChecked(current);
    button->setFocusPolicy(current ? Qt::TabFocus : Qt::NoFocus);
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
    connect(m_left, &QToolButton::clicked, this, [this] { ScrollTo(m_offset - m_layout.GetTabWidth()); });
    connect(m_right, &QToolButton::clicked, this, [this] { ScrollTo(m_offset + m_layout.GetTabWidth()); });
    connect(m_add, &QToolButton::clicked, this, &TabStrip::SigNewTabRequested);
    connect(m_list, &QToolButton::clicked, this, [this] { Q_EMIT SigListRequested(m_list); });
    ConnectDrag();
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
    m_drag.End();
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
    m_drag.End();
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
    m_current = TabOrder::Follow(m_current, from, to);
    m_drag.Follow(from, to);
    const int dragged = m_drag.GetDragged();
    // The moved tab may come from far away: look at all of them once.
    for (int i = 1; i < m_entries.size(); ++i) {
        if (i != dragged) {
            ReleaseButton(m_entries[i]);
        }
    }
    m_firstSeen = dragged > 0 ? dragged : 1;
    m_lastSeen = dragged > 0 ? dragged : 0;
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
            MarkCurrent(button, i == m_current);
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
    const int before = m_layout.GetTabWidth();
    setFixedHeight(Scaled(TabStripLayout::Height));
    for (QToolButton* button : {m_left, m_right, m_add, m_list}) {
        button->setIconSize(ScaledSquare(IconSize));
        button->setFixedSize(ScaledSquare(TabStripLayout::ButtonSize));
    }
    Arrange();
    if (m_layout.GetTabWidth() != before) {
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
        return m_drag.HandleMouse(index, GetButton(index), event);
    case QEvent::KeyPress:
        return HandleKey(index, static_cast<QKeyEvent*>(event)->key());
    case QEvent::ContextMenu:
        Q_EMIT SigContextMenuRequested(index, static_cast<QContextMenuEvent*>(event)->globalPos());
        return true;
    default:
        return QWidget::eventFilter(watched, event);
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
        m_entries.first().button->SetTick(m_tick);
        for (int i = m_firstSeen; i <= m_lastSeen; ++i) {
            if (m_entries.at(i).button) {
                m_entries.at(i).button->SetTick(m_tick);
            }
        }
        if (!IsLoadingSeen()) {
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
    ScrollTo(m_offset - turn * m_layout.GetTabWidth() / 120);
    event->accept();
}

TabButton* TabStrip::ObtainButton()
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

void TabStrip::ScrollTo(int offset)
{
    const int bounded = qBound(0, offset, m_layout.GetScrollRange());
    if (bounded == m_offset) {
        return;
    }
    m_offset = bounded;
    ArrangeScrolled();
}

void TabStrip::Reveal(int index)
{
    if (index >= 1 && !m_layout.IsEmpty()) {
        ScrollTo(m_layout.GetOffsetFor(index, m_offset));
    }
}

void TabStrip::Arrange()
{
    if (m_entries.isEmpty() || !isVisible()) {
        return;
    }
    Entry& home = m_entries.first();
    if (!home.button) {
        home.button = ObtainButton();
        home.button->setParent(this);
        home.button->SetItem(home.item);
        home.button->show();
    }
    MarkCurrent(home.button, m_current == 0);
    m_layout = TabStripLayout(size(), home.button->sizeHint().width(), m_entries.size() - 1);
    home.button->setGeometry(m_layout.GetPinned());
    m_viewport->setGeometry(m_layout.GetViewport());
    m_list->move(m_layout.GetListButton());
    m_add->move(m_layout.GetAddButton());
    m_left->move(m_layout.GetLeftButton());
    m_right->move(m_layout.GetRightButton());
    m_left->setVisible(m_layout.DoTabsScroll());
    m_right->setVisible(m_layout.DoTabsScroll());
    m_offset = qBound(0, m_offset, m_layout.GetScrollRange());
    ArrangeScrolled();
}

void TabStrip::ArrangeScrolled()
{
    if (m_layout.IsEmpty() || !isVisible()) {
        return;
    }
    const int dragged = m_drag.GetDragged();
    const int first = m_layout.GetFirstSeen(m_offset);
    const int last = m_layout.GetLastSeen(m_offset);

    for (int i = qMax(1, m_firstSeen); i <= qMin(m_lastSeen, m_entries.size() - 1); ++i) {
        if ((i < first || i > last) && i != dragged) {
            ReleaseButton(m_entries[i]);
        }
    }
    for (int i = first; i <= last; ++i) {
        Entry& entry = m_entries[i];
        if (!entry.button) {
            entry.button = ObtainButton();
            entry.button->SetItem(entry.item);
        }
        MarkCurrent(entry.button, i == m_current);
        entry.button->setGeometry(i == dragged ? m_layout.GetDraggedTab(m_dragX)
                                               : m_layout.GetTab(i, m_offset));
        entry.button->show();
    }
    m_firstSeen = dragged > 0 ? qMin(first, dragged) : first;
    m_lastSeen = dragged > 0 ? qMax(last, dragged) : last;
    m_left->setEnabled(m_offset > 0);
    m_right->setEnabled(m_offset < m_layout.GetScrollRange());
    if (!m_seenChange.isActive()) {
        m_seenChange.start(0, this);
    }
    UpdateTicking();
}

bool TabStrip::IsLoadingSeen() const
{
    bool loading = m_entries.first().item.loading;
    for (int i = m_firstSeen; i <= m_lastSeen && !loading; ++i) {
        loading = m_entries.at(i).item.loading;
    }
    return loading;
}

void TabStrip::UpdateTicking()
{
    if (!m_ticking.isActive() && isVisible() && IsLoadingSeen()) {
        m_ticking.start(TickTime, this);
    }
}

void TabStrip::ConnectDrag()
{
    connect(&m_drag, &TabDrag::SigPressed, this, &TabStrip::SigSelectRequested);
    connect(&m_drag, &TabDrag::SigMiddleClicked, this, [this](int index) {
        if (m_entries.at(index).item.closable) {
            Q_EMIT SigCloseRequested(index);
        }
    });
    connect(&m_drag, &TabDrag::SigDragged, this,
            [this](const QPoint& globalPosition) { DragTo(m_viewport->mapFromGlobal(globalPosition).x()); });
    connect(&m_drag, &TabDrag::SigEnded, this, [this] {
        m_edgeScroll.stop();
        ArrangeScrolled();
    });
}

void TabStrip::DragTo(int x)
{
    m_dragX = x;
    if (!m_layout.IsBeyondEdge(x)) {
        m_edgeScroll.stop();
    } else if (!m_edgeScroll.isActive()) {
        m_edgeScroll.start(EdgeTime, this);
    }
    const int target = m_layout.GetPlaceAt(x, m_offset);
    if (target != m_drag.GetDragged()) {
        Q_EMIT SigMoveRequested(m_drag.GetDragged(), target);
    }
    if (TabButton* const button = GetButton(m_drag.GetDragged())) {
        button->move(m_layout.GetDraggedTab(x).topLeft());
        button->raise();
    }
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
