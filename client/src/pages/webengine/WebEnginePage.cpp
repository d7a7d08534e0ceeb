#include "WebEnginePage.h"

#include "RequestGate.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QStringList>
#include <QtNetwork/QAuthenticator>
#include <QtWebEngineWidgets/QWebEngineCertificateError>
#include <QtWebEngineWidgets/QWebEngineView>

namespace {

/// What the engine asks about a page that does not want to be left; in the user's language, like any text of
/// Qt. A page may ask the same in its own name.
QString UnloadText()
{
    const char* const text =
        "Are you sure you want to leave this page? Changes that you made may not be saved.";
    return QCoreApplication::translate("QWebEnginePage", text); // Qt has the translation
}

bool IsSameSite(const QUrl& a, const QUrl& b)
{
    return a.scheme() == b.scheme() && a.host() == b.host() && a.port() == b.port();
}

} // namespace

WebEnginePage::WebEnginePage(QWebEngineProfile* profile, const MakePage& makePage, QObject* parent)
    : QWebEnginePage(profile, parent)
    , m_makePage(makePage)
    , m_downloadTurn([this](const QUrl& url, const QString& name) { download(url, name); },
                     [this] { Q_EMIT SigSeveralDownloads(); })
{
    connect(this, &QWebEnginePage::urlChanged, this, [this](const QUrl& url) {
        // A page changes its own address as often as it likes.
        if (!IsSameSite(url, m_shown)) {
            ForgetChoices();
        }
        m_shown = url;
    });
    connect(this, &QWebEnginePage::authenticationRequired, this,
            [this](const QUrl& url, QAuthenticator* login) { AskLogIn(url, login->realm(), login); });
    connect(this, &QWebEnginePage::proxyAuthenticationRequired, this,
            [this](const QUrl&, QAuthenticator* login, const QString& proxy) {
                QUrl origin;
                origin.setHost(proxy);
                AskLogIn(origin, login->realm(), login);
            });
}

void WebEnginePage::End(std::unique_ptr<WebEnginePage> page)
{
    if (page->m_open.isEmpty()) {
        return;
    }
    page->m_ended = true;
    page->m_makePage = [](WebWindowType) { return nullptr; };
    for (const QPointer<PageDialog>& dialog : qAsConst(page->m_open)) {
        if (dialog) {
            dialog->reject();
        }
    }
    page.release(); // deletes itself
}

void WebEnginePage::NoteInput()
{
    m_touched = true;
    m_downloadTurn.NoteInput();
}

void WebEnginePage::ForgetChoices()
{
    m_dialogs = 0;
    m_silent = false;
    m_downloadTurn.Reset();
}

void WebEnginePage::triggerAction(WebAction action, bool checked)
{
    NoteInput();
    if (action == Reload || action == ReloadAndBypassCache) {
        ForgetChoices();
    }
    QWebEnginePage::triggerAction(action, checked);
}

WebEngineDownloadTurn& WebEnginePage::GetDownloadTurn() noexcept
{
    return m_downloadTurn;
}

bool WebEnginePage::HadCertificateError(const QUrl& url) const
{
    return m_certificateError.isValid() && m_certificateError.host() == url.host() &&
           m_certificateError.port() == url.port();
}

void WebEnginePage::ForgetCertificateError()
{
    m_certificateError.clear();
}

bool WebEnginePage::acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame)
{
    Q_UNUSED(type)
    static const QStringList ownContent = {QStringLiteral("about"), QStringLiteral("blob")};
    static const QStringList otherPrograms = {QStringLiteral("mailto"), QStringLiteral("tel"),
                                              QStringLiteral("sms")};

    const QString scheme = url.scheme();
    if (RequestGate::IsWeb(url) || ownContent.contains(scheme)) {
        return true;
    }
    if (!isMainFrame) {
        return scheme == QLatin1String("data");
    }
    if (otherPrograms.contains(scheme)) {
        Q_EMIT SigExternalRequested(url);
    } else {
        Q_EMIT SigBlocked(url);
    }
    return false;
}

bool WebEnginePage::certificateError(const QWebEngineCertificateError& error)
{
    m_certificateError = error.url();
    return false;
}

QWebEnginePage* WebEnginePage::createWindow(WebWindowType type)
{
    return m_makePage(type);
}

void WebEnginePage::javaScriptAlert(const QUrl& origin, const QString& text)
{
    Ask(PageDialog::Kind::Alert, origin, text, QString());
}

bool WebEnginePage::javaScriptConfirm(const QUrl& origin, const QString& text)
{
    if (text != UnloadText()) {
        return Ask(PageDialog::Kind::Confirm, origin, text, QString());
    }
    const bool leaves = Ask(PageDialog::Kind::Leave, url(), QString(), QString());
    if (!leaves) {
        Q_EMIT SigStays();
    }
    return leaves;
}

bool WebEnginePage::javaScriptPrompt(const QUrl& origin, const QString& text, const QString& proposal,
                                     QString* answer)
{
    return Ask(PageDialog::Kind::Prompt, origin, text, proposal,
               [answer](const PageDialog& dialog) { *answer = dialog.GetInput(); });
}

void WebEnginePage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& message,
                                             int line, const QString& source)
{
    // Pages say this to their own developers, not to the client's log.
    Q_UNUSED(level)
    Q_UNUSED(message)
    Q_UNUSED(line)
    Q_UNUSED(source)
}

void WebEnginePage::AskLogIn(const QUrl& origin, const QString& name, QAuthenticator* login)
{
    const bool answered =
        Ask(PageDialog::Kind::LogIn, origin, name, QString(), [login](const PageDialog& dialog) {
            login->setUser(dialog.GetInput());
            login->setPassword(dialog.GetPassword());
        });
    if (!answered) {
        *login = QAuthenticator(); // the engine shows what the site says to strangers
    }
}

bool WebEnginePage::Ask(PageDialog::Kind kind, const QUrl& origin, const QString& text,
                        const QString& proposal, const std::function<void(const PageDialog&)>& read)
{
    if (m_ended) {
        return false;
    }
    // A user who does nothing leaves nothing: such a question is the page's own, or its doing.
    const bool leave = kind == PageDialog::Kind::Leave;
    const bool wanted = kind == PageDialog::Kind::LogIn || (leave && m_touched);
    if (m_silent && !wanted) {
        return leave;
    }
    if (leave) {
        m_touched = false;
    }
    QWidget* const parent = view() ? view()->window() : nullptr;
    const QPointer<PageDialog> dialog(
        new PageDialog(kind, origin, text, proposal, m_dialogs > 0 && !wanted, parent));
    m_open.append(dialog);
    const bool accepted = dialog->exec() == QDialog::Accepted;
    m_open.removeLast();
    if (m_ended && m_open.isEmpty()) {
        deleteLater();
    }
    if (!dialog) {
        return false; // the window went away with it
    }
    if (!wanted) {
        ++m_dialogs;
    }
    m_silent = m_silent || dialog->IsSilenceWanted();
    if (accepted && read) {
        read(*dialog);
    }
    delete dialog;
    return accepted;
}
