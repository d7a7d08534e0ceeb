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

/// Calm bars below one another, each with a text and a close button; takes no room while it has none.
/// Texts are plain text. GUI thread.
class NoticeBar final : public QWidget
{
    Q_OBJECT

public:
    explicit NoticeBar(QWidget* parent = nullptr);
    ~NoticeBar() override;

    /// Shows a bar; a bar with the same id is replaced where it stands.
    void Show(const QString& id, NoticeKind kind, const QString& text);
    /// The same with buttons. `dismissed` is called when the user closes the bar without using a button;
    /// may be empty.
    void Show(const QString& id, NoticeKind kind, const QString& text, const QVector<NoticeAction>& actions,
              const std::function<void()>& dismissed = {});
    /// Another text on a shown bar, which keeps its buttons.
    void SetText(const QString& id, const QString& text);
    /// Puts a progress line on a shown bar; `percent` from 0 to 100, below 0 takes the line away.
    void SetProgress(const QString& id, int percent);
    /// Takes the bar away; nothing happens when there is none.
    void Hide(const QString& id);

    bool IsShown(const QString& id) const;
    /// The text of a shown bar, empty when there is none.
    QString GetText(const QString& id) const;
    int GetCount() const noexcept;

Q_SIGNALS:
    /// The bar is gone, whoever took it away.
    void SigHidden(const QString& id);

private:
    QHash<QString, NoticeItem*> m_items;
    QVBoxLayout* m_layout;
};
