#pragma once

#include <QtCore/QMap>
#include <QtCore/QSharedPointer>
#include <QtCore/QString>

class IHttpRequest;

/// The reads whose replies are kept for the time without a gateway. Once nobody changes anything any more,
/// those that are older than the last change are sent again, so that what is kept is what the user chose. GUI
/// thread.
class CachedReads final
{
public:
    /// A read starts; nothing when its reply is not kept. Returns what `TakeAnswer` wants.
    int TakeStart(const QSharedPointer<IHttpRequest>& request);
    /// The read that started then has been answered by the gateway.
    void TakeAnswer(const QSharedPointer<IHttpRequest>& request, int start);
    /// A change has succeeded.
    void TakeChange();

    /// Whether changes are to be expected. While not, what is too old is sent again at once.
    void SetOpen(bool open);

private:
    struct Read
    {
        QSharedPointer<IHttpRequest> request;
        int changes; ///< how many changes it knows of
    };

    void Refresh();

    QMap<QString, Read> m_reads; ///< by the key under which the reply is kept
    int m_changes = 0;           ///< so many have succeeded
    bool m_open = true;
};
