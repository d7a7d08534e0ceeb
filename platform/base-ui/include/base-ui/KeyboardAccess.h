#pragma once

#include "base-ui/BaseUiExport.h"

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QVector>

#include <functional>

class QLabel;
class QWidget;

/// Makes a form that was made for the mouse usable from the keyboard, without a change to the form:
/// - A label that takes the focus and has no text to select counts as a button (the theme says so, by
/// `qproperty-focusPolicy`): Enter and Space press the mouse on it, and screen readers see a button.
/// - A row shows what it shows under the mouse also while it has the keyboard's focus. It lets the focus in
/// even when only something that it shows then can take it.
/// - Tab follows the reading order of the layouts, not the order in which the widgets were made.
/// - When a row that has the focus goes away, the focus moves to the row in its place. When only the focused
/// button hides, the focus stays in the row; when the row hides what it shows under the mouse, it shows that
/// again and the button gets the focus.
///
/// A child of `root`, in force for as long as it lives. GUI thread.
class TL_BASE_UI_EXPORT KeyboardAccess final : public QObject
{
    Q_OBJECT

public:
    /// `isRow` tells which descendants of `root` are rows; empty: none are.
    explicit KeyboardAccess(QWidget* root, std::function<bool(const QWidget*)> isRow = {});
    ~KeyboardAccess() override;

    /// `root` and all its descendants in reading order: what is in a layout by its place, followed by the
    /// rest in the order of making. Includes hidden widgets, but no windows.
    static QVector<QWidget*> GetReadingOrder(QWidget* root);

    /// Whether the label counts as a button.
    static bool IsPressable(const QLabel* label);
    /// Presses and releases the left mouse button in the middle of `widget`.
    static void PressMouseOn(QWidget* widget);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* RowOf(QWidget* widget) const;
    QVector<QWidget*> GetRows() const;
    void TakeFocus(QWidget* widget);
    void KeepInRow(QWidget* widget);
    void BringBack(QWidget* row, QWidget* button);
    void Conceal();
    void SendEnter(QWidget* row);
    void SendLeave(QWidget* row);
    void PrepareRowBeside(QWidget* focus, int step);
    void RestoreFocus();

    QWidget* m_root;
    std::function<bool(const QWidget*)> m_isRow;
    QPointer<QWidget> m_lastFocus;
    QPointer<QWidget> m_row;      ///< the row that shows everything because it has the focus
    QPointer<QWidget> m_prepared; ///< the row that shows everything because the focus is about to enter it
    int m_rowIndex = -1;          ///< of the row that has the focus; -1: none
    bool m_byKeyboard = false;
    bool m_sending = false;
};
