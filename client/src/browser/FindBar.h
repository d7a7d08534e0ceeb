#pragma once

#include "base/IDpiAdapter.h"

#include <QtWidgets/QWidget>

class QLabel;
class QLineEdit;
class QToolButton;

/// Search in a page. Enter finds the next match, Shift+Enter the previous one; Escape closes.
class FindBar final : public QWidget, public IDpiAdapter
{
    Q_OBJECT

public:
    explicit FindBar(QWidget* parent = nullptr);

    /// Shows the bar, ready for typing.
    void Open();
    void Close();
    void SetFound(int count);

    void AdjustForDpi() override;

Q_SIGNALS:
    /// An empty text ends the search.
    void SigFind(const QString& text, bool backward);
    void SigClosed();

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Retranslate();

    QLineEdit* m_text;
    QLabel* m_result;
    QToolButton* m_previous;
    QToolButton* m_next;
    QToolButton* m_close;
    int m_found = -1; // below 0 while nothing was searched for
};
