#pragma once

#include "notices/NoticeAction.h"
#include "notices/NoticeKind.h"

#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtWidgets/QWidget>

#include <functional>

class NoticeItem;
class QVBoxLayout;

/// Bars below one another, each with a text and a close button. Takes no room while there are none. Texts are
/// plain text. GUI thread.
class NoticeBar final : public QWidget
{
    Q_OBJECT

public:
    explicit NoticeBar(QWidget* parent = nullptr);
    ~NoticeBar() override;

    /// Shows a bar, in place of one with the same id.
    void Show(const QString& id, NoticeKind kind, const QString& text);
    /// The same with buttons. Calls `dismissed`, which may be empty, when the user closes the bar without
    /// using a button.
    void Show(const QString& id, NoticeKind kind, const QString& text, const QVector<NoticeAction>& actions,
              const std::function<void()>& dismissed = {});
    /// Changes the text of a bar, which keeps its buttons.
    void SetText(const QString& id, const QString& text);
    /// Shows progress on a bar: `percent` from 0 to 100, below 0 to remove the line.
    void SetProgress(const QString& id, int percent);
    /// Removes the bar, if there is one.
    void Hide(const QString& id);

    bool IsShown(const QString& id) const;
    /// The text of a bar; empty when there is none.
    QString GetText(const QString& id) const;
    int GetCount() const noexcept;

Q_SIGNALS:
    /// The bar is gone, by the user or by `Hide`.
    void SigHidden(const QString& id);

private:
    QHash<QString, NoticeItem*> m_items;
    QVBoxLayout* m_layout;
};
