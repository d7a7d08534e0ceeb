#include "base-ui/KeyboardAccess.h"

#include "LabelAccessible.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QScopedValueRollback>
#include <QtGui/QCursor>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>

#include <algorithm>
#include <utility>

namespace {

bool TakesTab(const QWidget* widget)
{
    return (widget->focusPolicy() & Qt::TabFocus) != 0;
}

bool CanHaveFocusNow(const QWidget* widget)
{
    return TakesTab(widget) && widget->isEnabled() && widget->isVisible();
}

bool IsPressKey(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space || key == Qt::Key_Select;
}

/// The theme may have made the widget a button for screen readers.
void RefreshRole(QWidget* widget)
{
    auto* const label = qobject_cast<QLabel*>(widget);
    if (label != nullptr && KeyboardAccess::IsPressable(label)) {
        LabelAccessible::Refresh(label);
    }
}

/// `QWidget::underMouse` also follows the events that this class sends.
bool IsUnderMouse(const QWidget* widget)
{
    return widget->isVisible() && widget->rect().contains(widget->mapFromGlobal(QCursor::pos()));
}

void CollectFrom(QWidget* widget, QVector<QWidget*>* order);

void CollectFrom(QLayout* layout, QVector<QWidget*>* order)
{
    QVector<int> indexes(layout->count());
    for (int i = 0; i < indexes.size(); ++i) {
        indexes[i] = i;
    }
    if (auto* const grid = qobject_cast<QGridLayout*>(layout)) {
        const auto place = [grid](int index) {
            int row = 0;
            int column = 0;
            int rows = 0;
            int columns = 0;
            grid->getItemPosition(index, &row, &column, &rows, &columns);
            return std::make_pair(row, column);
        };
        std::stable_sort(indexes.begin(), indexes.end(),
                         [&place](int a, int b) { return place(a) < place(b); });
    }
    for (const int index : qAsConst(indexes)) {
        QLayoutItem* const item = layout->itemAt(index);
        if (item->widget() != nullptr) {
            CollectFrom(item->widget(), order);
        } else if (item->layout() != nullptr) {
            CollectFrom(item->layout(), order);
        }
    }
}

void CollectFrom(QWidget* widget, QVector<QWidget*>* order)
{
    order->append(widget);
    if (widget->layout() != nullptr) {
        CollectFrom(widget->layout(), order);
    }
    const QObjectList& children = widget->children();
    for (QObject* const child : children) {
        auto* const part = qobject_cast<QWidget*>(child);
        if (part != nullptr && !part->isWindow() && !order->contains(part)) {
            CollectFrom(part, order);
        }
    }
}

void FocusFirstOf(QWidget* row)
{
    const QVector<QWidget*> parts = KeyboardAccess::GetReadingOrder(row);
    const auto part = std::find_if(parts.begin(), parts.end(), CanHaveFocusNow);
    if (part != parts.end()) {
        (*part)->setFocus(Qt::OtherFocusReason);
    }
}

void OrderTabs(QWidget* root)
{
    QWidget* before = nullptr;
    const QVector<QWidget*> order = KeyboardAccess::GetReadingOrder(root);
    for (QWidget* const widget : order) {
        if (widget == root || !TakesTab(widget) || widget->focusProxy() != nullptr) {
            continue;
        }
        if (before != nullptr) {
            QWidget::setTabOrder(before, widget);
        }
        before = widget;
    }
}

} // namespace

KeyboardAccess::KeyboardAccess(QWidget* root, std::function<bool(const QWidget*)> isRow)
    : QObject(root), m_root(root), m_isRow(std::move(isRow))
{
    LabelAccessible::Install();
    qApp->installEventFilter(this);
}

KeyboardAccess::~KeyboardAccess() = default;

QVector<QWidget*> KeyboardAccess::GetReadingOrder(QWidget* root)
{
    QVector<QWidget*> order;
    CollectFrom(root, &order);
    return order;
}

