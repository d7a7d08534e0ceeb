#pragma once

#include <QtCore/QMap>
#include <QtCore/QSharedPointer>
#include <QtCore/QString>

class IHttpRequest;

/// The reads whose replies are cached for the time without a gateway. Once no more changes are expected,
/// sends those that are older than the last change again, so that the cache has what the user chose. GUI
/// thread.
class CachedReads final
{
public:
    /// A read starts. Ignores one whose reply is not cached. Returns what `HandleAnswer` wants.
    int HandleStart(const QSharedPointer<IHttpRequest>& request);
    /// The gateway has answered the read that started then.
    void HandleAnswer(const QSharedPointer<IHttpRequest>& request, int start);
    /// A change has succeeded.
    void HandleChange();

    /// Whether to expect changes. While closed, sends reads that are too old again at once.
    void SetOpen(bool open);

private:
    struct Read
    {
        QSharedPointer<IHttpRequest> request;
        int changes; ///< how many changes it knows of
    };

    void Refresh();

    QMap<QString, Read> m_reads; ///< by the key of the cached reply
    int m_changes = 0;           ///< so many have succeeded
    bool m_open = true;
};
