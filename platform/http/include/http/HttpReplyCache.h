#pragma once

#include "http/HttpExport.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// Keeps successful replies in a folder of the client's profile, one file per key. Replaces a file as a
/// whole, so that the old or the new reply survives an end at any moment. Keeps at most 200 replies and drops
/// the oldest first; damaged files count as absent. GUI thread; a reply is small.
class TL_HTTP_EXPORT HttpReplyCache final
{
public:
    /// Makes the folder on the first `Save`.
    explicit HttpReplyCache(const QString& folder);

    /// False, with a warning in the log, when the reply cannot be stored; an older one stays.
    bool Save(const QString& key, const QByteArray& reply);
    /// The kept reply; null QByteArray when there is none for this key.
    QByteArray Load(const QString& key) const;
    void Clear();

private:
    QString FileOf(const QString& key) const;

    QString m_folder;
};
