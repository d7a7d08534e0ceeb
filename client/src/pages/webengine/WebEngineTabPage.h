#pragma once

#include "pages/CloseWait.h"
#include "pages/ITabPage.h"
#include "pages/PageLoad.h"

#include <QtCore/QPointer>
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
    void ConnectLoad();
    void ConnectLook();
    void ConnectRequests();
    QWebEnginePage* MakeWindow(QWebEnginePage::WebWindowType type);

    /// Does what follows from an event of the load. `errorText` is that of the engine's error page.
    void Do(const PageLoad::Effects& effects, const QString& errorText = QString());
    void Do(PageLoad::Effect effect, const QString& errorText);
    PageFailure ReadFailure(const QString& errorText) const;
    void OnAddress(const QUrl& url);
    void OnStays();
    void OnPermission(const QUrl& origin, QWebEnginePage::Feature feature);
    void AskSeveralDownloads();
    /// Asks the document whether it is the engine's own error page; `handle` gets its text, or a null text
    /// for any other document. Not called once this object is gone.
    void AskDocument(const std::function<void(const QString& errorText)>& handle);

    QWebEngineProfile* m_profile;
    std::unique_ptr<WebEnginePage> m_page;
    QPointer<WebEngineView> m_view;
    PageLoad m_load;
    CloseWait m_closeWait;
    bool m_isPopUp = false; // another page opened it
};
