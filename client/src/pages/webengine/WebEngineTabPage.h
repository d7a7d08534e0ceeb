#pragma once

#include "pages/ITabPage.h"

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtWebEngineWidgets/QWebEnginePage>

#include <functional>
#include <memory>

class QWebEngineProfile;
class WebEnginePage;
class WebEngineView;

/// A tab's page in the web engine.
class WebEngineTabPage final : public ITabPage
{
    Q_OBJECT

public:
    WebEngineTabPage(QWebEngineProfile* profile, QWidget* parent);
    ~WebEngineTabPage() override;

    QWidget* GetWidget() override;
    void Load(const QUrl& url) override;
    void Reload() override;
    void Stop() override;
    void Back() override;
    void Forward() override;
    bool CanGoBack() const override;
    bool CanGoForward() const override;
    QUrl GetUrl() const override;
    QString GetTitle() const override;
    bool IsLoading() const override;
    void Find(const QString& text, bool backward) override;
    void SetZoom(double factor) override;
    double GetZoom() const override;
    void LeaveFullScreen() override;
    void RequestClose() override;

    QWebEnginePage* GetEnginePage() const noexcept;

private:
    QWebEnginePage* MakeWindow(QWebEnginePage::WebWindowType type);
    void OnStarted();
    void OnProgress(int percent);
    void OnFinished(bool ok);
    void Finish(bool ok);
    void OnStays();
    /// Ends a load that was announced, if there is one: the engine will not start it. Should it do so all the
    /// same, it is a load like those that pages begin by themselves.
    void Withdraw(bool ok);
    void AskSeveralDownloads();
    void OnPermission(const QUrl& origin, QWebEnginePage::Feature feature);
    /// Asks the document whether it is the engine's own error page; `done` gets its text, or a null text
    /// for any other document. Not called any more once another load has begun or the page ends.
    void Probe(const std::function<void(const QString& errorText)>& done);

    QWebEngineProfile* m_profile;
    std::unique_ptr<WebEnginePage> m_page;
    QPointer<WebEngineView> m_view;
    QUrl m_shown;
    QUrl m_pending;   // being loaded, not shown yet
    QTimer m_closing; // while the page has not answered whether it may be closed
    int m_closeTicks = 0;
    int m_loadNumber = 0;
    bool m_opened = false; // by another page
    bool m_loading = false;
    bool m_announced = false; // a load was announced that the engine has not started, and may never start
    bool m_staying = false;   // the user does not leave the page, which does not know it yet
    bool m_failed = false;    // the last thing announced was a failure
};
