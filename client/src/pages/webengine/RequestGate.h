#pragma once

#include <QtWebEngineCore/QWebEngineUrlRequestInterceptor>

/// Lets a page fetch from the web and from itself, and from nowhere else: no files, no resources of the
/// client, no pages of the engine.
class RequestGate final : public QWebEngineUrlRequestInterceptor
{
    Q_OBJECT

public:
    explicit RequestGate(QObject* parent = nullptr);

    void interceptRequest(QWebEngineUrlRequestInfo& info) override;

    static bool IsWeb(const QUrl& url);
};
