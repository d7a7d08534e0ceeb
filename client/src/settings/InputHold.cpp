#include "InputHold.h"

#include "gateway/HttpManagerProxy.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QCoreApplication>
#include <QtCore/QThread>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <utility>

namespace {

QEvent::Type InputIsOver()
{
    static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
    return type;
}

bool IsMouse(QEvent::Type type)
{
    return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease ||
           type == QEvent::MouseButtonDblClick;
}

bool IsKey(QEvent::Type type)
{
    return type == QEvent::KeyPress || type == QEvent::KeyRelease;
}

bool IsTab(const QEvent& event)
{
    const int key = event.type() == QEvent::KeyPress ? static_cast<const QKeyEvent&>(event).key() : 0;
    return key == Qt::Key_Tab || key == Qt::Key_Backtab;
}

std::unique_ptr<QEvent> CopyOf(const QEvent& event)
{
    if (IsKey(event.type())) {
        const auto& key = static_cast<const QKeyEvent&>(event);
        return std::make_unique<QKeyEvent>(key.type(), key.key(), key.modifiers(), key.nativeScanCode(),
                                           key.nativeVirtualKey(), key.nativeModifiers(), key.text(),
                                           key.isAutoRepeat(), static_cast<ushort>(key.count()));
    }
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    return std::make_unique<QMouseEvent>(mouse.type(), mouse.localPos(), mouse.windowPos(), mouse.screenPos(),
                                         mouse.button(), mouse.buttons(), mouse.modifiers());
}

/// A click moves the focus at once, not when its turn comes: moving the focus is no change.
void GiveFocus(QWidget* widget)
{
    for (QWidget* it = widget; it != nullptr; it = it->parentWidget()) {
        if (it->isEnabled() && (it->focusPolicy() & Qt::ClickFocus) == Qt::ClickFocus) {
            it->setFocus(Qt::MouseFocusReason);
            return;
        }
        if (it->isWindow()) {
            return;
        }
    }
}

} // namespace

InputHold::InputHold(HttpManagerProxy* calls, QObject* parent) : QObject(parent)
{
    connect(calls, &HttpManagerProxy::SigStarted, this, &InputHold::HandleStart);
    connect(calls, &HttpManagerProxy::SigAnswered, this, &InputHold::HandleAnswer);
    connect(calls, &HttpManagerProxy::SigEnded, this, &InputHold::HandleEnd);
    qApp->installEventFilter(this);
}

InputHold::~InputHold() = default;

void InputHold::SetPage(QWidget* page)
{
    m_page = page;
    m_pageNumber += page != nullptr ? 1 : 0;
}

void InputHold::SetBlocked(bool blocked)
{
    if (m_blocked == blocked) {
        return;
    }
    m_blocked = blocked;
    if (!blocked) {
        Deliver();
    }
    Announce();
}

bool InputHold::IsBusy() const noexcept
{
    return IsInFlight() || HasHeld();
}

void InputHold::Drop()
{
    m_held.clear();
    Announce();
}

bool InputHold::eventFilter(QObject* watched, QEvent* event)
{
    const bool isKey = IsKey(event->type());
    if ((!isKey && !IsMouse(event->type())) || !watched->isWidgetType()) {
        return false;
    }
    auto* const widget = static_cast<QWidget*>(watched);
    if (!IsPartOfPage(widget)) {
        return false;
    }
    // Escape closes the dialog, which waits by itself for what is on its way.
    if (isKey && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        return false;
    }
    if (!m_page->isEnabled()) {
        // Event filters see the input of a widget even while it is disabled.
        event->accept();
        return true;
    }
    if (m_delivering > 0) {
        return false; // its turn has come, or it results from one whose turn has come
    }
    if (m_calls.isEmpty() && !m_blocked && m_held.empty()) {
        if (!isKey) {
            const auto& mouse = static_cast<const QMouseEvent&>(*event);
            const bool isPassedOn = IsPassedOn(widget, mouse);
            m_last = widget;
            m_lastTime = mouse.timestamp();
            m_lastType = mouse.type();
            if (!isPassedOn && !AcceptMouse(widget, mouse.type())) {
                event->accept();
                return true;
            }
        }
        BeginInput();
        return false;
    }
    Hold(widget, event);
    if (event->type() == QEvent::MouseButtonPress) {
        GiveFocus(widget);
    }
    event->accept();
    return true;
}

bool InputHold::event(QEvent* event)
{
    if (event->type() != InputIsOver()) {
        return QObject::event(event);
    }
    if (m_inputLevel >= 0 && m_delivering == 0 && !EndInputIfOver()) {
        // The page has a dialog open, and deals with input until its own event loop turns again.
        QAbstractEventDispatcher* const loop = QAbstractEventDispatcher::instance();
        for (const auto turn : {&QAbstractEventDispatcher::aboutToBlock, &QAbstractEventDispatcher::awake}) {
            connect(loop, turn, this, &InputHold::EndInputIfOver, Qt::UniqueConnection);
        }
    }
    return true;
}