bool KeyboardAccess::IsPressable(const QLabel* label)
{
    return TakesTab(label) && label->textInteractionFlags() == Qt::LinksAccessibleByMouse &&
           label->buddy() == nullptr;
}

void KeyboardAccess::PressMouseOn(QWidget* widget)
{
    const QPointer<QWidget> guard(widget);
    const QPoint middle = widget->rect().center();
    const QPoint global = widget->mapToGlobal(middle);
    QMouseEvent press(QEvent::MouseButtonPress, middle, global, Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &press);
    if (guard.isNull()) {
        return;
    }
    QMouseEvent release(QEvent::MouseButtonRelease, middle, global, Qt::LeftButton, Qt::NoButton,
                        Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &release);
}

bool KeyboardAccess::eventFilter(QObject* watched, QEvent* event)
{
    if (m_sending || !watched->isWidgetType()) {
        return false;
    }
    auto* const widget = static_cast<QWidget*>(watched);
    switch (event->type()) {
    case QEvent::KeyPress: {
        if (widget->window() != m_root->window()) {
            return false;
        }
        m_byKeyboard = true;
        TakeFocus(QApplication::focusWidget());
        auto* const key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab) {
            OrderTabs(m_root);
            const bool isBack = key->key() == Qt::Key_Backtab || key->modifiers().testFlag(Qt::ShiftModifier);
            PrepareRowBeside(widget, isBack ? -1 : 1);
        }
        if (!m_root->isAncestorOf(widget)) {
            return false;
        }
        auto* const label = qobject_cast<QLabel*>(widget);
        const bool presses = IsPressKey(key->key()) && label != nullptr && IsPressable(label);
        if (presses && !key->isAutoRepeat() && label->isEnabled()) {
            PressMouseOn(label);
        }
        return presses;
    }
    case QEvent::MouseButtonPress:
        // The mouse events that this class sends count as the keyboard's.
        if (event->spontaneous() && widget->window() == m_root->window()) {
            m_byKeyboard = false;
            Conceal();
        }
        return false;
    case QEvent::FocusIn:
        if (widget->window() == m_root->window()) {
            KeepInRow(widget);
            TakeFocus(widget);
        }
        return false;
    case QEvent::FocusOut:
        // Deferred: the focus may be moving within the row, or the row may be about to go.
        if (m_root->isAncestorOf(widget)) {
            QMetaObject::invokeMethod(this, &KeyboardAccess::RestoreFocus, Qt::QueuedConnection);
        }
        return false;
    case QEvent::Leave:
        return widget == m_row;
    case QEvent::Polish:
    case QEvent::StyleChange:
        if (m_root->isAncestorOf(widget)) {
            RefreshRole(widget);
        }
        return false;
    default:
        return false;
    }
}

QWidget* KeyboardAccess::RowOf(QWidget* widget) const
{
    if (!m_isRow || widget == nullptr || !m_root->isAncestorOf(widget)) {
        return nullptr;
    }
    for (QWidget* it = widget; it != m_root; it = it->parentWidget()) {
        if (m_isRow(it)) {
            return it;
        }
    }
    return nullptr;
}

QVector<QWidget*> KeyboardAccess::GetRows() const
{
    QVector<QWidget*> rows;
    if (m_isRow) {
        const QVector<QWidget*> order = GetReadingOrder(m_root);
        std::copy_if(order.begin(), order.end(), std::back_inserter(rows),
                     [this](QWidget* widget) { return widget != m_root && m_isRow(widget); });
    }
    return rows;
}

void KeyboardAccess::TakeFocus(QWidget* widget)
{
    QWidget* const row = RowOf(widget);
    if (m_prepared != nullptr && m_prepared != row) {
        SendLeave(m_prepared);
    }
    m_prepared = nullptr;
    m_rowIndex = row != nullptr ? GetRows().indexOf(row) : -1;
    if (row != m_row) {
        Conceal();
    }
    if (row != nullptr && m_byKeyboard && row != m_row) {
        m_row = row;
        if (!IsUnderMouse(row)) { // otherwise the row shows everything already
            SendEnter(row);
        }
    }
}

