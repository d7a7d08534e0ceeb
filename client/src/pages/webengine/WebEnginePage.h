#pragma once

#include "WebEngineDownloadTurn.h"
#include "pages/PageDialog.h"

#include <QtCore/QPointer>
#include <QtCore/QUrl>
#include <QtCore/QVector>
#include <QtWebEngineWidgets/QWebEnginePage>

#include <functional>
#include <memory>

class QAuthenticator;

/// A page of the web engine that loads only from the web, opens no window by itself, overrides no certificate
/// error and names the host in every dialog.
class WebEnginePage final : public QWebEnginePage
{
    Q_OBJECT

public:
    using MakePage = std::function<QWebEnginePage*(QWebEnginePage::WebWindowType type)>;

    /// `makePage` gives the page for a window that this page opens; null refuses the window.
    WebEnginePage(QWebEngineProfile* profile, const MakePage& makePage, QObject* parent = nullptr);

    /// Deletes the page. While a dialog of the page is open, the engine waits inside the page for the answer:
    /// the page then dismisses the dialog and deletes itself once the engine has returned.
    static void End(std::unique_ptr<WebEnginePage> page);

    /// The user does something with the page: types, clicks, or loads another address.
    void NoteInput();
    /// The user loads an address or reloads: what they chose for the page shown until now no longer holds.
    void ForgetChoices();
    void triggerAction(WebAction action, bool checked = false) override;
    WebEngineDownloadTurn& GetDownloadTurn() noexcept;

    /// Whether the load of this address ended because it has no valid certificate.
    bool HadCertificateError(const QUrl& url) const;
    void ForgetCertificateError();

Q_SIGNALS:
    /// The user was asked whether to leave the page, and stays. The engine waits for the receivers to return
    /// and must find the page alive then.
    void SigStays();
    void SigExternalRequested(const QUrl& url);
    void SigBlocked(const QUrl& url);
    /// A load turned into a download. The user has been asked about it, or will not be.
    void SigBecameDownload();
    /// The page wants to save more files than the user may be asked about. The answer goes to
    /// `GetDownloadTurn`.
    void SigSeveralDownloads();

protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
    bool certificateError(const QWebEngineCertificateError& error) override;
    QWebEnginePage* createWindow(WebWindowType type) override;
    void javaScriptAlert(const QUrl& origin, const QString& text) override;
    bool javaScriptConfirm(const QUrl& origin, const QString& text) override;
    bool javaScriptPrompt(const QUrl& origin, const QString& text, const QString& proposal,
                          QString* answer) override;
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& message, int line,
                                  const QString& source) override;

private:
    /// `read` is called when the user accepts, before the dialog goes.
    bool Ask(PageDialog::Kind kind, const QUrl& origin, const QString& text, const QString& proposal,
             const std::function<void(const PageDialog& dialog)>& read = {});
    void AskLogIn(const QUrl& origin, const QString& name, QAuthenticator* login);

    MakePage m_makePage;
    WebEngineDownloadTurn m_downloadTurn;
    QUrl m_certificateError;
    QUrl m_shown;
    int m_dialogs = 0;      // shown since the last load
    bool m_silent = false;  // shows no alert, confirm or prompt
    bool m_touched = false; // by the user, since a question about leaving was last shown
    // The innermost last; the engine waits for all of them.
    QVector<QPointer<PageDialog>> m_open;
    bool m_ended = false; // deletes itself when the last of them has been answered
};