bool InputHold::IsPartOfPage(const QWidget* widget) const
{
    if (m_page == nullptr) {
        return false;
    }
    for (const QWidget* it = widget; it != nullptr; it = it->parentWidget()) {
        if (it == m_page) {
            return true;
        }
    }
    return false;
}

void InputHold::BeginInput()
{
    m_inputLevel = QThread::currentThread()->loopLevel();
    QCoreApplication::postEvent(this, new QEvent(InputIsOver()), Qt::HighEventPriority);
}

bool InputHold::EndInputIfOver()
{
    if (QThread::currentThread()->loopLevel() > m_inputLevel) {
        return false;
    }
    EndInput();
    return true;
}

void InputHold::EndInput()
{
    m_inputLevel = -1;
    disconnect(QAbstractEventDispatcher::instance(), nullptr, this, nullptr);
}

bool InputHold::IsInInput() const
{
    return m_inputLevel >= 0 && QThread::currentThread()->loopLevel() == m_inputLevel;
}

/// Whether a part of this widget ignored the event, so that it comes by here.
bool InputHold::IsPassedOn(const QWidget* widget, const QMouseEvent& event) const
{
    return m_last != nullptr && widget->isAncestorOf(m_last) && m_lastType == event.type() &&
           m_lastTime == event.timestamp();
}

/// Whether the event, whose turn it is, may go to `widget`. A double click may hit a row that has come under
/// the mouse since its first half, and is not meant for that row.
bool InputHold::AcceptMouse(QWidget* widget, QEvent::Type type)
{
    if (type == QEvent::MouseButtonRelease) {
        return !std::exchange(m_releaseDropped, false);
    }
    m_releaseDropped = type == QEvent::MouseButtonDblClick && widget != m_pressed;
    if (type == QEvent::MouseButtonPress) {
        m_pressed = widget;
    }
    return !m_releaseDropped;
}

QWidget* InputHold::FindTarget(const Held& held) const
{
    if (!m_page->isEnabled()) {
        return nullptr;
    }
    // A key goes to what has the focus in the page when its turn comes, and out of the page only where a
    // Tab before it has led: the user may have gone on to another page meanwhile.
    QWidget* const focus = held.isKey ? QApplication::focusWidget() : nullptr;
    if (focus != nullptr && (IsPartOfPage(focus) || (m_tabbed && focus->window() == m_page->window()))) {
        return focus;
    }
    if (IsPartOfPage(held.target)) {
        return held.target;
    }
    // In the same page, a row that looks the same is another entry.
    return held.page != m_pageNumber ? held.place.FindIn(m_page) : nullptr;
}

void InputHold::Hold(QWidget* widget, const QEvent* event)
{
    m_held.push_back(
        {CopyOf(*event), widget, WidgetPlace(m_page, widget), m_pageNumber, IsKey(event->type())});
    Announce();
}

void InputHold::Deliver()
{
    if (m_delivering > 0) {
        return;
    }
    while (!m_held.empty() && m_calls.isEmpty() && !m_blocked && m_page != nullptr) {
        const Held held = std::move(m_held.front());
        m_held.pop_front();
        QWidget* const target = FindTarget(held);
        const bool isPress = held.event->type() == QEvent::MouseButtonPress ||
                             held.event->type() == QEvent::MouseButtonDblClick ||
                             held.event->type() == QEvent::KeyPress;
        if (!held.isKey && !AcceptMouse(target, held.event->type())) {
            continue;
        }
        if (target == nullptr) {
            if (isPress && !IsTab(*held.event) && held.page != m_pageNumber) {
                Q_EMIT SigInputLost();
            }
            continue;
        }
        const QPointer<InputHold> self(this);
        ++m_delivering;
        m_inputLevel = QThread::currentThread()->loopLevel();
        held.event->setAccepted(true);
        QCoreApplication::sendEvent(target, held.event.get()); // may open a dialog, and end this
        if (!self) {
            return;
        }
        EndInput();
        --m_delivering;
        m_tabbed = m_tabbed || IsTab(*held.event);
    }
    m_tabbed = m_tabbed && !m_held.empty();
}

void InputHold::Announce()
{
    if (m_wasBusy == IsBusy()) {
        return;
    }
    m_wasBusy = IsBusy();
    Q_EMIT SigBusyChanged(m_wasBusy);
}

void InputHold::HandleStart(quint64 call, bool isWrite)
{
    if (!isWrite || !IsInInput()) {
        return;
    }
    m_calls.insert(call);
    Announce();
}

void InputHold::HandleAnswer(quint64 call, bool succeeded, const QString& code, const QString& description)
{
    if (m_calls.contains(call) && !succeeded) {
        Q_EMIT SigChangeFailed(code, description);
    }
}

void InputHold::HandleEnd(quint64 call)
{
    if (!m_calls.remove(call)) {
        return;
    }
    Deliver();
    Announce();
}
