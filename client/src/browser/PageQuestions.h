#pragma once

#include "pages/PermissionRequest.h"

#include <QtCore/QObject>
#include <QtCore/QPair>
#include <QtCore/QString>
#include <QtCore/QUrl>
#include <QtCore/QVector>

class NoticeBar;

/// What a page asks the user, and what it was refused, in the bars of its tab.
class PageQuestions final : public QObject
{
    Q_OBJECT

public:
    /// `notices` outlives this object.
    explicit PageQuestions(NoticeBar* notices, QObject* parent = nullptr);

    /// Asks for consent. Closing the bar does not give it.
    void AskPermission(const PermissionRequest& request);
    /// Asks whether another program may open the address.
    void AskExternal(const QUrl& url);
    /// Says that the page wanted to go to an address that is not opened.
    void ShowBlocked(const QUrl& url);

    /// The page shows another address. `before` is the one that it showed.
    void HandleUrlChanged(const QUrl& url, const QUrl& before);
    /// The page is gone, and with it all that it asked.
    void HandlePageGone();

private:
    void Answer(const QString& id, bool allow);
    void WithdrawPermissions();

    NoticeBar* m_notices;
    QVector<QPair<QString, PermissionRequest>> m_permissions; // not answered yet, by their bars
};