void KeyboardAccess::KeepInRow(QWidget* widget)
{
    // A focused button that hides itself sends the focus to the next row, although the user is not done with
    // this one.
    const QPointer<QWidget> before = m_lastFocus;
    const QPointer<QWidget> row = before != nullptr && !before->isVisible() ? RowOf(before) : nullptr;
    m_lastFocus = widget;
    if (row == nullptr || !row->isVisible()) {
        return;
    }
    // When the row hides more than the button, it shows it again under the mouse.
    const bool comesBack = m_byKeyboard && !before->isHidden();
    if (!comesBack && row == RowOf(widget)) {
        return;
    }
    QMetaObject::invokeMethod(
        this, [this, row, before, comesBack] { BringBack(row, comesBack ? before : nullptr); },
        Qt::QueuedConnection);
}

void KeyboardAccess::BringBack(QWidget* row, QWidget* button)
{
    if (row == nullptr || !m_root->isAncestorOf(row) || !row->isVisible()) {
        return;
    }
    if (button != nullptr) {
        m_row = row;
        SendEnter(row);
    }
    if (button != nullptr && CanHaveFocusNow(button)) {
        button->setFocus(Qt::OtherFocusReason);
    } else {
        FocusFirstOf(row);
    }
}

void KeyboardAccess::Conceal()
{
    QWidget* const row = m_row;
    m_row = nullptr;
    if (row == nullptr || IsUnderMouse(row)) {
        return;
    }
    SendLeave(row);
}

void KeyboardAccess::SendEnter(QWidget* row)
{
    const QPoint middle = row->rect().center();
    QEnterEvent enter(middle, row->mapTo(row->window(), middle), row->mapToGlobal(middle));
    const QScopedValueRollback<bool> sending(m_sending, true);
    QCoreApplication::sendEvent(row, &enter);
    row->update(); // the theme may style rows under the mouse
}

void KeyboardAccess::SendLeave(QWidget* row)
{
    QEvent leave(QEvent::Leave);
    const QScopedValueRollback<bool> sending(m_sending, true);
    QCoreApplication::sendEvent(row, &leave);
    row->update();
    // What hides now does so because the user has left it.
    if (m_lastFocus != nullptr && row->isAncestorOf(m_lastFocus) && !m_lastFocus->isVisible()) {
        m_lastFocus = nullptr;
    }
}

void KeyboardAccess::PrepareRowBeside(QWidget* focus, int step)
{
    const QVector<QWidget*> order = GetReadingOrder(m_root);
    int index = order.indexOf(focus);
    if (index < 0) {
        index = step > 0 ? 0 : order.size(); // coming in from outside
    }
    QWidget* const own = RowOf(focus);
    QWidget* passed = own;
    for (index += step; index > 0 && index < order.size(); index += step) {
        QWidget* const row = RowOf(order.at(index));
        if (row == nullptr || row == own) {
            if (CanHaveFocusNow(order.at(index))) {
                return;
            }
            continue;
        }
        if (row == passed || !row->isVisible()) {
            continue;
        }
        if (IsUnderMouse(row)) {
            return;
        }
        SendEnter(row);
        const QVector<QWidget*> parts = GetReadingOrder(row);
        if (std::any_of(parts.begin(), parts.end(), CanHaveFocusNow)) {
            m_prepared = row;
            return;
        }
        SendLeave(row); // even so, nothing in it takes the focus
        passed = row;
    }
}

void KeyboardAccess::RestoreFocus()
{
    QWidget* const window = m_root->window();
    if (!window->isActiveWindow()) {
        return;
    }
    if (window->focusWidget() != nullptr && window->focusWidget()->hasFocus()) {
        TakeFocus(window->focusWidget());
        return;
    }
    const QVector<QWidget*> rows = GetRows();
    if (m_rowIndex < 0 || rows.isEmpty()) {
        return;
    }
    FocusFirstOf(rows.at(std::min(m_rowIndex, rows.size() - 1)));
}
