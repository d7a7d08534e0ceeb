#pragma once

#include <QtCore/QPair>
#include <QtCore/QString>
#include <QtCore/QUrl>
#include <QtCore/QVector>

#include <functional>

/// Whose turn it is among the files that one page wants to save: the user is asked about one at a time, and
/// about none after a No until they do something in the page. The others are put aside until the user allows
/// several. GUI thread.
class WebEngineDownloadTurn final
{
public:
    using Fetch = std::function<void(const QUrl& url, const QString& name)>;
    using Ask = std::function<void()>;

    /// `fetch` asks again for a file that was put aside, `ask` asks whether the page may save several; the
    /// answer goes to `Answer`.
    WebEngineDownloadTurn(const Fetch& fetch, const Ask& ask);

    /// Whether the user may be asked about this file; otherwise it is put aside.
    [[nodiscard]] bool Begin(const QUrl& url, const QString& name);
    /// The user was asked, after a `Begin` that was true.
    void End(bool accepted);
    void Answer(bool allow);
    /// The user typed or clicked into the page.
    void NoteInput();
    /// Another page is there.
    void Reset();

private:
    void GoOn();

    Fetch m_fetch;
    Ask m_ask;
    QVector<QPair<QUrl, QString>> m_aside;
    bool m_open = false;     // the user is being asked about a file
    bool m_declined = false; // one, and nothing done since
    bool m_refused = false;  // several, and nothing done since
    bool m_asked = false;    // whether several may be saved
    bool m_allowed = false;
};
