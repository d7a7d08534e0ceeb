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

/// The client's notices. Those that come before there is a window wait for it, and all follow the client's
/// language. GUI thread.
class NoticeBoard final : public QObject
{
    Q_OBJECT

public:
    /// Returns the text in the current language.
    using Text = std::function<QString()>;
    struct Action
    {
        Text text;
        std::function<void()> trigger;
    };

    explicit NoticeBoard(QObject* parent = nullptr);

    /// Shows waiting notices in `bar`. With null, or once the bar is destroyed, notices wait again.
    void SetBar(NoticeBar* bar);

    /// Shows a notice, in place of one with the same id.
    void Show(const QString& id, NoticeKind kind, const Text& text, const std::vector<Action>& actions = {});
    void Hide(const QString& id);
    void Retranslate();

Q_SIGNALS:
    void SigShown(const QString& id, const QString& text);
    /// The user closed the notice, or it no longer applies.
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
    void HandleGone(const QString& id);

    std::vector<Notice> m_notices;
    QPointer<NoticeBar> m_bar;
};
