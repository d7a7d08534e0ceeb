#include "CachedReads.h"

#include "CachedReplyResponse.h"

#include "http/IHttpManager.h"
#include "http/IHttpRequest.h"
#include "http/IRequestCacheMethod.h"

namespace {

constexpr int Timeout = 20000; // [ms]
constexpr int Attempts = 2;

QString KeyOf(const IHttpRequest* request)
{
    const auto* const cached = dynamic_cast<const IRequestCacheMethod*>(request);
    return cached != nullptr ? cached->GetCacheKey() : QString();
}

} // namespace

int CachedReads::HandleStart(const QSharedPointer<IHttpRequest>& request)
{
    const QString key = KeyOf(request.data());
    if (!key.isEmpty()) {
        const auto it = m_reads.find(key);
        if (it == m_reads.end()) {
            m_reads.insert(key, {request, m_changes});
        } else {
            it->request = request;
        }
    }
    return m_changes;
}

void CachedReads::HandleAnswer(const QSharedPointer<IHttpRequest>& request, int start)
{
    const auto it = m_reads.find(KeyOf(request.data()));
    if (it != m_reads.end()) {
        it->changes = qMax(it->changes, start);
    }
}

void CachedReads::HandleChange()
{
    ++m_changes;
    if (!m_open) {
        Refresh();
    }
}

void CachedReads::SetOpen(bool open)
{
    m_open = open;
    if (!open) {
        Refresh();
    }
}

void CachedReads::Refresh()
{
    for (Read& read : m_reads) {
        if (read.changes == m_changes) {
            continue;
        }
        read.changes = m_changes;
        // With its own response: the content of the first one is in use.
        IHttpManager::Instance()->Send(read.request, QSharedPointer<CachedReplyResponse>::create(), {},
                                       Timeout, Attempts);
    }
}
