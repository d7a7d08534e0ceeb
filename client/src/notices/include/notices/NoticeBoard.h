#pragma once

#include "notices/NoticeAction.h"
#include "notices/NoticeKind.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtCore/QVector>

#include <functional>
#include <vector>

class NoticeBar;

/// What the client tells the user in bars. A notice that comes before there is a window waits for it, and
/// all change their language with the client. GUI thread.
class NoticeBoard final : public QObject
{
    Q_OBJECT

public:
    /// A text in the language of the moment.
    using Text = std::function<QString()>;
    struct Action
    {
        Text text;
        std::function<void()> trigger;
    };

    explicit NoticeBoard(QObject* parent = nullptr);

    /// Shows what waits. Null, or the bar's end: the next ones wait.
    void SetBar(NoticeBar* bar);

    /// A notice with the same id is replaced.
    void Show(const QString& id, NoticeKind kind, const Text& text, const std::vector<Action>& actions = {});
    void Hide(const QString& id);
    void Retranslate();

Q_SIGNALS:
    void SigShown(const QString& id, const QString& text);
    /// Taken away, by the user or because it does not hold any longer.
    void SigGone(const QString& id);

private:
    struct Notice
    {
        QString id;
        NoticeKind kind;
        Text text;
        std::vector<Action> actions;
    };

    std::vector<Notice>::iterator Find(const QString& id);
    void ShowIn(NoticeBar* bar, const Notice& notice);
    void TakeGone(const QString& id);

    std::vector<Notice> m_notices;
    QPointer<NoticeBar> m_bar;
};
