#pragma once

#include "PlainPageView.h"
#include "pages/ITabPage.h"

#include <QtCore/QByteArray>
#include <QtCore/QPointer>
#include <QtCore/QVector>
#include <QtNetwork/QNetworkReply>

#include <functional>
#include <optional>

/// A tab's page without a web engine: fetches the address and shows the server's answer as text. Runs no
/// scripts, shows no pictures and follows redirects to http and https only. Fetches at most
/// `PlainPageContent::Limit` of an answer, and none of it if it is not text.
class PlainTabPage final : public ITabPage
{
    Q_OBJECT

public:
    /// Starts a request for an address; the reply belongs to the page.
    using Fetch = std::function<QNetworkReply*(const QUrl&)>;

    PlainTabPage(Fetch fetch, QWidget* parent);
    ~PlainTabPage() override;

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

private:
    /// What becomes of the history when the load brings a page.
    enum class Step
    {
        New,
        Same,
        Back,
        Forward
    };

    struct Request
    {
        QUrl url; // changes with each redirect
        Step step = Step::New;
        QByteArray body; // what has come of it
        int redirects = 0;
        bool isRetry = false;
    };

    void Start(const QUrl& url, Step step);
    void Send();
    void HandleHead();
    void HandleBytes();
    void HandleEnd();
    void FollowRedirect(const QUrl& target);
    void Show(PlainPageView::Note note);
    void Fail(PageFailure::Kind kind, const QString& detail);
    void Finish(bool ok);
    void DropReply();

    Fetch m_fetch;
    QPointer<PlainPageView> m_view;
    QNetworkReply* m_reply = nullptr;
    QVector<QUrl> m_history;
    int m_current = -1;               // in m_history
    std::optional<Request> m_request; // while a page is being loaded
    QString m_title;
    bool m_isFailureShown = false;
    double m_zoom = 1.0;
};
