#include "WebEngineDownloadTurn.h"

#include <utility>

namespace {

constexpr int MostAside = 20; // files

} // namespace

WebEngineDownloadTurn::WebEngineDownloadTurn(const Fetch& fetch, const Ask& ask) : m_fetch(fetch), m_ask(ask)
{}

bool WebEngineDownloadTurn::Begin(const QUrl& url, const QString& name)
{
    if (!m_open && !m_declined) {
        m_open = true;
        return true;
    }
    if (m_refused)
        return false;
    const auto file = qMakePair(url, name);
    if (m_aside.size() < MostAside && !m_aside.contains(file))
        m_aside << file;
    if (!m_allowed && !std::exchange(m_asked, true))
        m_ask();
    return false;
}

void WebEngineDownloadTurn::End(bool accepted)
{
    m_open = false;
    if (!accepted) {
        m_declined = true;
        if (m_allowed)
            m_aside.clear();
        m_allowed = false;
    }
    GoOn();
}

void WebEngineDownloadTurn::Answer(bool allow)
{
    m_asked = false;
    m_allowed = allow;
    m_refused = !allow;
    m_declined = m_declined && !allow;
    if (!allow)
        m_aside.clear();
    GoOn();
}

void WebEngineDownloadTurn::NoteInput()
{
    m_declined = false;
    m_refused = false;
}

void WebEngineDownloadTurn::Reset()
{
    NoteInput();
    m_asked = false;
    m_allowed = false;
    m_aside.clear();
}

void WebEngineDownloadTurn::GoOn()
{
    if (!m_allowed || m_open || m_aside.isEmpty())
        return;
    const auto file = m_aside.takeFirst();
    m_fetch(file.first, file.second);
}
