#pragma once

#include <QtWidgets/QStackedWidget>

/// The contents of the tabs, of which one is seen; empty for a tab that has none yet.
class PageStack final : public QStackedWidget
{
    Q_OBJECT

public:
    explicit PageStack(QWidget* parent = nullptr);

    /// Adds a content, unseen. Null and one that is there already are ignored. Not owned.
    void Add(QWidget* content);
    /// Null: nothing is seen.
    void Show(QWidget* content);
    /// Null is ignored.
    void Remove(QWidget* content);

protected:
    void changeEvent(QEvent* event) override;

private:
    void Retranslate();

    QWidget* m_empty;
};
