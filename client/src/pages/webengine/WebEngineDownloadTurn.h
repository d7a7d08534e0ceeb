#pragma once

#include <QtCore/QPair>
#include <QtCore/QString>
#include <QtCore/QUrl>
#include <QtCore/QVector>

#include <functional>

/// Decides which of the files that one page wants to save comes next. The user is asked about one at a time,
/// and after a No about none until they do something in the page. The others are put aside until the user
/// allows several. GUI thread.
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
    /// Whether the page may save several files.
    enum class Several
    {
        NotAsked,
        Asked,
        Allowed,
        Refused // and the user has done nothing since
    };

    void GoOn();

    Fetch m_fetch;
    Ask m_ask;
    QVector<QPair<QUrl, QString>> m_aside;
    Several m_several = Several::NotAsked;
    bool m_isOpen = false;     // the user is being asked about a file
    bool m_isDeclined = false; // one file was, and the user has done nothing since
};
