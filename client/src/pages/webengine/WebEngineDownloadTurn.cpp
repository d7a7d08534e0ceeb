#include "WebEngineDownloadTurn.h"

namespace {

constexpr int MostAside = 20; // files

} // namespace

WebEngineDownloadTurn::WebEngineDownloadTurn(const Fetch& fetch, const Ask& ask) : m_fetch(fetch), m_ask(ask)
{}

bool WebEngineDownloadTurn::Begin(const QUrl& url, const QString& name)
{
    if (!m_isOpen && !m_isDeclined) {
        m_isOpen = true;
        return true;
    }
    if (m_several == Several::Refused) {
        return false;
    }
    const auto file = qMakePair(url, name);
    if (m_aside.size() < MostAside && !m_aside.contains(file)) {
        m_aside << file;
    }
    if (m_several == Several::NotAsked) {
        m_several = Several::Asked;
        m_ask();
    }
    return false;
}

void WebEngineDownloadTurn::End(bool accepted)
{
    m_isOpen = false;
    if (!accepted) {
        m_isDeclined = true;
        if (m_several == Several::Allowed) {
            m_aside.clear();
            m_several = Several::NotAsked;
        }
    }
    GoOn();
}

void WebEngineDownloadTurn::Answer(bool allow)
{
    m_several = allow ? Several::Allowed : Several::Refused;
    if (allow) {
        m_isDeclined = false;
    } else {
        m_aside.clear();
    }
    GoOn();
}

void WebEngineDownloadTurn::NoteInput()
{
    m_isDeclined = false;
    if (m_several == Several::Refused) {
        m_several = Several::NotAsked;
    }
}

void WebEngineDownloadTurn::Reset()
{
    m_isDeclined = false;
    m_several = Several::NotAsked;
    m_aside.clear();
}

void WebEngineDownloadTurn::GoOn()
{
    if (m_several != Several::Allowed || m_isOpen || m_aside.isEmpty()) {
        return;
    }
    const auto file = m_aside.takeFirst();
    m_fetch(file.first, file.second);
}
