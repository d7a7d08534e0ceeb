#pragma once

#include "http/HttpExport.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// Successful replies kept in a folder of the client's profile, one file per key, replaced as a whole so
/// that an end at any moment leaves the old or the new reply. Bounded: at most 200 replies, oldest out
/// first; damaged files count as absent. GUI thread; a reply is small.
class TL_HTTP_EXPORT HttpReplyCache final
{
public:
    /// Makes the folder on the first `Save`.
    explicit HttpReplyCache(const QString& folder);

    /// False, with a warning in the log, when the reply cannot be stored; an older one then stays.
    bool Save(const QString& key, const QByteArray& reply);
    /// The kept reply; null QByteArray when there is none for this key.
    QByteArray Load(const QString& key) const;
    void Clear();

private:
    QString FileOf(const QString& key) const;

    QString m_folder;
};
