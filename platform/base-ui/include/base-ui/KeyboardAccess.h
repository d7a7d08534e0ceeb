#pragma once

#include "base-ui/BaseUiExport.h"

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QVector>

#include <functional>

class QLabel;
class QWidget;

/// Gives a keyboard way in to what a form made for the mouse alone, without a change to the form:
/// - A label that takes the focus without text to select in it (the theme says so, by
///   `qproperty-focusPolicy`) counts as a button: Enter and Space press the mouse on it, and screen readers
///   see a button.
/// - A row shows what it shows under the mouse also while the keyboard's focus is in it, and lets the
///   focus in when only what it shows then can have it.
/// - Tab goes in reading order, as the layouts have it, whatever the order of making was.
/// - When a row goes away with the focus in it, the focus goes to the row in its place; when only the button
///   that has it hides, the focus stays in the row, and when the row hides what it shows under the mouse, it
///   shows that again and the button has the focus.
/// A child of `root`, in force for as long as it lives. GUI thread.
class TL_BASE_UI_EXPORT KeyboardAccess final : public QObject
{
    Q_OBJECT

public:
    /// `isRow` tells which descendants of `root` are rows; empty: none.
    explicit KeyboardAccess(QWidget* root, std::function<bool(const QWidget*)> isRow = {});
    ~KeyboardAccess() override;

    /// `root` and all its descendants in the order in which a person reads them: layouts by their places,
    /// what stands in no layout after that in the order of making. Hidden ones included, windows not.
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
    QPointer<QWidget> m_row;      ///< the row revealed because the focus is in it
    QPointer<QWidget> m_prepared; ///< revealed because the focus is about to come into it
    int m_rowIndex = -1;          ///< of the row that has the focus, -1: none
    bool m_byKeyboard = false;
    bool m_sending = false;
};
